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
