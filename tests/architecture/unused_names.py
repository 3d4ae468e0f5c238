#!/usr/bin/env python3
"""Lists names that headers declare and nothing uses, and headers that nothing includes.

    unused_names.py ROOT [FOLDER...]           names of the house, or of these folders of it; not the interface
    unused_names.py --tests-only ROOT [FOLDER...]  those that only tests use: for a reader, no fault
    unused_names.py --interface ROOT           names of host/include, but those of interface_kept.txt

Prints one line for each and exits with status 1 when there is one. It reads words, not C++: a name counts as used when
it stands anywhere but where something of that name is declared or defined. So it never blames what is used, and
overlooks what shares its name with something that is.
"""
import re
import sys
from collections import namedtuple
from pathlib import Path

import include_guard

# Names that something outside the tree uses, and why.
ALLOWED = {
    "acrxEntryPoint": "the host looks a module's entry point up by name",
    "iterator_category": "standard algorithms ask iterators for it",
    "difference_type": "standard algorithms ask iterators for it",
    "value_type": "standard algorithms ask iterators for it",
    "is_transparent": "standard containers ask comparisons for it",
    "m_pickFirst": "works by being there, as long as the kernel",
    "bearingTo": "an operation of station setups that siblings call by its place",
    "describeHtml": "an operation of station setups that siblings call by its place",
    "describeText": "an operation of station setups that siblings call by its place",
    "intersect": "an operation of obstacles that siblings call by its place",
}
HOUSE = ("host", "module", "siblings", "app")
KEPT = Path(__file__).with_name("interface_kept.txt")

Declared = namedtuple("Declared", "name file line group", defaults=("",))   # group: of values of an enumeration

LITERALS = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"([^(\s]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\'', re.S)
DIRECTIVE = re.compile(r"^[ \t]*#[ \t]*(\w+)((?:\\\n|[^\n])*)", re.M)
WORD = re.compile(r"[A-Za-z_]\w*|::|->|\[\[|\]\]|&&|[{}()\[\];=,<>:~&*#]|\n")
ACCESS = {"public", "private", "protected", "signals", "slots", "Q_OBJECT", "Q_SLOTS", "Q_SIGNALS"}
TYPES = {"class", "struct", "union", "enum"}


def words_of(text):
    """(word, line) without comments, literals and attributes; what directives say is handed over beside."""
    text = LITERALS.sub(lambda m: "\n" * m[0].count("\n") + " ", text)
    defined = " ".join(m[2] for m in DIRECTIVE.finditer(text) if m[1] not in ("include", "pragma"))
    text = DIRECTIVE.sub(lambda m: "\n" * m[0].count("\n"), text)
    words, line, attribute = [], 1, 0
    for word in WORD.findall(text):
        if word == "\n":
            line += 1
        elif word == "[[":
            attribute += 1
        elif word == "]]":
            attribute -= 1 if attribute else 0
        elif not attribute and word not in ACCESS:
            words.append((word, line))
    return words, re.findall(r"[A-Za-z_]\w*", defined)


def is_name(word):
    return word[:1].isalpha() or word[:1] == "_"


def without_template(statement):
    """The statement behind "template <...>", and the words between the brackets."""
    inside = []
    while statement and statement[0][0] == "template":
        depth, at = 0, 1
        while at < len(statement):
            depth += {"<": 1, ">": -1}.get(statement[at][0], 0)
            at += 1
            if depth == 0:
                break
        inside += statement[1:at]
        statement = statement[at:]
    return statement, inside


