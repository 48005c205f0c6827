#!/usr/bin/env bash
# Sets everything up (packages, configure, build) and runs every test.
# Usage: scripts/test.sh [BUILD_DIR] [extra cmake arguments...]
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="${1:-$ROOT/build}"

bash "$ROOT/scripts/setup.sh" "$@"
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)"
