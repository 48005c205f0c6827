#!/usr/bin/env bash
# Builds every libFuzzer target (clang, ASan+UBSan) and runs each one for
# SECONDS seconds, one after the other or a few at once, starting from its
# seed inputs. Fails (exit status 1) when a fuzzer reports a finding: a crash,
# a sanitizer report, a broken invariant, a leak, a timeout or running out of
# memory. The input that caused it is kept in ARTIFACTS.
#
# Usage: scripts/fuzz.sh [SECONDS] [FUZZER...]
#   SECONDS  run time of each fuzzer (default 60)
#   FUZZER   names of targets to run (default: every target under fuzz/)
# Environment: ORV_FUZZ_BUILD (default build-fuzz), ORV_FUZZ_ARTIFACTS
# (default ORV_FUZZ_BUILD/fuzz-artifacts), ORV_FUZZ_JOBS (build jobs, default 2),
# ORV_FUZZ_PARALLEL (fuzzers run at once, default 1). A fuzz/<area>.dict file
# is the dictionary of the targets of that area.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
SECONDS_EACH="${1:-60}"
shift || true
BUILD="${ORV_FUZZ_BUILD:-$ROOT/build-fuzz}"
ARTIFACTS="${ORV_FUZZ_ARTIFACTS:-$BUILD/fuzz-artifacts}"
JOBS="${ORV_FUZZ_JOBS:-2}"
PARALLEL="${ORV_FUZZ_PARALLEL:-1}"

if ! [[ "$SECONDS_EACH" =~ ^[0-9]+$ ]] || [ "$SECONDS_EACH" -lt 1 ]; then
  echo "fuzz.sh: SECONDS must be a positive whole number, not '$SECONDS_EACH'" >&2
  exit 64
fi

if ! [[ "$PARALLEL" =~ ^[0-9]+$ ]] || [ "$PARALLEL" -lt 1 ]; then
  echo "fuzz.sh: ORV_FUZZ_PARALLEL must be a positive whole number, not '$PARALLEL'" >&2
  exit 64
fi

launcher=()
if command -v ccache >/dev/null; then
  launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
CC=clang CXX=clang++ cmake -S "$ROOT" -B "$BUILD" -G Ninja -DORV_FUZZ=ON -DORV_BUILD_TESTS=OFF \
  -DORV_BUILD_BENCH=OFF "${launcher[@]}" >/dev/null
cmake --build "$BUILD" -j"$JOBS"

# Every target is an executable directly under the build's fuzz folder.
if [ "$#" -gt 0 ]; then
  targets=("$@")
else
  mapfile -t targets < <(find "$BUILD/fuzz" -maxdepth 1 -type f -perm -u+x -printf '%f\n' | sort)
fi
if [ "${#targets[@]}" -eq 0 ]; then
  echo "fuzz.sh: no fuzz targets under $BUILD/fuzz" >&2
  exit 1
fi

# The seed folder of a target: fuzz/<target>_seeds, fuzz/<area>_seeds or
# fuzz/corpus/<area>, where <area> is the name up to its first "_".
seeds_of() {
  local name="$1" area="${1%%_*}"
  for dir in "$ROOT/fuzz/${name}_seeds" "$ROOT/fuzz/${area}_seeds" "$ROOT/fuzz/corpus/$area"; do
    if [ -d "$dir" ]; then
      echo "$dir"
      return
    fi
  done
}

# UBSan stops at its first report, so that the fuzzer counts it as a finding
# instead of printing it and running on.
export UBSAN_OPTIONS="${UBSAN_OPTIONS:+$UBSAN_OPTIONS:}halt_on_error=1:print_stacktrace=1"

mkdir -p "$ARTIFACTS"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# run_one TARGET: one fuzzer for SECONDS_EACH seconds; its summary goes to
# work/TARGET.summary, its status (0 clean, 1 finding) to work/TARGET.status.
run_one() {
  local target="$1" exe="$BUILD/fuzz/$1" summary="$work/$1.summary"
  if [ ! -x "$exe" ]; then
    echo "fuzz.sh: no such fuzz target: $target" >"$summary"
    echo 1 >"$work/$target.status"
    return
  fi
  # The run grows its own copy of the seeds; the repository stays as it is.
  local corpus="$work/$target" seeds dict=() log="$ARTIFACTS/$target.log"
  mkdir -p "$corpus"
  seeds="$(seeds_of "$target")"
  if [ -n "$seeds" ]; then cp -r "$seeds/." "$corpus/"; fi
  if [ -f "$ROOT/fuzz/${target%%_*}.dict" ]; then dict=(-dict="$ROOT/fuzz/${target%%_*}.dict"); fi
  echo "== $target: ${SECONDS_EACH} s, seeds ${seeds:-none}" >"$summary"
  # The readers tell what they find on stdout and stderr; -close_fd_mask=3
  # keeps that out of the log (a reader's chatter filled gigabytes in ten
  # minutes), while libFuzzer's and the sanitizers' reports still reach it.
  # Each run has a folder of its own as its working directory, so that
  # whatever a target writes there is not shared with a parallel run.
  mkdir -p "$work/cwd-$target"
  if (cd "$work/cwd-$target" && "$exe" -max_total_time="$SECONDS_EACH" -timeout=25 -rss_limit_mb=2560 \
        -print_final_stats=1 -close_fd_mask=3 "${dict[@]}" -artifact_prefix="$ARTIFACTS/$target-" "$corpus") >"$log" 2>&1; then
    grep -aE '^stat::number_of_executed_units|^stat::peak_rss_mb' "$log" | sed 's/^/   /' >>"$summary" || true
    echo 0 >"$work/$target.status"
  else
    {
      echo "   FINDING (see $log):"
      grep -aE '==[0-9]+== ?ERROR:|runtime error:|SUMMARY:|Test unit written' "$log" | head -n 5 | sed 's/^/   /' || true
    } >>"$summary"
    echo 1 >"$work/$target.status"
  fi
}

# At most PARALLEL fuzzers run at once; each summary is printed as its run ends.
running=()
report_finished() {
  local still=() target
  for target in "${running[@]}"; do
    if [ -f "$work/$target.status" ]; then cat "$work/$target.summary"; else still+=("$target"); fi
  done
  running=("${still[@]}")
}
for target in "${targets[@]}"; do
  while [ "${#running[@]}" -ge "$PARALLEL" ]; do
    wait -n || true
    report_finished
  done
  run_one "$target" &
  running+=("$target")
done
wait
report_finished

failed=()
for target in "${targets[@]}"; do
  if [ "$(cat "$work/$target.status")" != 0 ]; then failed+=("$target"); fi
done
if [ "${#failed[@]}" -gt 0 ]; then
  echo "fuzz.sh: findings in: ${failed[*]}" >&2
  exit 1
fi
echo "fuzz.sh: no findings in ${#targets[@]} targets"
