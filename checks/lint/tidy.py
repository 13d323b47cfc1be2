#!/usr/bin/env python3
"""Runs clang-tidy over every .cpp of the project: tidy.py BUILD

BUILD is a configured build folder; each file is analysed as it is compiled there. A file that has passed is
analysed again only when something of it, of its headers or of the checks changes.
"""

import functools
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from sources import ROOT, project_files, read

STARTED = time.time()
# Every header that git knows, wherever it lies; generated ones lie in a build folder and stay out.
FOLDERS = sorted({os.path.dirname(name) for name in project_files(".h")})
TIDY = ["clang-tidy", "--quiet", f"--header-filter=^{re.escape(str(ROOT))}/({'|'.join(FOLDERS)})/[^/]+$"]


def compile_commands(build):
    """Folder and options of the first command for every file, by its path from the project root.
    The same source may be compiled for many targets; what it is called with there hardly differs."""
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        _, *options = shlex.split(entry["command"])
        output = options.index("-o")
        options = [option for option in options[:output] + options[output + 2:]
                   if option not in ("-c", entry["file"])]
        commands.setdefault(os.path.relpath(entry["file"], ROOT), (entry["directory"], options))
    return commands


@functools.lru_cache(maxsize=None)
def digest(path):
    return hashlib.sha256(Path(path).read_bytes()).hexdigest() if os.path.isfile(path) else None


def has_passed(record, setup):
    """Whether a record of the same setup exists and no file that it names, system headers too, has changed."""
    try:
        passed = json.loads(record.read_text(encoding="utf-8"))
    except (OSError, ValueError):
        return False
    return passed["setup"] == setup and all(digest(path) == known for path, known in passed["files"].items())


def analyse(name, command, checks, records):
    """What clang-tidy finds in one file; an empty text if nothing, None if nothing has changed since."""
    folder, options = command
    record = records / (name.replace("/", "+") + ".json")
    setup = [checks, TIDY, folder, options]
    if has_passed(record, setup):
        return None
    source = str(ROOT / name)
    # -H lists the headers, one a line behind dots for their depth.
    run = subprocess.run([*TIDY, source, "--", *options, "-H"], cwd=folder, capture_output=True, text=True)
    if run.returncode:
        return (run.stdout or run.stderr).replace(f"{ROOT}/", "")
    headers = re.findall(r"(?m)^\.+ (.+)$", run.stderr)
    files = {path: digest(path) for path in [source, *(os.path.join(folder, header) for header in headers)]}
    # What was edited meanwhile may have been read before or after.
    if all(os.path.getmtime(path) < STARTED for path in files):
        record.write_text(json.dumps({"setup": setup, "files": files}), encoding="utf-8")
    return ""


def main():
    build = Path(sys.argv[1])
    records = build / "passed"
    records.mkdir(exist_ok=True)
    commands = compile_commands(build)
    checks = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True, text=True).stdout
    checks += read(".clang-tidy")
    files = project_files(".cpp")
    built = [name for name in files if name in commands]
    for name in sorted(set(files) - set(built)):
        print(f"{name}: is built by no target: nothing checks it", file=sys.stderr)
    with ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        results = list(pool.map(lambda name: analyse(name, commands[name], checks, records), built))
    # A finding in a header comes once from every file that includes it.
    findings = dict.fromkeys(finding for result in filter(None, results)
                             for finding in re.split(r"(?m)^(?=\S+:\d+:\d+: (?:error|warning): )", result))
    print(*findings, sep="", end="", file=sys.stderr)
    if findings or len(built) < len(files):
        return 1
    print(f"{len(files)} files analysed ({results.count(None)} unchanged since they passed)")
    return 0


sys.exit(main())
