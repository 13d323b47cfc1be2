#!/usr/bin/env python3
"""What README.md and docs/*.md name must be there: every path of the project in backticks, every relative link, every
word of ./dev, every option of the simulator, and every text that they quote: in the operator guide one of the
translation file, elsewhere one of the sources or a heading.

A path may leave out the ending (`rl/motioneditor`), list several (`page/weldsettingpage.{h,cpp,ui}`) or hold a "*".
A name without its folder, or with the last of its folders only, counts if any file has it. A name that heads a code
block is a file of the document's own example.
"""

import fnmatch
import posixpath
import re
import sys
import xml.etree.ElementTree

from sources import line_of, project_files, read

CODE_BLOCK = re.compile(r"^(?:```.*?^```|(?: {4}|\t)[^\n]*)", re.DOTALL | re.MULTILINE)
EXAMPLE = re.compile(r"^`([\w.]+)`[^\n]*:\n\n```", re.MULTILINE)
COMMENT = re.compile(r"<!--.*?-->", re.DOTALL)
BACKTICKS = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(([^)\s]+)\)")
FILE = re.compile(r"[\w.*{},/-]+\.(?:cpp|h|ui|qrc|ts|svg|png|json|md|py|sh|cmake|supp|txt)")
HEADING = re.compile(r"^#+ +(.*)$", re.MULTILINE)

GUIDE = "docs/operator-guide.md"
TRANSLATION = "resources/language/Corvane_cn.ts"
# A quotation mark within a quote is escaped.
QUOTED = re.compile(r'(?<!\\)"((?:[^"\\]|\\.)*)"')
SHORT_QUOTE = re.compile(r'(?<![\w"\\])"((?:[^"\n\\]|\\[^\n])+(?:\n(?:[^"\n\\]|\\[^\n])+)?)"')
SOURCE = re.compile(r"^(?!checks/fuzz/corpus/).*\.(?:cpp|h|ui|ts|json|py|sh)$|^dev$")
CHINESE = re.compile("[\u3000-\u303f\u4e00-\u9fff\uff00-\uffef]+")
DEV_WORD = re.compile(r"(?:\.|\$REPO)/dev (\w+)")
DEV_CASE = re.compile(r"^([a-z0-9][a-z0-9 |]*)\)$", re.MULTILINE)
# A span in backticks or a line of its own; other programs' options are theirs, and what ./dev hands on is too.
COMMAND = re.compile(r"(?:`|^[ \t]*)((?:(?:\S*/)?(?:pendant|dev run)\b|--)[^`\n]*)", re.MULTILINE)
OPTION = re.compile(r"(?<!\S)--([a-z][\w-]*)")
OPTION_NAMES = re.compile(r'QCommandLineOption \w+\{\s*\{?QStringLiteral\("([\w-]+)"\)(?:, QStringLiteral\("([\w-]+)"\))?')


def blanked(match):
    return re.sub(r"[^\n]", " ", match.group())


def alternatives(path):
    """a.{h,cpp} as a.h and a.cpp."""
    braces = re.search(r"\{([^{}]*)\}", path)
    if not braces:
        return [path]
    return [one for part in braces[1].split(",")
            for one in alternatives(path[:braces.start()] + part.strip() + path[braces.end():])]


def anchors(text):
    """The names under which a page's headings can be linked to."""
    headings = HEADING.findall(CODE_BLOCK.sub(blanked, text))
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


class Project:
    def __init__(self):
        self.files = set(project_files())
        self.folders = set()
        for name in self.files:
            while name := posixpath.dirname(name):
                self.folders.add(name)
        self.known = self.files | self.folders
        self.top = {name.split("/")[0] for name in self.files}

    def is_meant(self, word):
        """Whether a word in backticks is meant as a path of the project."""
        if not re.fullmatch(r"[\w.*{},/-]+", word) or word.startswith("/"):
            return False
        first, *rest = word.split("/")
        return bool(FILE.fullmatch(word)) or bool(rest and first in self.top)

    def has(self, path):
        path = path.rstrip("/")
        # What does not begin at the top may begin anywhere.
        patterns = [path] if path.split("/")[0] in self.top else [path, f"*/{path}"]
        return any(fnmatch.fnmatchcase(known, pattern + ending)
                   for pattern in patterns for ending in ("", ".h", ".cpp") for known in self.known)


