#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Veritrace need,
# but only those that are missing. Without root it prints the command to run instead.
set -euo pipefail

packages=(
  g++ clang clang-format libclang-rt-14-dev cmake make pkg-config
  qt6-base-dev qt6-svg-dev libqt6svg6 qt6-qpa-plugins
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core fonts-dejavu-extra fonts-liberation2
  python3-fonttools
  xvfb xauth
  desktop-file-utils appstream libxml2-utils shared-mime-info librsvg2-bin poppler-utils
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "install-deps: missing packages: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
else
  echo "install-deps: run this as root, then try again:"
  echo "  sudo apt-get update && sudo apt-get install -y ${missing[*]}"
  exit 1
fi
