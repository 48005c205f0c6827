#!/usr/bin/env bash
# Builds every libFuzzer target (clang, ASan+UBSan) and runs each one for
# SECONDS seconds, one after the other, starting from its seed inputs. Fails
# (exit status 1) as soon as a fuzzer reports a finding: a crash, a sanitizer
# report, a broken invariant, a leak, a timeout or running out of memory. The
# input that caused it is kept in ARTIFACTS.
#
# Usage: scripts/fuzz.sh [SECONDS] [FUZZER...]
#   SECONDS  run time of each fuzzer (default 60)
#   FUZZER   names of targets to run (default: every target under fuzz/)
# Environment: ORV_FUZZ_BUILD (default build-fuzz), ORV_FUZZ_ARTIFACTS
# (default ORV_FUZZ_BUILD/fuzz-artifacts), ORV_FUZZ_JOBS (build jobs, default 2).
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
SECONDS_EACH="${1:-60}"
shift || true
BUILD="${ORV_FUZZ_BUILD:-$ROOT/build-fuzz}"
ARTIFACTS="${ORV_FUZZ_ARTIFACTS:-$BUILD/fuzz-artifacts}"
JOBS="${ORV_FUZZ_JOBS:-2}"

if ! [[ "$SECONDS_EACH" =~ ^[0-9]+$ ]] || [ "$SECONDS_EACH" -lt 1 ]; then
  echo "fuzz.sh: SECONDS must be a positive whole number, not '$SECONDS_EACH'" >&2
  exit 64
fi

launcher=()
if command -v ccache >/dev/null; then
  launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
CC=clang CXX=clang++ cmake -S "$ROOT" -B "$BUILD" -G Ninja -DORV_FUZZ=ON -DORV_BUILD_TESTS=OFF \
  -DORV_BUILD_BENCH=OFF "${launcher[@]}" >/dev/null
cmake --build "$BUILD" -j"$JOBS"

# Every target is an executable directly under the build's fuzz folder.
if [ "$#" -gt 0 ]; then
  targets=("$@")
else
  mapfile -t targets < <(find "$BUILD/fuzz" -maxdepth 1 -type f -perm -u+x -printf '%f\n' | sort)
fi
if [ "${#targets[@]}" -eq 0 ]; then
  echo "fuzz.sh: no fuzz targets under $BUILD/fuzz" >&2
  exit 1
fi

# The seed folder of a target: fuzz/<target>_seeds, fuzz/<area>_seeds or
# fuzz/corpus/<area>, where <area> is the name up to its first "_".
seeds_of() {
  local name="$1" area="${1%%_*}"
  for dir in "$ROOT/fuzz/${name}_seeds" "$ROOT/fuzz/${area}_seeds" "$ROOT/fuzz/corpus/$area"; do
    if [ -d "$dir" ]; then
      echo "$dir"
      return
    fi
  done
}

mkdir -p "$ARTIFACTS"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
failed=()
for target in "${targets[@]}"; do
  exe="$BUILD/fuzz/$target"
  if [ ! -x "$exe" ]; then
    echo "fuzz.sh: no such fuzz target: $target" >&2
    failed+=("$target")
    continue
  fi
  # The run grows its own copy of the seeds; the repository stays as it is.
  corpus="$work/$target"
  mkdir -p "$corpus"
  seeds="$(seeds_of "$target")"
  if [ -n "$seeds" ]; then cp -r "$seeds/." "$corpus/"; fi
  log="$ARTIFACTS/$target.log"
  echo "== $target: ${SECONDS_EACH} s, seeds ${seeds:-none}"
  if (cd "$work" && "$exe" -max_total_time="$SECONDS_EACH" -timeout=25 -rss_limit_mb=2560 \
        -print_final_stats=1 -artifact_prefix="$ARTIFACTS/$target-" "$corpus") >"$log" 2>&1; then
    grep -E '^stat::number_of_executed_units|^stat::peak_rss_mb' "$log" | sed 's/^/   /' || true
  else
    echo "   FINDING (see $log):"
    grep -E 'ERROR:|SUMMARY:|Test unit written' "$log" | head -n 5 | sed 's/^/   /' || true
    failed+=("$target")
  fi
done

if [ "${#failed[@]}" -gt 0 ]; then
  echo "fuzz.sh: findings in: ${failed[*]}" >&2
  exit 1
fi
echo "fuzz.sh: no findings in ${#targets[@]} targets"
