# Pictures of every page, tab and editor in every language, density and font zoom, and the check of their layout: none may
# have a fault, and each must show every control that the plainest one (English, 96 dpi, zoom 1) shows.

if [ $# -gt 1 ]; then
    echo "./dev shots: at most one folder, not '$*'" >&2
    exit 2
fi
pictures=${1:-$root/build/shots}
mkdir -p "$pictures"
pictures=$(cd "$pictures" && pwd)
# Only what this run takes counts; the folder may hold other files of its user.
rm -f "$pictures"/*_??_*dpi_z*.png "$pictures"/controls_??_*dpi_z*.txt
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT

build debug pendant corvane_module

# shoot LANGUAGE DPI ZOOM: one process shows one of each. It ends with 1 when it found faults, which it prints.
shoot() {
    local log="$logs/$1-$2-$3" rc=0
    QT_QPA_PLATFORM=offscreen "$root/build/debug/bin/pendant" --shots "$pictures" \
        --language "$1" --dpi "$2" --zoom "$3" > "$log.out" 2> "$log.err" || rc=$?
    if [ $rc -gt 1 ] || ! tail -n 1 "$log.out" | grep -q 'layout faults$'; then
        echo "== pendant --shots --language $1 --dpi $2 --zoom $3 ended with $rc:"
        grep -v $'^\033' "$log.err" | tail -n 5 # without the package's own log lines
        echo "$1 $2 dpi zoom $3: ended with $rc" >> "$log.out"
    fi
}
export -f shoot
export root pictures logs

for language in en zh; do
    for dpi in 96 144 192; do
        for zoom in 0.75 1 1.5; do
            echo "$language $dpi $zoom"
        done
    done
done | xargs -P 2 -L 1 bash -c 'shoot "$@"' shoot

plainest="$pictures/controls_en_96dpi_z1.txt"
for list in "$pictures"/controls_*.txt; do
    look=$(basename "$list" .txt)
    LC_ALL=C comm -23 <(LC_ALL=C sort "$plainest") <(LC_ALL=C sort "$list") |
        sed "s/^/${look#controls_}: missing: /" >> "$logs/missing.out"
done
[ -s "$plainest" ] || echo "the list of controls is empty: $plainest" >> "$logs/missing.out"

taken=$(find "$pictures" -maxdepth 1 -name '*_??_*dpi_z*.png' | wc -l)
faults=$(grep -hv 'layout faults$' "$logs"/*.out || true)
if [ -n "$faults" ]; then
    echo "$faults"
    echo "shots: $(wc -l <<< "$faults") layout faults in $taken pictures, see $pictures" >&2
    exit 1
fi
echo "shots: ok, $taken pictures, 0 layout faults"
