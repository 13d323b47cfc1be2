#!/bin/sh
# update.sh SHOTS TOUR: takes the documents' pictures from a folder of ./dev shots and from one of pendant --tour.
set -eu
shots=$1
tour=$2
cd "$(dirname "$0")"
while read -r picture source; do
    cp "$source" "$picture.png"
done <<TABLE
window $tour/01-weld-setup.png
program $tour/23-lsmovec.png
wiring-held $tour/37-wiring-held.png
weld-setup $shots/weld-setting-page_en_96dpi_z1.png
weld-io $shots/weldio-page-tab-output_en_96dpi_z1.png
char-curve $shots/characteristics-curve-page-tab-power_en_96dpi_z1.png
weld-setup-zh $shots/weld-setting-page_zh_144dpi_z1.png
lsmovecf-zh $shots/ls-move-cf-change_zh_144dpi_z1.png
laser-tracking $shots/laser-tracking-page_en_96dpi_z1.png
monitor $shots/monitor_en_96dpi_z1.png
TABLE
