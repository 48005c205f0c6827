# Sourced by the load benchmarks. Needs TIME (GNU time), WORK (a scratch
# folder) and RUNS.
#
# measure COMMAND... -> prints "seconds kilobytes cpu-seconds": the fastest
# run's wall and CPU time, the largest peak RSS; the command must succeed
# (scenario-host exit status 0).
measure() {
  local best_s="" best_k="" best_c="" s k u y i
  for ((i = 0; i < RUNS; i++)); do
    if ! "$TIME" -o "$WORK/time.txt" -f '%e %M %U %S' "$@" >"$WORK/out.txt" 2>"$WORK/err.txt"; then
      echo "$(basename "$0"): failed: $*" >&2
      cat "$WORK/out.txt" "$WORK/err.txt" >&2
      exit 1
    fi
    read -r s k u y <"$WORK/time.txt"
    if [ -z "$best_s" ] || awk -v a="$s" -v b="$best_s" 'BEGIN{exit !(a < b)}'; then
      best_s=$s
      best_c=$(awk -v u="$u" -v y="$y" 'BEGIN{print u + y}')
    fi
    if [ -z "$best_k" ] || [ "$k" -gt "$best_k" ]; then best_k=$k; fi
  done
  echo "$best_s $best_k $best_c"
}

# once COMMAND... -> "seconds kilobytes cpu-seconds" of one run; the command
# must succeed.
once() {
  if ! "$TIME" -o "$WORK/time.txt" -f '%e %M %U %S' "$@" >"$WORK/out.txt" 2>"$WORK/err.txt"; then
    echo "$(basename "$0"): failed: $*" >&2
    cat "$WORK/out.txt" "$WORK/err.txt" >&2
    exit 1
  fi
  awk '{print $1, $2, $3 + $4}' "$WORK/time.txt"
}

# measure_against COMMAND... -> "seconds kilobytes cpu-seconds reference-seconds":
# each run of COMMAND follows a run of the array REFERENCE (an awk pass over the
# same file), so that both see the same load of a shared machine; the run with
# the smallest ratio to its reference counts (its wall and CPU time and that
# reference time), with the largest peak RSS of all runs.
measure_against() {
  local best="" best_k=0 i a s k c
  for ((i = 0; i < RUNS; i++)); do
    read -r a _ _ < <(once "${REFERENCE[@]}")
    read -r s k c < <(once "$@")
    if [ -z "$best" ] || awk -v x="$s" -v y="$a" -v b="$best" 'BEGIN{split(b, p, " "); exit !(x / y < p[1] / p[4])}'; then
      best="$s $k $c $a"
    fi
    if [ "$k" -gt "$best_k" ]; then best_k=$k; fi
  done
  read -r s _ c a <<<"$best"
  echo "$s $best_k $c $a"
}
