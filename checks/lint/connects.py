#!/usr/bin/env python3
"""Finds what Qt connects or calls by name: a misspelt name fails at run time only, and only with a warning.

A line that has to use a name says why behind its code: // string-based: <reason>
"""

import re
import sys

from sources import line_of, project_files, read, without_comments

BY_NAME = (
    (re.compile(r"\b(?:SIGNAL|SLOT)\s*\("), "connects by name; give connect() pointers to members, or a lambda"),
    (re.compile(r'\binvokeMethod\s*\((?:[^,;()]|\([^()]*\))*,\s*""'), "calls by name; give invokeMethod() a lambda"),
    (re.compile(r"\b(?:connectSlotsByName\s*\(|on_\w+_\w+\s*\()"),
     "is connected by its name when the form is set up; name it otherwise and connect it"),
)
EXEMPT = re.compile(r"// string-based: \S")


def main():
    files = project_files(".cpp", ".h")
    failures = 0
    for name in files:
        text = read(name)
        lines = text.splitlines()
        code = without_comments(text, strings=False)
        for pattern, advice in BY_NAME:
            for match in pattern.finditer(code):
                line = line_of(code, match.start())
                if not EXEMPT.search(lines[line - 1]):
                    print(f"{name}:{line}: {match.group().strip()} {advice}", file=sys.stderr)
                    failures += 1
    if not failures:
        print(f"{len(files)} files free of connections by name")
    return 1 if failures else 0


sys.exit(main())