def check_paths(name, text, examples, project, failures):
    """Returns how many paths there are."""
    count = 0
    for match in BACKTICKS.finditer(text):
        word = match[1].removeprefix("./")
        if word in examples or not project.is_meant(word):
            continue
        for path in alternatives(word):
            count += 1
            if not project.has(path):
                failures.append(f"{name}:{line_of(text, match.start())}: there is no {path}")
    return count


def check_links(name, text, project, failures):
    """Returns how many links within the project there are."""
    count = 0
    for match in LINK.finditer(text):
        if re.match(r"[a-z]+:", match[1]):
            continue
        count += 1
        path, _, anchor = match[1].partition("#")
        target = posixpath.normpath(posixpath.join(posixpath.dirname(name), path)) if path else name
        is_there = target in project.files or target in project.folders
        if is_there and anchor and target.endswith(".md"):
            is_there = anchor in anchors(read(target))
        if not is_there:
            failures.append(f"{name}:{line_of(text, match.start())}: the link {match[1]} leads nowhere")
    return count


def check_words(name, text, words, failures):
    """Returns how many words of ./dev there are."""
    found = list(DEV_WORD.finditer(text))
    failures.extend(f"{name}:{line_of(text, match.start())}: ./dev has no word {match[1]}"
                    for match in found if match[1] not in words)
    return len(found)


def check_options(name, text, options, failures):
    """Returns how many options of the simulator there are."""
    count = 0
    for command in COMMAND.finditer(text):
        for match in OPTION.finditer(command[1]):
            count += 1
            if match[1] not in options:
                failures.append(f"{name}:{line_of(text, command.start())}: the simulator has no option --{match[1]}")
    return count


def check_quotes(failures):
    """What the operator guide quotes stands in the translation file: a text as it is, Chinese as a part of one.
    Returns how many quotes there are."""
    text = COMMENT.sub(blanked, read(GUIDE))
    messages = list(xml.etree.ElementTree.fromstring(read(TRANSLATION)).iter("message"))
    sources = {" ".join(message.findtext("source").split()) for message in messages}
    chinese = "\n".join(message.findtext("translation") for message in messages)
    count = 0
    for pattern, is_there in ((QUOTED, lambda quote: " ".join(quote.split()) in sources),
                              (CHINESE, lambda quote: quote in chinese)):
        for match in pattern.finditer(text):
            count += 1
            quote = match[match.lastindex or 0].replace('\\"', '"')
            if not is_there(quote):
                failures.append(f"{GUIDE}:{line_of(text, match.start())}: {TRANSLATION} does not have \"{quote}\"")
    return count


def source_words(project):
    """All that the sources say, in one line: what a document quotes of the program stands there."""
    texts = (read(name) for name in sorted(project.files) if SOURCE.search(name))
    return " ".join(" ".join(text.split()) for text in texts).replace('\\"', '"')


def check_other_quotes(name, text, known, failures):
    """What another document quotes stands in the sources, in the translation file or in a heading.
    Returns how many quotes there are."""
    found = list(SHORT_QUOTE.finditer(text))
    failures.extend(f"{name}:{line_of(text, match.start())}: nothing says \"{match[1]}\""
                    for match in found if " ".join(match[1].replace('\\"', '"').split()) not in known)
    return len(found)


def main():
    project, failures, count, mentions = Project(), [], 0, 0
    words = {word.strip() for case in DEV_CASE.findall(read("dev")) for word in case.split("|")}
    options = {option for names in OPTION_NAMES.findall(read("simulator/options.cpp")) for option in names}
    pages = [name for name in sorted(project.files) if re.fullmatch(r"README\.md|docs/[^/]+\.md", name)]
    known = source_words(project) + "\n".join(heading for name in pages for heading in HEADING.findall(read(name)))
    for name in pages:
        whole = read(name)
        text = COMMENT.sub(blanked, CODE_BLOCK.sub(blanked, whole))
        examples = EXAMPLE.findall(whole)
        count += check_paths(name, text, examples, project, failures) + check_links(name, text, project, failures)
        if name != GUIDE:
            mentions += check_other_quotes(name, text, known, failures)
        mentions += check_words(name, whole, words, failures) + check_options(name, whole, options, failures)
    mentions += check_quotes(failures)
    print(*failures, sep="\n", end="\n" if failures else "", file=sys.stderr)
    if not failures:
        print(f"{count} paths and links, {mentions} words, options and quotes in {len(pages)} documents")
    return 1 if failures else 0


sys.exit(main())
