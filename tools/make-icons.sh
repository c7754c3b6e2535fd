#!/usr/bin/env bash
# Makes the PNG sizes of the program's icon and of its file type's icon from their SVGs, for the
# desktops that want pixels. Run it again after changing an SVG, and commit the PNGs.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v rsvg-convert >/dev/null || { echo "make-icons: needs rsvg-convert (librsvg2-bin)"; exit 1; }
for name in veritrace application-x-veritrace; do
  for size in 16 22 24 32 48 64 128 256; do
    mkdir -p "assets/icons/png/${size}"
    rsvg-convert -w "$size" -h "$size" "assets/icons/${name}.svg" -o "assets/icons/png/${size}/${name}.png"
  done
done
