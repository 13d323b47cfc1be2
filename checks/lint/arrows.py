#!/usr/bin/env python3
"""Who may include and link whom. Read in every #include and in the link commands of every CMakeLists.txt."""

import posixpath
import re
import sys

from sources import line_of, project_files, read, without_comments

SDK = "pendix/include"
HOST_INTERFACE = "pendix/host"
# Not a folder: the target with the whole package and the host interface, for tests.
GATHERED = "target corvane"
PACKAGE = ["common", "widgets", "page", "rl", "plugin", "resources"]

# A folder, with all below it, may use itself, Qt, the system and:
ARROWS = {
    SDK: [],
    HOST_INTERFACE: [SDK],
    "pendix/src": [SDK, HOST_INTERFACE],
    "common":     [SDK],
    "widgets":    [SDK, "common"],
    "page":       [SDK, "common", "widgets"],
    "rl":         [SDK, "common", "widgets"],
    "plugin":     [SDK, "common", "widgets", "page", "rl", "resources"],
    "resources":  [],
    # Another plug-in, which shows how one is written: it needs no more than any integrator has.
    "mirolt":     [SDK],
    # Loads the package as a pendant does, from its file: it must not know it.
    "simulator":  [SDK, HOST_INTERFACE],
    "tests":      [SDK, HOST_INTERFACE, *PACKAGE, GATHERED, "simulator"],
    "docs":       [SDK, HOST_INTERFACE, *PACKAGE, GATHERED, "tests"],
    "checks":     [SDK, HOST_INTERFACE, *PACKAGE, GATHERED, "simulator", "tests"],
    "bench":      [SDK, HOST_INTERFACE, "common", "widgets", "page", "rl", "resources", GATHERED, "tests"],
    GATHERED:     [SDK, HOST_INTERFACE, *PACKAGE],
}

# Targets that stand for something else than the folder that defines them.
TARGETS = {"pendix_sdk": SDK, "pendix": HOST_INTERFACE, "corvane": GATHERED}

# Where the compiler looks for the project's headers; "" is the project root.
INCLUDE_FOLDERS = ["", SDK, HOST_INTERFACE]

# Who also sees the forms of another folder (AUTOUIC_SEARCH_PATHS in its CMakeLists.txt).
FORMS = {"bench": "page"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|include_next|import)\b[ \t]*(?:"([^"\n]*)"|<([^>\n]*)>|(.*))',
                     re.MULTILINE)
CMAKE_WORD = re.compile(r'#[^\n]*|"(?:\\.|[^"\\])*"|[()]|[^\s()"#]+')

failures = []


def fail(name, line, text):
    failures.append(f"{name}:{line}: {text}")


def row_of(name):
    """The row of ARROWS that a file or a folder belongs to, or None."""
    while name and name not in ARROWS:
        name = posixpath.dirname(name)
    return name or None


def check_arrow(user, used, name, line, what):
    if used != user and used not in ARROWS[user]:
        allowed = ", ".join(ARROWS[user]) or "nothing else of the project"
        fail(name, line, f"{what} belongs to {used}, but {user} may only use {allowed}")


def resolve(name, header, quoted, files):
    """The project's file that an #include in the file `name` reaches, or None."""
    own = posixpath.dirname(name)
    for folder in [own, *INCLUDE_FOLDERS] if quoted else INCLUDE_FOLDERS:
        reached = posixpath.normpath(posixpath.join(folder, header))
        if reached in files:
            return reached
    return None


def is_generated(name, header, files):
    own, file = posixpath.split(name)
    form = re.fullmatch(r"ui_(\w+)\.h", header)
    if form:
        return any(posixpath.join(folder, form[1] + ".ui") in files for folder in (own, FORMS.get(own, own)))
    return header == posixpath.splitext(file)[0] + ".moc"


def spelling(reached):
    for folder in (SDK, HOST_INTERFACE):
        if reached.startswith(folder + "/"):
            reached = reached[len(folder) + 1:]
    return f'"{reached}"'


def check_include(name, line, match, files):
    """Judges one #include; the answer is the project's file that it reaches, if any."""
    quoted = match[1] is not None
    header = match[1] or match[2]
    if not header:
        fail(name, line, f"#include {match[3]} names no file that can be checked")
        return None
    if quoted and is_generated(name, header, files):
        return None
    reached = resolve(name, header, quoted, files)
    written = f'"{header}"' if quoted else f"<{header}>"
    if reached is None:
        if quoted or header.startswith(("/", ".", "ui_")):
            fail(name, line, f"#include {written} is no file of the project, and nothing generates it for this file")
        return None
    if written != spelling(reached):
        fail(name, line, f"#include {written} must be written {spelling(reached)}")
    user, used = row_of(name), row_of(reached)
    if user and used:
        check_arrow(user, used, name, line, f"#include {written}")
    return reached


