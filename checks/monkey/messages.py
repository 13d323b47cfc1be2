#!/usr/bin/env python3
"""Prints what the plug-ins may tell the operator, as the sources have it: a line "offered message TEXT" each.

A text counts when it is translated in a statement that tells or reports something. That is a guess at the code's
habits, so the run of the random operator holds it against what was told: a text that is missing here fails there.
"""

import json
import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "lint"))
from sources import project_files, read, without_comments  # noqa: E402

FOLDERS = ("common/", "page/", "plugin/", "rl/", "widgets/", "mirolt/")
TELLS = re.compile(r"\b(?:tell\w*|report\w*|ThrowLog|\w*Texts)\b")
LITERAL = r'"(?:\\.|[^"\\\n])*"'
TRANSLATED = re.compile(rf"\b(?:tr\(|(?:translate|QT_TRANSLATE_NOOP)\(\s*(?:{LITERAL}|\w+)\s*,)\s*((?:{LITERAL}\s*)+)")


def statements(code):
    """The code, cut at its semicolons; those in texts hold nothing together."""
    start = 0
    for match in re.finditer(rf"{LITERAL}|;", code):
        if match.group() == ";":
            yield code[start:match.end()]
            start = match.end()


texts = set()
for name in project_files(".cpp"):
    if name.startswith(FOLDERS):
        for statement in statements(without_comments(read(name))):
            if TELLS.search(statement):
                for match in TRANSLATED.finditer(statement):
                    texts.add("".join(json.loads(part) for part in re.findall(LITERAL, match[1])))
print(*(f"offered message {text}" for text in sorted(texts)), sep="\n")
