#!/usr/bin/env python3
"""Prints what the plug-ins may tell the operator, as the sources have it: a line "offered message TEXT" each.

Those are the texts that are translated on the spot, tr("..."), in a file that tells the operator something: a file's
captions stand in its form or its table, and what is put into a text begins with a small letter. That is our habit and
no law, so the run of the random operator holds it against what was told: a text that is missing here fails there, and
one too many is never told.
"""

import json
import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "lint"))
from sources import project_files, read, without_comments  # noqa: E402

FOLDERS = ("common/", "page/", "plugin/", "rl/", "widgets/", "mirolt/")
TELLS = re.compile(r"\b(?:tellOperator|report\w+|ThrowLog)\(")
LITERAL = r'"(?:\\.|[^"\\\n])*"'
TRANSLATED = re.compile(rf"\b(?:tr\(|translate\([^,()]+,)\s*((?:{LITERAL}\s*)+)")

texts = set()
for name in project_files(".cpp"):
    code = without_comments(read(name)) if name.startswith(FOLDERS) else ""
    if TELLS.search(code):
        for match in TRANSLATED.finditer(code):
            text = "".join(json.loads(part) for part in re.findall(LITERAL, match[1]))
            if not text[0].islower():
                texts.add(text)
print(*(f"offered message {text}" for text in sorted(texts)), sep="\n")
