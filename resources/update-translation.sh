#!/bin/sh
# Brings a translation file, the package's Chinese one unless another is named, up to date with the sources: adds what
# is new, as unfinished, and drops what is gone (needs qttools5-dev-tools).
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
target=$(realpath "${1:-$root/resources/language/Corvane_cn.ts}")
cd "$root"
# The include paths show lupdate the classes' namespaces, which are part of their contexts. No line numbers: an edit
# of the sources changes only what it means to.
PATH="/usr/lib/qt5/bin:$PATH" lupdate common widgets page rl plugin -I . -I pendix/include \
    -locations none -no-obsolete -source-language en -target-language zh_CN -ts "$target"
