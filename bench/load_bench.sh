#!/usr/bin/env bash
# Times whole loads through scenario-host against an awk pass over the same
# file: a generated scenario of 100 platforms and LINES PlatformData lines,
# loaded in the no-data mode (counts and spans only) and in the full mode,
# and the no-data load of BIG_LINES lines, to show whether memory grows with
# the file. Prints wall time, lines/s, the ratio to awk, CPU time (user +
# system, over both threads of a load) and peak RSS. The machine may be shared:
# the fastest of RUNS runs counts.
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

row() {  # label seconds kilobytes cpu-seconds lines awk_seconds
  awk -v l="$1" -v s="$2" -v k="$3" -v c="$4" -v n="$5" -v a="$6" 'BEGIN{
    rate = s > 0 ? n / s : 0; ratio = a > 0 ? sprintf("%7.2f", s / a) : "      -";
    printf "%-32s %7.2f s %10.0f lines/s %s x awk %7.2f s CPU %8.1f MiB peak RSS\n", l, s, rate, ratio, c, k / 1024 }'
}

main_file="$(generate "$LINES")"
cat "$main_file" >/dev/null  # warm the page cache, so that no run pays for the disk

echo "file: $main_file ($LINES data lines, 100 platforms, $(du -m "$main_file" | cut -f1) MB); fastest of $RUNS runs"
echo "awk: $(readlink -f "$(command -v awk)")"
result="$(measure awk "$AWK_PROGRAM" "$main_file")"
read -r awk_s awk_k awk_c <<<"$result"
result="$(measure "$HOST" --no-progress --no-data "$main_file")"
read -r nodata_s nodata_k nodata_c <<<"$result"
result="$(measure "$HOST" --no-progress "$main_file")"
read -r full_s full_k full_c <<<"$result"
row "awk sum of columns 2-10" "$awk_s" "$awk_k" "$awk_c" "$LINES" "$awk_s"
row "scenario-host --no-data" "$nodata_s" "$nodata_k" "$nodata_c" "$LINES" "$awk_s"
row "scenario-host (full)" "$full_s" "$full_k" "$full_c" "$LINES" "$awk_s"

if [ "$BIG_LINES" -gt 0 ]; then
  big_file="$(generate "$BIG_LINES")"
  cat "$big_file" >/dev/null
  result="$(RUNS=1 measure "$HOST" --no-progress --no-data "$big_file")"
  read -r big_s big_k big_c <<<"$result"
  row "scenario-host --no-data ${BIG_LINES}" "$big_s" "$big_k" "$big_c" "$BIG_LINES" 0
  awk -v a="$nodata_k" -v b="$big_k" -v n="$LINES" -v m="$BIG_LINES" 'BEGIN{
    printf "no-data peak RSS: %.1f MiB at %d lines, %.1f MiB at %d lines (%+.1f MiB)\n", a/1024, n, b/1024, m, (b-a)/1024 }'
fi
awk -v f="$full_s" -v a="$awk_s" 'BEGIN{ r = f / a;
  printf "full load / awk = %.2f (goal: at most 1.00) %s\n", r, r <= 1.0 ? "met" : "NOT met" }'
