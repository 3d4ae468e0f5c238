#!/usr/bin/env python3
"""Checks that a built module imports only the runtimes' symbols and names that the host interface declares.

    symbol_guard.py MODULE.arx INTERFACE_FOLDER [--compiler c++]

The declared names are taken from the preprocessed headers of the interface. Prints one line for each symbol that is
neither, and exits with status 1 when there is one.
"""
import argparse
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# Runtime libraries of C, C++ and Qt give their symbols a version; TinyXML and Expat do not, their names bear a prefix.
RUNTIME_VERSION = re.compile(r"@+(GLIBC|GLIBCXX|CXXABI|GCC|LIBC|Qt)_[\w.]+$")
RUNTIME_NAME = re.compile(r"(_ITM_\w+|__gmon_start__|__dso_handle|TiXml\w*(::.*)?|XML_\w+|METIS_\w+)$")
DESCRIPTION = re.compile(r"^(vtable|VTT|typeinfo|typeinfo name|guard variable|non-virtual thunk|"
                         r"virtual thunk|construction vtable|TLS init function|TLS wrapper function) (for|to) ")
TOKEN = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|[A-Za-z_]\w*|::|[{}();=\[\],<>:~]|[^\s\w]|\d[\w.]*')
KEYWORDS = {"const", "noexcept", "override", "final", "class", "struct", "union", "enum", "public", "private",
            "protected", "virtual", "static", "inline", "constexpr", "operator", "default", "delete", "return",
            "static_assert", "true", "false", "nullptr", "bool", "int", "double"}


def preprocessed(folder, compiler):
    """The text of all headers of the folder with macros expanded, without what they include from elsewhere."""
    folder = folder.resolve()
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as unit:
        for header in sorted(folder.glob("*.h")):
            unit.write('#include "%s"\n' % header)
        unit.flush()
        text = subprocess.run([compiler, "-std=c++20", "-E", "-I", str(folder), unit.name],
                              check=True, capture_output=True, text=True).stdout
    kept, ours = [], False
    for line in text.splitlines():
        marker = re.match(r'# \d+ "([^"]*)"', line)
        if marker:
            ours = Path(marker[1]).parent == folder
        elif ours:
            kept.append(line)
    return "\n".join(kept)


def names_of_statement(tokens):
    """The names that a declaration (without its body) gives to its scope."""
    if tokens[:1] and tokens[0] in ("class", "struct", "union", "enum", "using", "friend", "typedef") and "(" not in tokens:
        return set()                                # a forward declaration announces a name, it does not define it
    names = {a for a, b in zip(tokens, tokens[1:]) if b in "(=[;" and re.match(r"[A-Za-z_]", a)}
    return names - KEYWORDS | {"operator"} & set(tokens)


def scope_of_statement(tokens):
    """("class", NAME), ("namespace", NAME) or ("other", None): what the brace after these tokens opens."""
    tokens = [t for t in tokens if t != "inline"]
    if "namespace" in tokens:
        return "namespace", "".join(tokens[tokens.index("namespace") + 1:])
    if tokens[:1] == ["extern"] and len(tokens) == 2:
        return "namespace", ""                      # extern "C"
    for i, token in enumerate(tokens):
        if token in ("(", "="):
            break
        if token in ("class", "struct", "union") and "enum" not in tokens:
            rest = tokens[i + 1:]
            head = rest[:rest.index(":")] if ":" in rest else rest
            words = [t for t in head if re.match(r"[A-Za-z_]\w*$", t) and t != "final"]
            if "template" not in tokens or i > tokens.index(">"):
                return "class", words[-1] if words else ""
    return "other", None


def declared_names(text):
    """Qualified names of the classes, members, functions and variables that the text declares."""
    names, scopes, statement = set(), [], []

    def qualified(name):
        return "::".join([s for _, s in scopes if s] + [name])

    def end_statement():
        names.update(qualified(n) for n in names_of_statement(statement + [";"]))
        statement.clear()

    depth_other = 0                                 # inside function bodies and initialisers nothing is declared
    for token in TOKEN.findall(text):
        if depth_other:
            depth_other += {"{": 1, "}": -1}.get(token, 0)
            if depth_other == 0:
                end_statement()
        elif token == "{":
            kind, name = scope_of_statement(statement)
            if kind == "other":
                depth_other = 1
                continue
            if kind == "class" and name:
                names.add(qualified(name))
            scopes.append((kind, name))
            statement.clear()
        elif token == "}":
            if scopes:
                scopes.pop()
            statement.clear()
        elif token == ";" or token == ":" and statement and statement[-1] in ("public", "private", "protected"):
            end_statement()
        else:
            statement.append(token)
    return names


def without_template_arguments(name):
    kept, depth = [], 0
    name = re.sub(r"operator(<<|>>|<=>|<=|>=|<|>|->|\(\))", "operator", name)
    for c in name:
        depth += c == "<"
        if depth == 0:
            kept.append(c)
        depth -= c == ">"
    return "".join(kept)


def qualified_name(symbol):
    """The qualified name in a demangled symbol: no arguments, no result type, no template arguments."""
    name = without_template_arguments(DESCRIPTION.sub("", symbol).replace("(anonymous namespace)", "anonymous"))
    name = re.sub(r"\[abi:\w+\]", "", name).split("(")[0]
    name = re.sub(r"operator.*", "operator", name)  # "operator new[]", "operator wchar_t const*", "operator+="
    return name.strip().split(" ")[-1]


def is_declared(symbol, names):
    parts = qualified_name(symbol).split("::")
    if len(parts) > 1 and parts[-1].lstrip("~") == parts[-2]:
        parts.pop()                                 # constructors and destructors may be implicit: the class counts
    return "::".join(parts) in names


def imported(module):
    """The undefined symbols, demangled after their version has been read."""
    raw = subprocess.run(["nm", "-D", "--undefined-only", "--demangle", str(module)],
                         check=True, capture_output=True, text=True).stdout
    return [line.split(None, 1)[1] for line in raw.splitlines() if line.split(None, 1)[0] in ("U", "w", "v")]


def foreign_symbols(symbols, names):
    return [s for s in symbols
            if not RUNTIME_VERSION.search(s) and not RUNTIME_NAME.match(DESCRIPTION.sub("", s)) and not is_declared(s, names)]


def main(argv):
    parser = argparse.ArgumentParser(description="check the symbols that a built module imports")
    parser.add_argument("module", type=Path)
    parser.add_argument("interface", type=Path)
    parser.add_argument("--compiler", default="c++")
    args = parser.parse_args(argv)
    if not args.module.is_file():
        print("%s has not been built" % args.module)
        return 1
    symbols = imported(args.module)
    foreign = foreign_symbols(symbols, declared_names(preprocessed(args.interface, args.compiler)))
    for symbol in foreign:
        print("not a declared name of the interface: %s" % symbol)
    print("%d symbols imported, %d of them refused." % (len(symbols), len(foreign)))
    return 1 if foreign or not symbols else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
