#!/usr/bin/env bash
# The generated platform scenario (bench/load_generate, LINES data lines)
# through the command pipeline and through the document path, each in its
# own process: lines/s, peak RSS and the ratio of the two.
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
if [ ! -s "$FILE" ]; then
  # The document loader wants RefLLA and CoordSystem right behind Version.
  RAW="$WORK/document-raw-$LINES.asi"
  "$BUILD_DIR/bin/load_generate" "$RAW" "$LINES"
  HEADER="$(grep -m 2 -E '^(RefLLA|CoordSystem) ' "$RAW")"
  awk -v header="$HEADER" '/^(RefLLA|CoordSystem) / { next } { print } /^Version / { print header }' "$RAW" > "$FILE"
  rm -f "$RAW"
fi
p="$("$BUILD_DIR/bin/document_load_bench" pipeline "$FILE")"
d="$("$BUILD_DIR/bin/document_load_bench" document "$FILE")"
echo "$p"
echo "$d"
rate() { sed -n 's/.* \([0-9]*\) lines\/s.*/\1/p' <<<"$1"; }
awk -v p="$(rate "$p")" -v d="$(rate "$d")" 'BEGIN { printf "document/pipeline lines/s: %.2f\n", d / p }'
