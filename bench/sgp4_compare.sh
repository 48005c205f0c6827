#!/usr/bin/env bash
# Times our SGP4 (build/bench/sgp4_bench) and satellite.js on the same sets in
# one run. satellite.js is installed from the npm registry into a temporary
# folder that is removed afterwards; nothing is left in the tree.
# Usage: bench/sgp4_compare.sh [BUILD_DIR] [propagations]
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="${1:-$ROOT/build}"
COUNT="${2:-1000000}"
"$BUILD_DIR/bench/sgp4_bench" "$COUNT"
if ! command -v node >/dev/null || ! command -v npm >/dev/null; then
  echo "node or npm not found: satellite.js not timed"
  exit 0
fi
TMP="$(mktemp -d)"
trap 'rm -rf "$TMP"' EXIT
npm install --prefix "$TMP" --no-audit --no-fund --silent satellite.js >/dev/null
echo "satellite.js $(node -p "require('$TMP/node_modules/satellite.js/package.json').version")"
node "$ROOT/bench/sgp4_satellitejs.js" "$TMP" "$COUNT"
