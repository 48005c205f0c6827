#!/usr/bin/env bash
# Peak memory of loads of hostile and careless files through scenario-host:
# each file is one that used to cost memory in proportion to what it held, or
# to crash or hang the host. Prints, per file, its size, the load's exit
# status (0 loaded, 2 loaded with errors, 3 failed, see docs/scenario-host.md),
# wall time, peak RSS and the first message. docs/limits.md states the bounds.
#
# Usage: bench/hostile_bench.sh [BUILD_DIR] [SCALE]
#   BUILD_DIR  a build (Release for meaningful times; default build)
#   SCALE      size factor of the generated files, 1 = the sizes below (default 1)
# Files go to ${ORV_BENCH_DIR:-/tmp/orv-hostile-bench} and are removed at the end.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="$(cd "${1:-$ROOT/build}" && pwd)"
SCALE="${2:-1}"
WORK="${ORV_BENCH_DIR:-/tmp/orv-hostile-bench}"
TIME=/usr/bin/time
HOST="$BUILD_DIR/bin/scenario-host"

cmake --build "$BUILD_DIR" -j2 --target scenario-host FileReaderPlugin >/dev/null
mkdir -p "$WORK"
trap 'rm -rf "$WORK"' EXIT

HEADER=$'Version 24\nReferenceYear 2026\nCoordSystem LLA\nDegreeAngles 1\nRefLLA 36.5 -121.9 0\nPlatformID 1\nPlatformName 1 ship\nPlatformData 1 0 36.5 -121.9 0\n'
MB=$((1000000 * SCALE))

# name: a file of WORK whose content the given command writes after the header
make_file() {
  local name="$1"
  shift
  { printf '%s' "$HEADER"; "$@"; printf '\nPlatformData 1 1 36.5 -121.9 0\n'; } >"$WORK/$name"
}

# run LABEL [PREFIX...] FILE: one load, measured
run() {
  local label="$1"
  shift
  local status=0
  "$TIME" -o "$WORK/time.txt" -f '%e %M' "$@" >/dev/null 2>"$WORK/err.txt" || status=$?
  # /usr/bin/time reports the command's status itself when it is not 0.
  local seconds kb
  read -r seconds kb < <(grep -E '^[0-9.]+ [0-9]+$' "$WORK/time.txt" | tail -n 1)
  local size="-"
  local file="${*: -1}"
  if [ -f "$file" ]; then size="$(du -m --apparent-size "$file" | cut -f1) MB"; fi
  local first
  first="$(grep -v '^$' "$WORK/err.txt" | grep -v '^Loading\|^Summary\|^\s' | head -n 1 | cut -c1-110 || true)"
  printf '%-44s %9s  exit %-3s %7.2f s %8.1f MiB  %s\n' "$label" "$size" "$status" "$seconds" \
    "$(awk -v k="$kb" 'BEGIN{print k/1024}')" "$first"
}

echo "scenario-host: $HOST, scale $SCALE; $(uptime)"
printf '%-44s %9s  %-8s %9s %12s  %s\n' "file" "size" "status" "wall" "peak RSS" "first message"

make_file keyword.asi sh -c "head -c $((100 * MB)) /dev/zero | tr '\\0' 'k'"
run "100 MB unknown keyword" "$HOST" --no-progress "$WORK/keyword.asi"

make_file tokens.asi sh -c "yes a | head -n $((50 * MB)) | tr '\\n' ' '"
run "100 MB line of one-letter tokens" "$HOST" --no-progress "$WORK/tokens.asi"

make_file name.asi sh -c "printf 'PlatformName 1 '; head -c $((100 * MB)) /dev/zero | tr '\\0' 'n'"
run "100 MB PlatformName, ulimit -v 450000" sh -c "ulimit -v 450000 && exec \"\$0\" --no-progress \"\$1\"" \
  "$HOST" "$WORK/name.asi"

make_file lines.asi sh -c "line=\$(yes a | head -n 524000 | tr '\\n' ' '); for i in \$(seq $((100 * SCALE))); do echo \"PlatformName 1 \$line\"; done"
run "100 lines of 1 MB of tokens" "$HOST" --no-progress "$WORK/lines.asi"

make_file distinct.asi seq -f 'kw%.0f' 1 $((10000000 * SCALE))
run "10 million distinct unknown keywords" "$HOST" --no-progress "$WORK/distinct.asi"

make_file parked.asi seq -f 'PlatformType %.0f ship' 1000 $((1000000 * SCALE + 999))
run "1 million commands for undeclared ids" "$HOST" --no-progress "$WORK/parked.asi"

make_file long.asi sh -c "printf 'GenericData 1 '; head -c $((600 * MB)) /dev/zero | tr '\\0' 'g'"
run "600 MB line" "$HOST" --no-progress "$WORK/long.asi"

ln -sf /dev/zero "$WORK/zero.asi"
run "/dev/zero named zero.asi" "$HOST" --no-progress "$WORK/zero.asi"

mkfifo "$WORK/pipe.asi"
run "named pipe without a writer" timeout 60 "$HOST" --no-progress "$WORK/pipe.asi"

# zip_file NAME MEMBER MEGABYTES: an archive holding a small ASI file and a
# member of MEGABYTES of zeros (a few MB once deflated).
zip_file() {
  /usr/bin/python3 - "$WORK/$1" "$2" "$3" "$HEADER" <<'PY'
import sys, zipfile
path, member, megabytes, header = sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4]
with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as z:
    z.writestr("scenario.asi", header)
    with z.open(member, "w", force_zip64=True) as out:
        block = bytes(1 << 20)
        for _ in range(megabytes):
            out.write(block)
PY
}

zip_file junk.zip junk.bin $((2700 * SCALE))
run "ZIP with a 2.7 GB member no reader takes" "$HOST" --no-progress "$WORK/junk.zip"

zip_file bomb.zip bomb.asi $((3000 * SCALE))
run "ZIP with a 3 GB .asi member" "$HOST" --no-progress "$WORK/bomb.zip"
