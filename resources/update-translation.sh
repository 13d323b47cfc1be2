#!/bin/sh
# update-translation.sh [FROM [TO]]: brings the Chinese translation up to date with the sources: adds what is new, as
# unfinished, and drops what is gone (needs qttools5-dev-tools). FROM: another .ts file; TO: where the result goes instead.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
from=$(realpath "${1:-$root/resources/language/Corvane_cn.ts}")
to=$(realpath "${2:-$from}")
[ "$from" = "$to" ] || cp "$from" "$to"
cd "$root"
# The include paths show lupdate the namespaces of classes, which are part of their contexts. Without locations the
# file changes only where a text does.
PATH="/usr/lib/qt5/bin:$PATH"
lupdate common widgets page rl plugin -I . -I pendix/include -locations none -no-obsolete \
    -source-language en -target-language zh_CN -ts "$to"
