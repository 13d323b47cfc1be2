# What every run under the sanitizers has in common.

# watch_sanitizers FOLDER [OPTION...]: sets the sanitizers' options, these last. Reports go to files in the folder,
# where also those of a child process are found whose exit code nobody looks at.
watch_sanitizers() {
    local reports=$1
    shift
    rm -rf "$reports"
    mkdir -p "$reports"
    local options=(detect_stack_use_after_return=1 check_initialization_order=1 strict_init_order=1
                   strict_string_checks=1 exitcode=99 "log_path=$reports/report" "$@")
    export ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS
    ASAN_OPTIONS=$(IFS=:; echo "${options[*]}")
    LSAN_OPTIONS="suppressions=$root/checks/lsan.supp:print_suppressions=0:exitcode=99"
    UBSAN_OPTIONS="print_stacktrace=1:log_path=$reports/report"
}

# For a run that looks for leaks: Qt keeps no frame pointers, and a leak of its own is known only by the frames far
# above it. Unwinding so far makes a program about ten times slower.
deep_stacks=(detect_leaks=1 fast_unwind_on_malloc=0 malloc_context_size=15)

# Prints the reports in the folder and fails if there are any.
no_reports() {
    local report found=0
    for report in "$1"/report.*; do
        [ -e "$report" ] || continue
        found=$((found + 1))
        echo "== $report" >&2
        cat "$report" >&2
    done
    [ "$found" -eq 0 ] || { echo "$found sanitizer report(s)" >&2; return 1; }
}

# try_sanitizers FOLDER FAULT... [-- OPTION...]: whether each of these faults is reported, in a program of its own and
# in a child whose exit code nobody looks at; options as for watch_sanitizers. A report that is lost would pass as
# none. Needs the target plantedfault.
try_sanitizers() {
    local folder=$1 fault process faults=() failed=0
    shift
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        faults+=("$1")
        shift
    done
    local -A words=([address]=heap-use-after-free [leak]='detected memory leaks'
                    [undefined]='signed integer overflow' [float-cast-overflow]='outside the range of representable')
    for fault in "${faults[@]}"; do
        for process in "" child; do
            watch_sanitizers "$folder" "${@:2}"
            "$root/build/asan/bin/plantedfault" "$fault" $process > "$folder/said" 2>&1 || true
            if ! grep -qs "${words[$fault]}" "$folder"/report.*; then
                echo "sanitizers: a planted fault, $fault${process:+ in a child process}, is not reported" >&2
                failed=1
            fi
        done
    done
    return $failed
}
