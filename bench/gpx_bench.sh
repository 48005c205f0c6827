#!/usr/bin/env bash
# Times a large GPX file through scenario-host against gpsbabel reading the
# same file (gpsbabel -i gpx -f FILE -o unicsv -F /dev/null), in one run:
# wall time, CPU time and peak RSS of each, fastest of RUNS runs (the
# machine may be shared). Goal: at most half of gpsbabel's time, and no more
# peak memory. An awk pass summing every point's latitude and longitude shows
# what merely reading the file costs: the load's ratio to it is printed too.
#
# Usage: bench/gpx_bench.sh [BUILD_DIR] [TRACKS] [POINTS] [RUNS]
#   BUILD_DIR  a build configured with -DCMAKE_BUILD_TYPE=Release (default build)
#   TRACKS, POINTS  the file's size (default 20 tracks of 50000 points, ~100 MB)
#   RUNS       runs of each measurement (default 3)
# The file goes to ${ORV_BENCH_DIR:-/tmp/orv-gpx-bench} and is kept.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$(cd "${1:-$ROOT/build}" && pwd)"
TRACKS="${2:-20}"
POINTS="${3:-50000}"
RUNS="${4:-3}"
WORK="${ORV_BENCH_DIR:-/tmp/orv-gpx-bench}"
TIME=/usr/bin/time

for tool in "$TIME" gpsbabel; do
  command -v "$tool" >/dev/null || { echo "gpx_bench: $tool is missing (scripts/setup.sh installs it)" >&2; exit 1; }
done
build_type="$(sed -n 's/^CMAKE_BUILD_TYPE:[A-Z]*=//p' "$BUILD_DIR/CMakeCache.txt" 2>/dev/null || true)"
[ "$build_type" = "Release" ] || echo "gpx_bench: warning: $BUILD_DIR is a '${build_type:-default}' build" >&2
cmake --build "$BUILD_DIR" -j2 --target scenario-host FileReaderPlugin gpx_generate >/dev/null
mkdir -p "$WORK"
file="$WORK/tracks-${TRACKS}x${POINTS}.gpx"
[ -s "$file" ] || "$BUILD_DIR/bin/gpx_generate" "$file" "$TRACKS" "$POINTS"
cat "$file" >/dev/null  # warm the page cache

source "$ROOT/bench/measure.sh"

echo "file: $file ($TRACKS tracks x $POINTS points, $(du -mL "$file" | cut -f1) MB); fastest of $RUNS runs"
read -r awk_s awk_k awk_c <<<"$(measure awk -F'"' '/<trkpt/ {s += $2 + $4} END {print s}' "$file")"
read -r babel_s babel_k babel_c <<<"$(measure gpsbabel -i gpx -f "$file" -o unicsv -F /dev/null)"
read -r host_s host_k host_c <<<"$(measure "$BUILD_DIR/bin/scenario-host" --no-progress "$file")"
awk -v as="$awk_s" -v ak="$awk_k" -v ac="$awk_c" -v bs="$babel_s" -v bk="$babel_k" -v bc="$babel_c" -v hs="$host_s" -v hk="$host_k" -v hc="$host_c" 'BEGIN{
  printf "%-22s %7.2f s wall %7.2f s CPU %8.1f MiB peak RSS\n", "awk sum of lat, lon", as, ac, ak / 1024
  printf "%-22s %7.2f s wall %7.2f s CPU %8.1f MiB peak RSS\n", "gpsbabel -> unicsv", bs, bc, bk / 1024
  printf "%-22s %7.2f s wall %7.2f s CPU %8.1f MiB peak RSS\n", "scenario-host", hs, hc, hk / 1024
  printf "time ratio %.2f (goal <= 0.50: %s), memory ratio %.2f (goal <= 1.00: %s)\n",
    hs / bs, hs / bs <= 0.5 ? "met" : "NOT met", hk / bk, hk / bk <= 1.0 ? "met" : "NOT met"
  printf "scenario-host / awk = %.2f\n", hs / as }'
