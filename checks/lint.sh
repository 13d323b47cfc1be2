# shellcheck shell=bash
# What compilers and tests don't see: format, clang-tidy, connections by name, who may include whom, what
# the documents name, the scripts. Every part has its say, whatever the others find.
need git clang clang-format clang-tidy python3 shellcheck
cd "$root"
# The checkout may belong to another user than the one who runs the checks, root in a container for one.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0="$root"
export PYTHONDONTWRITEBYTECODE=1
git rev-parse --is-inside-work-tree >/dev/null

# Prints what git knows or would take in and what is still there, each name with a zero byte behind it.
project_files() {
    local file
    git ls-files -z --cached --others --exclude-standard -- "$@" | sort -zu | while IFS= read -r -d '' file; do
        [ ! -f "$file" ] || printf '%s\0' "$file"
    done
}

check_format() {
    local files
    mapfile -d '' files < <(project_files '*.cpp' '*.h')
    clang-format --dry-run -Werror "${files[@]}" >&2 && echo "${#files[@]} files formatted"
}

# Configures and writes what moc and uic generate. Not through the build: there a generated file waits until
# the libraries that its target links are compiled.
generate() {
    find build/lint -name AutogenInfo.json -delete &&
        cmake --preset lint &&
        find build/lint -name AutogenInfo.json -print0 |
        xargs -0 -P "$(nproc)" -I{} cmake -E cmake_autogen {} Debug
}

check_tidy() {
    mkdir -p build/lint
    if generate >build/lint/generate.log 2>&1; then
        python3 checks/lint/tidy.py build/lint
    else
        cat build/lint/generate.log >&2
        return 1
    fi
}

check_connects() {
    python3 checks/lint/connects.py
}

check_arrows() {
    python3 checks/lint/arrows.py
}

check_docs() {
    python3 checks/lint/docs.py
}

check_scripts() {
    local script scripts python standalone=() sourced=() status=0
    mapfile -d '' scripts < <(project_files dev .ci/run '*.sh')
    mapfile -d '' python < <(project_files '*.py')
    for script in "${scripts[@]}"; do
        if [ "$(head -c 2 "$script")" = '#!' ]; then standalone+=("$script"); else sourced+=("$script"); fi
    done
    shellcheck --severity=warning "${standalone[@]}" >&2 || status=1
    # The others are sourced: variables come from elsewhere (SC2154) or are for elsewhere (SC2034), and dev's
    # set -e stands behind every cd (SC2164).
    shellcheck --severity=warning --shell=bash --exclude=SC2034,SC2154,SC2164 "${sourced[@]}" >&2 || status=1
    python3 -c 'import sys; [compile(open(file, "rb").read(), file, "exec") for file in sys.argv[1:]]' \
        "${python[@]}" || status=1
    [ $status -eq 0 ] && echo "$((${#scripts[@]} + ${#python[@]})) scripts"
}

figures=() failed=()
for part in format connects arrows docs scripts tidy; do
    if figure=$("check_$part"); then figures+=("$figure"); else failed+=("$part"); fi
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "lint: FAILED: ${failed[*]}"
    exit 1
fi
printf -v summary '%s, ' "${figures[@]}"
echo "lint: ok, ${summary%, }"
