# The whole suite, the tour among it, under the address, leak and undefined-behaviour sanitizers, each of which has to
# report a planted fault first.
# shellcheck source=checks/sanitizers.sh
. "$root/checks/sanitizers.sh"

build asan
reports="$root/build/asan/reports"
try_sanitizers "$reports" address leak undefined float-cast-overflow -- "${deep_stacks[@]}"
watch_sanitizers "$reports" "${deep_stacks[@]}"
failed=0
suite asan "$@" || failed=1
no_reports "$reports" || failed=1
[ $failed -eq 0 ] || exit 1
echo "asan: ok, no sanitizer report, $suite_count"
