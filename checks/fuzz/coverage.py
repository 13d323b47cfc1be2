#!/usr/bin/env python3
"""coverage.py SOURCE_DIR BUILD_DIR: whether the committed inputs make every reader of foreign data run.

Replays checks/fuzz/corpus through the fuzzers of the build and names every function of the covered files that none
of them reached. So a reader that nobody fuzzes fails, and so does a file of readers that no fuzzer links. Prints the
number of functions that were reached.
"""
import collections
import json
import os
import pathlib
import re
import subprocess
import sys

# The code that reads what comes from a controller, a file or a program line. A glob that matches no file is a
# mistake.
COVERED = ["common/*.cpp", "page/curves/curvenodes.cpp", "page/curves/curvetable.cpp", "page/io/assignment.cpp",
           "widgets/chartgeometry.cpp", "widgets/customchart.cpp", "simulator/*file.cpp", "simulator/confignodes.cpp",
           "simulator/filefault.cpp", "simulator/jsonpath.cpp", "simulator/namecheck.cpp", "simulator/pointlist.cpp",
           "simulator/schemavalidator.cpp", "simulator/weldcommands.cpp", "simulator/answerplan.cpp",
           "simulator/program/instructionline.cpp", "simulator/program/instructiontemplate.cpp",
           "simulator/program/programfile.cpp", "simulator/program/recogniser.cpp",
           "simulator/program/templateeditor.cpp",
           # All but the catalogue, which only hands out texts.
           "rl/[!ir]*.cpp", "rl/instructiontext.cpp", "rl/rl*widget.cpp"]

# Functions of these files that need not be reached, with the reason.
EXCEPTIONS = {
    "controller::isRobotPowered()": "takes nothing in and hands on a flag of the host: there is nothing to vary",
    "CellBox<QSpinBox>::wheelEvent(QWheelEvent*)": "takes nothing in",
    "SetUpPointWidget::captionWidth() const": "lines captions up, reads nothing",
    "SetUpPointWidget::setCaptionRoom(int)": "the same",
    "MotionEditor::alignPoints()": "the same",
    "SetUpPointWidget::SetUpPointWidget(QWidget*)": "the other constructor, which the editors use, with a number",
    "SetUpPointWidget::savePoint(QString const&, QString const&)": "storePoint, which the editors use, with the name",
    "controller::endSubscription(QString const&)": "takes nothing in",
}


def run(*command, **options):
    """Output of a command; one that fails ends the program with what it said."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, errors="replace",
                          check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed with {done.returncode}:\n{done.stderr[-3000:]}")
    return done.stdout


def covered_files(source):
    files = []
    for glob in COVERED:
        found = sorted(source.glob(glob))
        if not found:
            sys.exit(f"no file matches {glob}")
        files += found
    return files


def replay(fuzzer, corpus, work):
    """Runs the inputs as they are, without any limit on their length; returns the profiles."""
    name = fuzzer.name
    for old in work.glob(f"{name}-replay-*.profraw"):
        old.unlink()
    inputs = sorted(str(file) for file in corpus.iterdir())
    environment = dict(os.environ, LLVM_PROFILE_FILE=str(work / f"{name}-replay-%m.profraw"))
    run(str(fuzzer), *inputs, cwd=work, env=environment)
    return sorted(work.glob(f"{name}-replay-*.profraw"))


def demangled(names):
    """Names as in the sources; the compiler puts a file's name before those that are local to it."""
    mangled = [re.sub(r"^[^:]*:(?=_Z)", "", name) for name in names]
    return run("llvm-cxxfilt", input="\n".join(mangled)).splitlines()


def count_functions(source, files, fuzzers, profile):
    """Executions by (file, line) and the name there; instances of one template are one function."""
    objects = [argument for fuzzer in fuzzers[1:] for argument in ("-object", str(fuzzer))]
    export = run("llvm-cov", "export", f"-instr-profile={profile}", str(fuzzers[0]), *objects, *map(str, files))
    functions = json.loads(export)["data"][0]["functions"]
    names = demangled([function["name"] for function in functions])
    executions = collections.Counter()
    name_at = {}
    for function, name in zip(functions, names):
        file = pathlib.Path(function["filenames"][0])
        if file in files:
            place = (str(file.relative_to(source)), *function["regions"][0][:2])
            executions[place] += function["count"]
            name_at[place] = name.replace("(anonymous namespace)::", "")
    return executions, name_at


def faults(source, files, executions, name_at):
    seen = {place[0] for place in executions}
    for file in files:
        name = str(file.relative_to(source))
        if name not in seen:
            yield f"{name}: no fuzzer links it"
    unreached = {place: name_at[place] for place, count in sorted(executions.items()) if count == 0}
    for (file, line, _), name in unreached.items():
        if name not in EXCEPTIONS:
            yield f"{file}:{line}: no committed input reaches {name}"
    for name in EXCEPTIONS:
        if name not in unreached.values():
            yield f"checks/fuzz/coverage.py: the exception {name} is reached, or is no more"


def main():
    source, build = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    files = covered_files(source)
    work = build / "work"
    work.mkdir(exist_ok=True)
    names = (build / "fuzzers").read_text().split()
    fuzzers = [build / "bin" / f"fuzz_{name}" for name in names]
    profiles = [profile for name, fuzzer in zip(names, fuzzers)
                for profile in replay(fuzzer, source / "checks/fuzz/corpus" / name, work)]
    merged = work / "replay.profdata"
    run("llvm-profdata", "merge", "-o", str(merged), *map(str, profiles))
    executions, name_at = count_functions(source, files, fuzzers, merged)
    found = list(faults(source, files, executions, name_at))
    for fault in found:
        print(fault, file=sys.stderr)
    print(sum(1 for count in executions.values() if count > 0))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
