"""The project's files, and what of a C++ text is code."""

import re
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

_NO_CODE = re.compile(
    r"""(?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
      | (?P<string>\b(?:u8|[uUL])?R"(?P<fence>[^()\\\s]*)\(.*?\)(?P=fence)" | "(?:\\.|[^"\\\n])*")
      | \b\d(?:'?[\w.])*          # a number: the quotes between its digits open nothing
      | '(?:\\.|[^'\\\n])*'""",
    re.DOTALL | re.VERBOSE)


def project_files(*suffixes):
    """Paths from the project root of what git knows or would take in, with these endings (none given: all)."""
    listing = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                             cwd=ROOT, check=True, capture_output=True, text=True).stdout
    names = sorted(set(filter(None, listing.split("\0"))))
    return [name for name in names if (not suffixes or name.endswith(suffixes)) and (ROOT / name).is_file()]


def read(name):
    return (ROOT / name).read_text(encoding="utf-8")


def without_comments(text, strings=True):
    """The same lines with blanks for comments and, unless strings are wanted, "" for string literals."""
    def replacement(match):
        lines = "\n" * match.group().count("\n")
        if match["comment"]:
            return " " + lines
        return '""' + lines if match["string"] and not strings else match.group()

    return _NO_CODE.sub(replacement, text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1