def check_includes(files):
    """Returns how many includes there are."""
    sources = [name for name in files if name.endswith((".cpp", ".h"))]
    for folder in sorted({posixpath.dirname(name) for name in sources if not row_of(name)}):
        failures.append(f"{folder or 'the root folder'}: no arrows are known for this folder, "
                        "give it a row in checks/lint/arrows.py and in README.md")
    included, count = set(), 0
    for name in sources:
        text = without_comments(read(name))
        for match in INCLUDE.finditer(text):
            included.add(check_include(name, line_of(text, match.start()), match, files))
            count += 1
    for name in sources:
        if name.endswith(".h") and name not in included:
            fail(name, 1, "nothing includes this header, so no compiler and no analysis ever sees it")
    return count


def commands(text):
    """Line, name and arguments of every command of a CMake file."""
    name, arguments, line, depth = "", [], 0, 0
    for match in CMAKE_WORD.finditer(text):
        word = match.group()
        if word.startswith("#"):
            continue
        if word == "(":
            depth += 1
            if depth == 1:
                arguments, line = [], line_of(text, match.start())
        elif word == ")":
            depth -= 1
            if depth == 0:
                yield line, name, arguments
        elif depth:
            arguments.append(word.strip('"'))
        else:
            name = word.lower()


def linked(name, arguments):
    if name in ("target_link_libraries", "target_sources", "add_library", "add_executable"):
        return arguments[1:]
    return arguments[arguments.index("LINKS") + 1:] if "LINKS" in arguments else []


def variables_of(found):
    """All that a file ever puts into each of its variables."""
    variables = {}
    for _, name, arguments in found:
        if name == "list" and len(arguments) > 1:
            arguments = arguments[1:]
        if name in ("set", "list") and arguments:
            variables.setdefault(arguments[0], []).extend(arguments[1:])
    return variables


def expanded(words, variables, seen=()):
    for word in words:
        used = [name for name in re.findall(r"\$\{(\w+)\}", word) if name not in seen]
        for name in used:
            yield from expanded(variables.get(name, []), variables, (*seen, name))
        yield word


def check_links(files):
    """Returns how many links between the project's targets there are."""
    found = {name: list(commands(read(name))) for name in files if name.endswith(("CMakeLists.txt", ".cmake"))}
    targets = {arguments[0]: row_of(posixpath.dirname(name))
               for name, listed in found.items() for _, command, arguments in listed
               if command in ("add_library", "add_executable", "corvane_library") and "$" not in arguments[0]}
    targets.update(TARGETS)
    count = 0
    for name, listed in found.items():
        variables = variables_of(listed)
        for line, command, arguments in listed:
            user = targets.get(arguments[0]) if arguments else None
            user = user or row_of(posixpath.dirname(name))
            for word in expanded(linked(command, arguments), variables):
                # A target by itself, or the end of a generator expression such as $<TARGET_OBJECTS:target>.
                target = re.fullmatch(r"(?:\$<.*:)?(\w+)>*", word)
                used = targets.get(target[1]) if target else None
                # Inside pendix/ the SDK without the host interface is made from the library with both.
                inside_pendix = user and used and user.startswith("pendix/") and used.startswith("pendix/")
                if user and used and not inside_pendix:
                    check_arrow(user, used, name, line, f"{arguments[0]} links {target[1]}, which")
                    count += 1
        check_root(name)
    return count


def check_root(name):
    for line, text in enumerate(read(name).splitlines(), 1):
        if "CMAKE_SOURCE_DIR" in text.split("#")[0]:
            fail(name, line, "CMAKE_SOURCE_DIR is another project's folder once this one is added to it; "
                             "use corvane_SOURCE_DIR")


def main():
    files = dict.fromkeys(project_files())  # in order, and quick to look up
    includes, links = check_includes(files), check_links(files)
    for failure in failures:
        print(failure, file=sys.stderr)
    if not failures:
        print(f"{includes} includes and {links} links along the arrows")
    return 1 if failures else 0


sys.exit(main())
