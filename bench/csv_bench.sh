#!/usr/bin/env bash
# Times a SCORE range file of RECORDS position records over TRACKS tracks:
# an awk pass summing the position fields, the reader alone into the document
# (csv_read), and whole loads through scenario-host, all in the same run.
# Prints wall time, records/s, the ratio to awk and peak RSS, and the memory
# per kept state from the difference of two file sizes. The machine may be
# shared: the fastest of RUNS runs counts.
#
# Usage: bench/csv_bench.sh [BUILD_DIR] [RECORDS] [TRACKS] [RUNS]
#   BUILD_DIR  a build configured with -DCMAKE_BUILD_TYPE=Release (default build)
#   RECORDS    position records of the main file (default 1000000)
#   TRACKS     tracks (default 200)
#   RUNS       runs of each measurement; the fastest counts (default 3)
# Files go to ${ORV_BENCH_DIR:-/tmp/orv-csv-bench} and are kept for later runs.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$(cd "${1:-$ROOT/build}" && pwd)"
RECORDS="${2:-1000000}"
TRACKS="${3:-200}"
RUNS="${4:-3}"
WORK="${ORV_BENCH_DIR:-/tmp/orv-csv-bench}"
TIME=/usr/bin/time
# Fields 10 to 16: latitude, longitude, X, Y, Z, course, speed.
AWK_PROGRAM='{s+=$10+$11+$12+$13+$14+$15+$16} END{print s}'

if [ ! -x "$TIME" ]; then
  echo "csv_bench: $TIME is missing (Debian package 'time')" >&2
  exit 1
fi
cmake --build "$BUILD_DIR" -j2 --target scenario-host FileReaderPlugin csv_generate csv_read >/dev/null
HOST="$BUILD_DIR/bin/scenario-host"
mkdir -p "$WORK"

generate() {  # RECORDS -> path
  local path="$WORK/score-$1-$TRACKS.csv"
  if [ ! -s "$path" ]; then
    "$BUILD_DIR/bin/csv_generate" "$path.part" "$1" "$TRACKS"
    mv "$path.part" "$path"
  fi
  echo "$path"
}

measure() {  # COMMAND... -> "seconds kilobytes" (fastest wall time, largest peak RSS)
  local best_s="" best_k="" s k i
  for ((i = 0; i < RUNS; i++)); do
    if ! "$TIME" -o "$WORK/time.txt" -f '%e %M' "$@" >"$WORK/out.txt" 2>"$WORK/err.txt"; then
      echo "csv_bench: failed: $*" >&2
      tail -5 "$WORK/out.txt" "$WORK/err.txt" >&2
      exit 1
    fi
    read -r s k <"$WORK/time.txt"
    if [ -z "$best_s" ] || awk -v a="$s" -v b="$best_s" 'BEGIN{exit !(a < b)}'; then best_s=$s; fi
    if [ -z "$best_k" ] || [ "$k" -gt "$best_k" ]; then best_k=$k; fi
  done
  echo "$best_s $best_k"
}

row() {  # label seconds kilobytes records awk_seconds
  awk -v l="$1" -v s="$2" -v k="$3" -v n="$4" -v a="$5" 'BEGIN{
    printf "%-34s %7.2f s %10.0f records/s %6.2f x awk %8.1f MiB peak RSS\n", l, s, (s > 0 ? n / s : 0), s / a, k / 1024 }'
}

main_file="$(generate "$RECORDS")"
small_records=$((RECORDS / 4))
small_file="$(generate "$small_records")"
cat "$main_file" "$small_file" >/dev/null  # warm the page cache

echo "file: $main_file ($RECORDS records, $TRACKS tracks, $(du -mL "$main_file" | cut -f1) MB); fastest of $RUNS runs"
read -r awk_s awk_k <<<"$(measure awk -F, "$AWK_PROGRAM" "$main_file")"
read -r read_s read_k <<<"$(measure "$BUILD_DIR/bin/csv_read" "$main_file")"
read -r read_small_s read_small_k <<<"$(measure "$BUILD_DIR/bin/csv_read" "$small_file")"
row "awk -F, sum of the position fields" "$awk_s" "$awk_k" "$RECORDS" "$awk_s"
row "reader alone (csv_read)" "$read_s" "$read_k" "$RECORDS" "$awk_s"
awk -v a="$read_small_k" -v b="$read_k" -v n="$small_records" -v m="$RECORDS" 'BEGIN{
  printf "document: %.0f bytes per state (peak RSS %.1f MiB at %d records, %.1f MiB at %d)\n",
    (b - a) * 1024 / (m - n), a / 1024, n, b / 1024, m }'

if "$HOST" --no-progress --no-data "$small_file" >/dev/null 2>&1; then
  read -r host_s host_k <<<"$(measure "$HOST" --no-progress "$main_file")"
  read -r host_small_s host_small_k <<<"$(measure "$HOST" --no-progress "$small_file")"
  row "scenario-host (full)" "$host_s" "$host_k" "$RECORDS" "$awk_s"
  awk -v a="$host_small_k" -v b="$host_k" -v n="$small_records" -v m="$RECORDS" 'BEGIN{
    printf "scenario-host: %.0f bytes per state (document and host together)\n", (b - a) * 1024 / (m - n) }'
  awk -v f="$host_s" -v a="$awk_s" 'BEGIN{ r = f / a;
    printf "scenario-host / awk = %.2f (goal: within 3x) %s\n", r, r <= 3.0 ? "met" : "NOT met" }'
else
  echo "scenario-host does not load $small_file; the whole-load rows are left out" >&2
fi
