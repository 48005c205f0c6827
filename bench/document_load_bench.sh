#!/usr/bin/env bash
# The generated platform scenario (bench/load_generate, LINES data lines)
# through the command pipeline and through the document path, each in its
# own process: lines/s, peak RSS, the ratio of the two, and each one's ratio
# to an awk pass over the same file run right before it.
#
# Usage: bench/document_load_bench.sh [BUILD_DIR] [LINES]
#   BUILD_DIR  a build configured with -DCMAKE_BUILD_TYPE=Release (default build)
#   LINES      data lines (default 2000000)
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$(cd "${1:-$ROOT/build}" && pwd)"
LINES="${2:-2000000}"
WORK="${ORV_BENCH_DIR:-/tmp/orv-load-bench}"
cmake --build "$BUILD_DIR" -j2 --target load_generate document_load_bench >/dev/null
mkdir -p "$WORK"
FILE="$WORK/document-$LINES.asi"
# load_generate writes RefLLA and CoordSystem right behind Version, as the
# document loader wants them.
[ -s "$FILE" ] || "$BUILD_DIR/bin/load_generate" "$FILE" "$LINES"
cat "$FILE" >/dev/null  # warm the page cache
AWK_PROGRAM='{s+=$2+$3+$4+$5+$6+$7+$8+$9+$10} END{print s}'
# awk_seconds -> wall seconds of one awk pass over the file
awk_seconds() {
  local start end
  start=$(date +%s.%N)
  awk "$AWK_PROGRAM" "$FILE" >/dev/null
  end=$(date +%s.%N)
  awk -v a="$start" -v b="$end" 'BEGIN{ printf "%.2f", b - a }'
}
seconds() { sed -n 's/.* \([0-9.]*\) s, .*/\1/p' <<<"$1"; }
rate() { sed -n 's/.* \([0-9]*\) lines\/s.*/\1/p' <<<"$1"; }
for mode in pipeline document; do
  a="$(awk_seconds)"
  out="$("$BUILD_DIR/bin/document_load_bench" "$mode" "$FILE")"
  echo "$out; awk $a s, ratio to awk $(awk -v s="$(seconds "$out")" -v a="$a" 'BEGIN{ printf "%.2f", s / a }')"
  if [ "$mode" = pipeline ]; then p="$out"; else d="$out"; fi
done
awk -v p="$(rate "$p")" -v d="$(rate "$d")" 'BEGIN { printf "document/pipeline lines/s: %.2f\n", d / p }'
