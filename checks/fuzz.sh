# shellcheck shell=bash disable=SC2154
# ./dev fuzz [SECONDS]: every fuzzer of the build for that long, then whether the committed inputs reach every
# function of the code that reads what comes from outside.

seconds=${1:-15}
if [ $# -gt 1 ] || ! [[ $seconds =~ ^[1-9][0-9]{0,4}$ ]] || [ "$seconds" -gt 86400 ]; then
    echo "./dev fuzz: SECONDS is a whole number from 1 to 86400, not '$*'" >&2
    exit 2
fi

need clang llvm libclang-rt-dev python3
build fuzz fuzzers

out="$root/build/fuzz"
committed="$root/checks/fuzz/corpus"
export LC_ALL=C.UTF-8
export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1
if [ -f "$root/checks/lsan.supp" ]; then
    export LSAN_OPTIONS="suppressions=$root/checks/lsan.supp:print_suppressions=0"
fi

# The package writes its log below the working folder; here it goes nowhere.
mkdir -p "$out/work/log/pendix/Corvane" "$out/crashes"
ln -sf /dev/null "$out/work/log/pendix/Corvane/Corvane.log"

failed() {
    echo "fuzz: FAILED, $*"
    exit 1
}

# Becomes one fuzzer; to be called in the background.
run_fuzzer() {
    mkdir -p "$out/corpus/$1"
    cd "$out/work" || exit
    export LLVM_PROFILE_FILE="$out/work/$1.profraw"
    # The new inputs go into the first folder; the committed ones are only read. Without len_control=0 a short run
    # would never get beyond a few bytes.
    exec "$out/bin/fuzz_$1" \
        -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=8192 -len_control=0 \
        -print_final_stats=1 -artifact_prefix="$out/crashes/$1-" ${FUZZ_SEED:+"-seed=$FUZZ_SEED"} \
        "$out/corpus/$1" "$committed/$1" >"$out/work/$1.out" 2>&1
}

# What a failed run said: the reason, the sanitizer's words, where the input is and what to do with it.
tell() {
    local said="$out/work/$1.out" input
    grep -aE '^FAILED:|^==[0-9]+== ?ERROR|^SUMMARY|runtime error:' "$said" || tail -n 20 "$said"
    echo "fuzz_$1: all it said is in $said"
    input=$(sed -n 's/.*Test unit written to //p' "$said" | tail -n 1)
    if [ -n "$input" ]; then
        echo "fuzz_$1: the input is $input"
        echo "    to run it again: $out/bin/fuzz_$1 $input"
        echo "    its place, so that it is tried for ever: checks/fuzz/corpus/$1/, under a name that tells the fault"
    fi
}

mapfile -t fuzzers <"$out/fuzzers"
for what in "${fuzzers[@]}"; do
    if [ -z "$(ls -A "$committed/$what" 2>/dev/null)" ]; then
        failed "no input in checks/fuzz/corpus/$what"
    fi
done

# Two at a time. Jobs in the background don't hear Ctrl-C, so they are ended with this shell.
trap 'jobs -p | xargs -r kill 2>/dev/null' EXIT
declare -A job
bad=()
for ((i = 0; i < ${#fuzzers[@]}; i += 2)); do
    for what in "${fuzzers[@]:i:2}"; do
        echo "fuzz_$what for $seconds s"
        run_fuzzer "$what" &
        job[$what]=$!
    done
    for what in "${fuzzers[@]:i:2}"; do
        wait "${job[$what]}" || bad+=("$what")
    done
done
for what in "${bad[@]}"; do
    tell "$what"
done
[ ${#bad[@]} -eq 0 ] || failed "${bad[*]}"

runs=0
for what in "${fuzzers[@]}"; do
    ((runs += $(sed -n 's/^stat::number_of_executed_units: *//p' "$out/work/$what.out")))
done
functions=$(python3 "$root/checks/fuzz/coverage.py" "$root" "$out") || failed "see above"
echo "fuzz: ok, ${#fuzzers[@]} targets, $runs inputs tried in $seconds s each, $functions functions of the readers reached"
