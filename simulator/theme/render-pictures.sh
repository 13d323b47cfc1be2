#!/bin/sh
# Makes the theme's PNG pictures from their SVG sources (needs librsvg2-bin): Qt draws PNG without any plug-in.
# Twice the size they are shown at, so that dense screens stay crisp.
set -eu
cd "$(dirname "$0")"
find svg -name '*.svg' | sort | while read -r source; do
    name=${source#svg/}
    target="png/${name%.svg}.png"
    mkdir -p "$(dirname "$target")"
    rsvg-convert --zoom 2 "$source" --output "$target"
done
