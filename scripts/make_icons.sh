#!/usr/bin/env bash
# Draws the hicolor PNG sizes of the icon from its SVG, for committing after
# the SVG changes. Needs rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/.."
icons=packaging/icons
id=com.tavrix.OrvantisHD
for size in 16 22 24 32 48 64 128 256; do
    mkdir -p "$icons/$size"
    rsvg-convert -w "$size" -h "$size" "$icons/$id.svg" -o "$icons/$size/$id.png"
done
