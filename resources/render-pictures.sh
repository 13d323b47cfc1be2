#!/bin/sh
# Makes the PNG pictures of the resource bundle from their SVG sources (needs librsvg2-bin).
# Each source gives the size of its PNG: keys and status pictures twice as large as they are shown; navigation icons
# 144 pixels, a whole multiple of 16, 24, 36 and 48; the arrow as it is, because a style sheet does not scale it.
# svg/hand.css draws them all in one hand. A pendant key is one source of two pictures, released and pressed.
set -eu
cd "$(dirname "$0")"

# render SOURCE TARGET [CLASS]: the class, if any, is the state in which the style sheet draws the source.
render() {
    mkdir -p "$(dirname "png/$2")"
    sed "s/class=\"key\"/class=\"key ${3:-}\"/" "svg/$1" | rsvg-convert --stylesheet svg/hand.css --output "png/$2"
}

(cd svg && find . -name '*.svg' | sort) | while read -r source; do
    name=${source#./}
    name=${name%.svg}
    case $name in
    phybutton/*)
        render "$source" "${name}Unpressed.png"
        render "$source" "${name}Pressed.png" pressed
        ;;
    *) render "$source" "$name.png" ;;
    esac
done