class Scanner:
    """Tells declared names of a file from used ones, by walking its statements outside function bodies."""

    def __init__(self, file, text):
        self.file, self.declared, self.used = file, [], set()
        words, defined = words_of(text)
        self.used.update(defined)
        self.classes = []
        self.enumeration = ""
        self.walk(words)

    def use(self, statement):
        self.used.update(word for word, _ in statement if is_name(word))

    def declare(self, word, group=""):
        self.declared.append(Declared(word[0], self.file, word[1], group))

    def walk(self, words):
        stack, statement, parens = [], [], 0        # of "scope", "enum", "body"
        for word in words:
            w = word[0]
            inner = stack[-1] if stack else "scope"
            if inner == "body":
                if w == "{":
                    stack.append("body")
                elif w == "}":
                    stack.pop()
                elif is_name(w):
                    self.used.add(w)
                continue
            parens += {"(": 1, ")": -1}.get(w, 0)
            if w == "{" and parens == 0:
                kind = self.opened(statement)
                stack.append(kind)
                statement = []
            elif w == "{":                          # a value in braces among parameters
                stack.append("body")
            elif w == "}":
                (self.enumerators if inner == "enum" else self.finished)(statement)
                statement, parens = [], 0
                if stack:
                    stack.pop()
            elif w == ";" and parens == 0:
                self.finished(statement)
                statement = []
            elif w == ":" and len(statement) <= 1 and inner == "scope" and not statement:
                continue                            # of an access specifier
            else:
                statement.append(word)
        self.finished(statement)

    def opened(self, statement):
        """What a brace behind this statement opens."""
        statement, parameters = without_template(statement)
        self.use(parameters)
        names = [w for w, _ in statement]
        if not names:
            return "body"
        if names[0] in ("namespace", "extern") or "namespace" in names[:2]:
            return "scope"
        if "enum" in names and "(" not in names:
            self.enumeration = "%s, line %d" % (self.file, statement[0][1])
            self.use(statement[names.index("enum") + 2:])    # the type of its values; itself it counts by them
            return "enum"
        if TYPES & set(names) and "(" not in names and "=" not in names:
            self.type_name(statement)
            return "scope"
        self.finished(statement)
        return "body"

    def type_name(self, statement):
        at = max(i for i, (w, _) in enumerate(statement) if w in TYPES)
        rest = [word for word in statement[at + 1:] if word[0] != "final"]
        if rest and is_name(rest[0][0]):
            end = next((i for i, (w, _) in enumerate(rest) if w == ":"), len(rest))
            specialised = end > 1 and rest[1][0] in ("<", "::")
            if not specialised:
                self.declare(rest[0])
                self.classes.append(rest[0][0])
            self.use(rest[1:])

    def enumerators(self, statement):
        start = True
        for word in statement:
            if start and is_name(word[0]):
                self.declare(word, self.enumeration)
                start = False
            elif word[0] == ",":
                start = True
            elif is_name(word[0]):
                self.used.add(word[0])

    def finished(self, statement):
        statement, parameters = without_template(statement)
        self.use(parameters)
        names = [w for w, _ in statement]
        if not names:
            return
        if names[0] in ("friend", "namespace", "static_assert", "extern") or "operator" in names:
            return self.use(statement)
        if names[0] == "using":
            if len(names) > 2 and names[2] == "=":
                self.declare(statement[1])
                return self.use(statement[2:])
            return self.use(statement)
        if names[0] == "typedef":
            self.declare(statement[-1])
            return self.use(statement[:-1])
        if names[0] in TYPES and len(names) <= 3:
            return                                   # a forward declaration
        opening = self.declarator(names)
        if opening is None:
            return self.variables(statement)
        name = statement[opening - 1]
        first = opening - 1
        while first >= 2 and statement[first - 1][0] == "::":
            first -= 2                               # the class that a definition names
        self.use(statement[:max(first, 0)])
        self.use_parameters(statement[opening:])
        overrides = "override" in names or "final" in names
        special = opening >= 2 and names[opening - 2] == "~" or name[0] in self.classes or (
            opening >= 3 and names[opening - 2] == "::" and names[opening - 3] == name[0])
        if not overrides and not special and is_name(name[0]):
            self.declare(name)

    @staticmethod
    def declarator(names):
        """Where the parameters of a function open; None for a variable."""
        depth = 0
        for i, w in enumerate(names):
            if w in "<>":
                depth += 1 if w == "<" else -1
            elif w == "=" and depth == 0:
                return None
            elif w == "(" and depth <= 0:
                return i if i > 0 and is_name(names[i - 1]) and names[i - 1] not in ("decltype", "alignas") else None
        return None

    def use_parameters(self, words):
        """All but the names of the parameters themselves."""
        for i, (w, _) in enumerate(words):
            before = words[i - 1][0] if i else ""
            after = words[i + 1][0] if i + 1 < len(words) else ""
            is_parameter = after in (",", ")", "=", "[") and (is_name(before) or before in ("&", "*", "&&", ">"))
            if is_name(w) and not is_parameter:
                self.used.add(w)

    def variables(self, statement):
        depth, value = 0, False
        for i, (w, line) in enumerate(statement):
            before = statement[i - 1][0] if i else ""
            after = statement[i + 1][0] if i + 1 < len(statement) else ";"
            depth += {"(": 1, "<": 1, "[": 1, ")": -1, ">": -1, "]": -1}.get(w, 0)
            if w == "=":
                value = True
            elif w == "," and depth <= 0:
                value = False
            elif is_name(w):
                names_one = not value and depth <= 0 and after in (";", "=", ",", "[", ":") and (
                    is_name(before) or before in ("&", "*", ">", ","))
                if names_one:
                    self.declare((w, line))
                else:
                    self.used.add(w)


