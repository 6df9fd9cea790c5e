#!/usr/bin/env bash
# Installs the Debian 12 packages Lumivar needs to build, test and run.
# Runs apt-get only when something is missing; uses sudo when not root.
# "install-deps.sh fuzz" adds clang and its sanitizer runtimes for make fuzz.
set -euo pipefail

packages=(
    build-essential g++ cmake make pkg-config ccache
    libfox-1.6-dev libx11-dev
    libgl-dev libglu1-mesa-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libcairo2-dev
    xvfb xauth fonts-dejavu-core
)
if [ "${1:-}" = "fuzz" ]; then
    packages+=(clang libclang-rt-14-dev)
fi

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
    SUDO="sudo"
fi
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
