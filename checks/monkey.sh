# A random operator works the pendant under the sanitizers, in rounds that run side by side.
# shellcheck source=checks/sanitizers.sh
. "$root/checks/sanitizers.sh"

actions=${1:-80000}
seed=${2:-$(date +%s)}
if [ $# -gt 2 ] || ! [[ "$actions $seed" =~ ^[1-9][0-9]{0,9}\ [1-9][0-9]{0,9}$ ]]; then
    echo "./dev monkey: at most two whole numbers from 1, ACTIONS and SEED, not '$*'" >&2
    exit 2
fi
per_round=2500   # one pendant's day; the round's seed counts up, so each can be had again on its own
everything=80000 # so many actions leave nothing untouched

need python3
build asan monkey plantedfault corvane_module mirolt_module
folder="$root/build/asan/monkey"
rm -rf "$folder"
mkdir -p "$folder"
# Leaks are looked for where the suite does a short round, with the deep stacks that this takes.
try_sanitizers "$folder/reports" address undefined float-cast-overflow -- detect_leaks=0
watch_sanitizers "$folder/reports" detect_leaks=0

# round FIRST ACTIONS SEED: one round; what it did last is shown when it fails.
round() {
    local log="$folder/$2"
    if ! "$root/build/asan/bin/monkey" --actions "$1" --seed "$2" --log "$log.log" > "$log.out" 2> "$log.err"; then
        echo "== ./dev monkey $1 $2 fails after:"
        tail -n 25 "$log.log"
        grep -v $'^\033' "$log.err" | tail -n 5 # without the package's own log lines
        tail -n 1 "$log.out"
        return 1
    fi
    tail -n 1 "$log.out"
}
export -f round
export folder root

rounds=$(((actions + per_round - 1) / per_round))
for ((i = 0; i < rounds; i++)); do
    left=$((actions - i * per_round))
    echo "$((left < per_round ? left : per_round)) $((seed + i))"
done | xargs -P "$(nproc)" -L 1 bash -c 'round "$@"' round || failed=1
no_reports "$folder/reports" || failed=1
[ -z "${failed:-}" ] || exit 1

# Over all rounds, everything that was offered must have been used, every message shown, and each at one level only.
cat "$folder"/*.out > "$folder/all"
told=$(sed -n 's/^used message //p' "$folder/all" | sort -u) # LEVEL TEXT
twofold=$(cut -d ' ' -f 2- <<< "$told" | sort | uniq -d)
if [ -n "$twofold" ]; then
    echo "told at more than one level:" >&2
    echo "$twofold" >&2
    exit 1
fi
python3 "$root/checks/monkey/messages.py" > "$folder/messages"
sed -i 's/^used message [0-9]* /used message /' "$folder/all"
unknown=$(comm -13 <(sed 's/^offered //' "$folder/messages" | sort -u) <(sed -n 's/^used \(message \)/\1/p' "$folder/all" | sort -u))
if [ -n "$unknown" ]; then
    echo "told, and checks/monkey/messages.py does not find where:" >&2
    echo "$unknown" >&2
    exit 1
fi
cat "$folder/messages" >> "$folder/all"
unused=$(comm -23 <(sed -n 's/^offered //p' "$folder/all" | sort -u) <(sed -n 's/^used //p' "$folder/all" | sort -u))
if [ "$actions" -ge $everything ] && [ -n "$unused" ]; then
    echo "never used or told in $actions actions:" >&2
    echo "$unused" >&2
    exit 1
fi
used=$(sed -n 's/^used //p' "$folder/all" | sort -u | wc -l)
commands=$(sed -n 's/^seed .* \([0-9]*\) commands.*/\1/p' "$folder/all" | awk '{ sum += $1 } END { print sum + 0 }')
echo "monkey: ok, $actions actions from seed $seed, $used things used, $commands commands"
