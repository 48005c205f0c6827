#!/usr/bin/env bash
# Times whole loads against an awk pass over the same file: a generated
# scenario of 100 platforms and LINES PlatformData lines, loaded through
# scenario-host in the no-data mode (counts and spans only) and in the full
# mode; then the same for BIG_LINES lines, to show whether memory grows with
# the file. Prints wall time, lines/s, the ratio to awk on the same file, CPU
# time (user + system, over all threads of a load) and peak RSS. The machine may be shared: the
# fastest of RUNS runs counts, and each load runs right after its awk pass.
#
# Usage: bench/load_bench.sh [BUILD_DIR] [LINES] [BIG_LINES] [RUNS]
#   BUILD_DIR  a build configured with -DCMAKE_BUILD_TYPE=Release (default build)
#   LINES      data lines of the main file (default 2000000)
#   BIG_LINES  data lines of the memory comparison (default 8000000; 0 skips it)
#   RUNS       runs of each measurement; the fastest counts (default 3)
# Generated files go to ${ORV_BENCH_DIR:-/tmp/orv-load-bench} and are kept for
# later runs (they are regenerated when missing).
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$(cd "${1:-$ROOT/build}" && pwd)"
LINES="${2:-2000000}"
BIG_LINES="${3:-8000000}"
RUNS="${4:-3}"
WORK="${ORV_BENCH_DIR:-/tmp/orv-load-bench}"
TIME=/usr/bin/time
AWK_PROGRAM='{s+=$2+$3+$4+$5+$6+$7+$8+$9+$10} END{print s}'

if [ ! -x "$TIME" ]; then
  echo "load_bench: $TIME is missing (Debian package 'time'; scripts/setup.sh installs it)" >&2
  exit 1
fi
build_type="$(sed -n 's/^CMAKE_BUILD_TYPE:[A-Z]*=//p' "$BUILD_DIR/CMakeCache.txt" 2>/dev/null || true)"
if [ "$build_type" != "Release" ]; then
  echo "load_bench: warning: $BUILD_DIR is a '${build_type:-default}' build; configure with -DCMAKE_BUILD_TYPE=Release" >&2
fi
cmake --build "$BUILD_DIR" -j2 --target scenario-host FileReaderPlugin load_generate >/dev/null
HOST="$BUILD_DIR/bin/scenario-host"
mkdir -p "$WORK"

# generate LINES -> path of a file with that many data lines
generate() {
  local path="$WORK/load-$1.asi"
  if [ ! -s "$path" ]; then
    "$BUILD_DIR/bin/load_generate" "$path.part" "$1" 100
    mv "$path.part" "$path"
  fi
  echo "$path"
}

source "$ROOT/bench/measure.sh"

row() {  # label seconds kilobytes cpu-seconds awk-seconds lines
  awk -v l="$1" -v s="$2" -v k="$3" -v c="$4" -v a="$5" -v n="$6" 'BEGIN{
    rate = s > 0 ? n / s : 0; ratio = a > 0 ? sprintf("%5.2f", s / a) : "    -";
    printf "%-34s %7.2f s %10.0f lines/s  awk %6.2f s  ratio %s  %6.2f s CPU %8.1f MiB peak RSS\n",
      l, s, rate, a, ratio, c, k / 1024 }'
}

# loads LINES: every row of one file
loads() {
  local lines="$1" file
  file="$(generate "$lines")"
  cat "$file" >/dev/null  # warm the page cache, so that no run pays for the disk
  echo "file: $file ($lines data lines, 100 platforms, $(du -mL "$file" | cut -f1) MB)"
  local result
  REFERENCE=(awk "$AWK_PROGRAM" "$file")
  result="$(measure_against "${REFERENCE[@]}")"
  row "awk sum of columns 2-10" $result "$lines"
  result="$(measure_against "$HOST" --no-progress --no-data "$file")"
  row "scenario-host --no-data" $result "$lines"
  NODATA_KB="$(echo "$result" | cut -d' ' -f2)"
  result="$(measure_against "$HOST" --no-progress "$file")"
  row "scenario-host (full)" $result "$lines"
  FULL_RATIO="$(awk -v r="$result" 'BEGIN{split(r, p, " "); print p[1] / p[4]}')"
}

echo "best ratio of $RUNS runs, each right after an awk pass over the same file; awk: $(readlink -f "$(command -v awk)")"
echo "machine: $(nproc) cores, $(uptime | sed 's/.*load/load/')"
loads "$LINES"
main_ratio="$FULL_RATIO"
main_kb="$NODATA_KB"
if [ "$BIG_LINES" -gt 0 ]; then
  loads "$BIG_LINES"
  awk -v a="$main_kb" -v b="$NODATA_KB" -v n="$LINES" -v m="$BIG_LINES" 'BEGIN{
    printf "no-data peak RSS: %.1f MiB at %d lines, %.1f MiB at %d lines (%+.1f%%)\n", a/1024, n, b/1024, m, (b-a)*100/a }'
fi
awk -v r="$main_ratio" 'BEGIN{ printf "full load / awk = %.2f (goal: at most 1.00) %s\n", r, r <= 1.0 ? "met" : "NOT met" }'
echo "machine after: $(uptime | sed 's/.*load/load/')"
