#!/usr/bin/env bash
# Installs every Debian package the project needs, then configures and builds it.
# Non-interactive and idempotent; run as root on Debian 12 (or with sudo available).
# Usage: scripts/setup.sh [BUILD_DIR] [extra cmake arguments...]
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="${1:-$ROOT/build}"
shift || true

PACKAGES=(
  build-essential cmake ninja-build pkg-config git python3
  libgtest-dev libgmock-dev libbenchmark-dev
  qtbase5-dev libopenthreads-dev libfox-1.6-dev libexpat1-dev libpcre2-dev
  libminizip-dev zlib1g-dev nlohmann-json3-dev libcli11-dev
  libgeographiclib-dev
  clang libclang-rt-14-dev
  zip unzip time
  python3-sgp4
  libcairo2-dev fonts-dejavu-core gdal-bin help2man
  gpsbabel
)

SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi

export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${PACKAGES[@]}" >/dev/null

cmake -S "$ROOT" -B "$BUILD_DIR" -G Ninja "$@"
cmake --build "$BUILD_DIR" -j"$(nproc)"
