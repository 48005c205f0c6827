#!/usr/bin/env bash
# Sets everything up (packages, configure, build), then loads the example
# scenario into the reference host through the plug-in and prints the summary.
# The host's full state is written to build/example-dump.json.
# Usage: scripts/run-example.sh [extra scenario-host options...]
set -uo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$ROOT/build"

bash "$ROOT/scripts/setup.sh" "$BUILD_DIR" || exit $?

"$BUILD_DIR/bin/scenario-host" --dump "$BUILD_DIR/example-dump.json" "$@" "$ROOT/examples/minimal.asi"
status=$?
echo "scenario-host exit status: $status (dump: $BUILD_DIR/example-dump.json)"
exit $status
