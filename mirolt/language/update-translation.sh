#!/bin/sh
# update-translation.sh [TO]: brings the Chinese translation up to date with the sources (needs qttools5-dev-tools).
# TO: where the result goes instead, for comparison.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
to=$(realpath "${1:-$root/mirolt/language/Mirolt_cn.ts}")
[ $# -eq 0 ] || cp "$root/mirolt/language/Mirolt_cn.ts" "$to"
cd "$root"
PATH="/usr/lib/qt5/bin:$PATH"
lupdate mirolt -I . -I pendix/include -locations none -no-obsolete -source-language en -target-language zh_CN -ts "$to"