def scanned(root):
    root = Path(root).resolve()
    for path in include_guard.source_files(root):
        text = path.read_text(encoding="utf-8", errors="replace")
        yield path.relative_to(root), Scanner(str(path.relative_to(root)), text)
    for path in sorted((root / "module").rglob("*.ui")):    # dialogs name the classes of their widgets
        scanner = Scanner("", "")
        scanner.used.update(re.findall(r"\w+", path.read_text(encoding="utf-8")))
        yield path.relative_to(root), scanner


def unused(root, wanted, users=lambda file: True, whole_groups=False):
    """Names that headers which `wanted` takes declare, and no file that `users` takes uses. With `whole_groups`, an
    enumeration one value of which is used is used."""
    declared, used = [], set()
    for file, scanner in scanned(root):
        if users(file):
            used |= scanner.used
        if file.suffix == ".h" and wanted(file):
            declared += scanner.declared
    used_groups = {one.group for one in declared if one.group and one.name in used}
    seen, found = set(), []
    for one in declared:
        if whole_groups and one.group in used_groups:
            continue
        if one.name not in used and one.name not in seen:
            seen.add(one.name)
            found.append(one)
    return found


def headers_alone(root, folders):
    """Headers of these folders that no file includes."""
    root = Path(root).resolve()
    included, headers = set(), []
    for path in include_guard.source_files(root):
        if path.suffix == ".h" and is_of_house(path.relative_to(root), folders):
            headers.append(path.resolve())
        for match in include_guard.INCLUDE.finditer(path.read_text(encoding="utf-8", errors="replace")):
            included.add(include_guard.resolve(root, path, match[1] == '"', match[2]))
    return [header.relative_to(root) for header in headers if header not in included]


def is_interface(file):
    return file.parts[:2] == ("host", "include")


def is_of_house(file, folders=HOUSE):
    return any(file.is_relative_to(folder) for folder in folders) and not is_interface(file)


def kept_names(text):
    """The first word of each line; "#" begins the reason of those below it."""
    return {line.split()[0] for line in text.splitlines() if line.strip() and not line.startswith("#")}


def faults(root, mode="", folders=HOUSE):
    if mode == "--interface":
        kept = kept_names(KEPT.read_text(encoding="utf-8")) if KEPT.is_file() else set()
        names = unused(root, is_interface, whole_groups=True)
        found = [one for one in names if one.name not in kept]
        return [text_of(one) for one in found]
    def wanted(file):
        return is_of_house(file, folders)

    if mode == "--tests-only":
        anywhere = {one.name for one in unused(root, wanted)}
        names = unused(root, wanted, lambda file: file.parts[0] != "tests")
        return [text_of(one) for one in names if one.name not in anywhere]
    found = [text_of(one) for one in unused(root, wanted) if one.name not in ALLOWED]
    return found + ["%s: nothing includes it" % file for file in headers_alone(root, folders)]


def text_of(one):
    return "%s:%d: nothing uses %s" % (one.file, one.line, one.name)


def main(argv):
    mode = argv.pop(0) if argv[0].startswith("--") else ""
    found = faults(argv[0], mode, tuple(argv[1:]) or HOUSE)
    print("\n".join(found) if found else "Every declared name is used.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
