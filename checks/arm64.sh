# Everything built for the pendants' own processor and run under emulation; the tour's pictures are compared with
# those made on this processor.

# Debian keeps another processor's packages beside ours.
if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    as_root dpkg --add-architecture arm64
fi
need crossbuild-essential-arm64 qemu-user-static imagemagick \
    qtbase5-dev:arm64 qtbase5-private-dev:arm64

# tour PRESET [EMULATOR]: writes the pictures of that build's tour to build/PRESET/tour.
tour() {
    local folder="$root/build/$1"
    rm -rf "$folder/tour"
    echo "The tour of build/$1:"
    QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 ${2:+"$2"} "$folder/bin/pendant" --tour "$folder/tour" \
        > "$folder/tour.log" 2>&1 || { cat "$folder/tour.log"; return 1; }
    tail -n 1 "$folder/tour.log"
}

# Pictures of two folders must be the same ones, of the same size, and differ in no more pixels than a blinking
# cursor has; a colour that is off by less than a rounding error of its blending counts as the same.
compare_pictures() {
    local ours=$1 theirs=$2 differences="$2-differences" picture name pixels failed=0
    rm -rf "$differences"
    mkdir "$differences"
    if ! diff <(ls "$ours") <(ls "$theirs"); then
        echo "not the same pictures in $ours and $theirs" >&2
        return 1
    fi
    for picture in "$ours"/*.png; do
        name=$(basename "$picture")
        pixels=$(compare -metric AE -fuzz 2% "$picture" "$theirs/$name" "$differences/$name" 2>&1) || true
        if [ "$(identify -format '%wx%h' "$picture")" != "$(identify -format '%wx%h' "$theirs/$name")" ] ||
            ! [[ $pixels =~ ^[0-9]+$ ]] || [ "$pixels" -gt 60 ]; then
            echo "$name is not the same: $pixels pixels, see $ours, $theirs and $differences" >&2
            failed=1
        fi
        pictures=$((pictures + 1))
    done
    return $failed
}

build arm64
suite arm64 "$@"
build debug pendant corvane_module
tour arm64 qemu-aarch64-static
tour debug
pictures=0
compare_pictures "$root/build/debug/tour" "$root/build/arm64/tour"
echo "arm64: ok, $suite_count, $pictures pictures of the tour as on this processor"
