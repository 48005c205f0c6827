#!/usr/bin/env bash
# Sets everything up (packages, configure, build), then loads each example
# scenario into the reference host through the plug-in, one scenario-host run
# per scenario (the live feed as its two files), and prints each summary.
# It builds only what it needs, in a folder of its own (build-run/: no
# tests, no benchmarks), so that a first run is quick; scripts/test.sh builds
# everything in build/. The host's full state after the harbour scenario is
# written to build-run/example-dump.json, after the others to
# build-run/example-dump-<name>.json.
# Exits non-zero if any example does not load with result 0.
# Usage: scripts/run-example.sh [extra scenario-host options...]
set -uo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$ROOT/build-run"
EXAMPLES="$ROOT/examples"

bash "$ROOT/scripts/setup.sh" "$BUILD_DIR" -DORV_BUILD_TESTS=OFF -DORV_BUILD_BENCH=OFF || exit $?

failed=0
results=()

# load NAME DUMP FILE... : one scenario-host run
load() {
  local name="$1" dump="$2"
  shift 2
  echo "==== $name"
  "$BUILD_DIR/bin/scenario-host" --dump "$dump" "${EXTRA[@]}" "$@"
  local status=$?
  results+=("$(printf '%-14s exit status %d (dump: %s)' "$name" "$status" "$dump")")
  [ "$status" -eq 0 ] || failed=1
  echo
}

EXTRA=("$@")
load harbour "$BUILD_DIR/example-dump.json" "$EXAMPLES/harbour.asi"
load minimal "$BUILD_DIR/example-dump-minimal.json" "$EXAMPLES/minimal.asi"
load aircraft_ecef "$BUILD_DIR/example-dump-aircraft_ecef.json" "$EXAMPLES/aircraft_ecef.asi"
load radar "$BUILD_DIR/example-dump-radar.json" "$EXAMPLES/radar.asi"
load designator "$BUILD_DIR/example-dump-designator.json" "$EXAMPLES/designator.asi"
load live_feed "$BUILD_DIR/example-dump-live_feed.json" "$EXAMPLES/live_feed_1.asi" "$EXAMPLES/live_feed_2.asi"
load socal_aswex "$BUILD_DIR/example-dump-socal_aswex.json" "$EXAMPLES/socal_aswex.csv"
load pmrf_rimpac "$BUILD_DIR/example-dump-pmrf_rimpac.json" "$EXAMPLES/pmrf_rimpac.csv"
load gpx "$BUILD_DIR/example-dump-gpx.json" "$EXAMPLES/arthurs_seat.gpx"
load pet "$BUILD_DIR/example-dump-pet.json" "$EXAMPLES/range_trial.pet"
ORVIDE_USER_DIR="$EXAMPLES" load wam "$BUILD_DIR/example-dump-wam.json" "$EXAMPLES/coastal_watch.wam"
load vestfjorden "$BUILD_DIR/example-dump-vestfjorden.json" "$EXAMPLES/northern_screen.otg"
# The TLE and Kepler converters write their ASI text beside the input: they
# load copies in the build folder, so that examples/ stays as it is.
CONVERTED="$BUILD_DIR/converted-examples"
mkdir -p "$CONVERTED" && cp "$EXAMPLES/satellites.tle" "$EXAMPLES/ballistic.kp" "$CONVERTED/"
load satellites "$BUILD_DIR/example-dump-satellites.json" "$CONVERTED/satellites.tle"
load ballistic "$BUILD_DIR/example-dump-ballistic.json" "$CONVERTED/ballistic.kp"

echo "==== results"
printf '%s\n' "${results[@]}"
if [ "$failed" -ne 0 ]; then
  echo "some examples did not load with result 0"
  exit 1
fi
echo "all examples loaded"
