#!/usr/bin/env python3
"""Checks that each source file includes only what its folder may see, and that nothing includes in a circle.

    include_guard.py ROOT

Prints one line for each fault and exits with status 1 when there is one.
"""
import re
import sys
from pathlib import Path

KERNEL = ("platform", "ge", "text", "rx", "dxf", "dwg", "db", "gi", "ed", "ap", "lisp", "commands")

# The folders of the module, lowest first. Each sees those of the rows before its own; those of one row stand beside
# each other and do not.
LAYERS = (("services",), ("geometrie",), ("points",), ("reports",), ("codification",),
          ("exchange", "calculs", "tools", "implantation"), ("frame",))
MODULE = "module/(%s)" % "|".join(name for row in LAYERS for name in row)

# What a folder may include, first match wins: (folder pattern, file-name pattern, allowed).
# Allowed names are folders of the tree ("module/points", "host/*" for all below) or one of
#   std       C++ and C standard headers
#   posix     everything else that is neither ours, Qt, TinyXML nor a test library
#   qt, tinyxml, expat
#   interface(PATTERN)   headers of host/include whose name matches PATTERN
#   below                the module's folders below this one
OWN = "own"
BELOW = "below"
DIALOGS = r"C?Dlg.*|.*D(LG|lg)|dialogue.*|C?[Ff]ormulaire.*|CParam.*|resultPolygo|croquis.*|panneau.*|listeObservations|modele.*|CDefVariable"
INTERFACE = "interface(.*)"
RULES = (
    # The interface itself: plain declarations.
    (r"host/include", r".*", ("std", "posix", INTERFACE)),
    # The lower kernel knows nothing of drawings: of the interface, it sees basic types, text and geometry only.
    (r"host/platform", r".*", (OWN, "std", "posix", r"interface(afx.*|ac?desk|AdAChar|adesk|io|oaidl|shellapi|shlobj|tchar|windows)")),
    (r"host/ge", r".*", (OWN, "std", r"interface(ge.*|adesk|AdAChar|acarray)")),
    (r"host/(dxf|dwg)", r".*", (OWN, "std", "posix", "host/platform")),
    (r"host/text", r".*", (OWN, "std", "host/platform", "host/ge")),
    # The upper kernel may use all of the kernel.
    (r"host/(rx|db|gi|ed|ap|lisp|commands)", r".*", (OWN, "std", "posix", INTERFACE) + tuple("host/" + f for f in KERNEL)),
    (r"host/ui", r".*", (OWN, "std", "qt", INTERFACE, "host/*")),
    # The web engine's library, which asks the system who runs it.
    (r"module/reports", r"vueWeb", (OWN, "std", "posix", "qt")),
    # The library of maps, which alone sees GDAL.
    (r"module/exchange(/carte)?", r"ecrireCarte", (OWN, "std", "posix")),
    # Where the module's own file lies only the system knows.
    (r"module/services", r"dossierModule|bibliothequeModule", (OWN, "std", "posix")),
    # The module: the folders below and the interface, nothing of the host beside it; windows in dialogs alone.
    (MODULE, DIALOGS, (OWN, "std", "qt", INTERFACE, BELOW)),
    # Computations and reports are pure: neither the drawing nor windows. placer* puts results into the drawing.
    # Of other people's libraries they see two, each in one place: METIS orders matrices, Expat reads XML.
    (r"module/calculs", r"matriceNormale|lecteurXml", (OWN, "std", "posix", "expat", "module/services")),
    (r"module/geometrie", r"(?!axeDeCourbe|axeEnregistre).*", (OWN, "std", "module/services")),
    (r"module/reports", r".*", (OWN, "std", "module/services")),
    (r"module/calculs", r"(?!placer).*", (OWN, "std", "module/services", "module/reports")),
    (r"module/implantation",
     r"dessinPlan|donneesStation|fichiersAppareil|identifiants|numerotationImplantation|obstaclesPlan|pointImplante|pointsAxe|rapport.*|"
     r"reglagesImplantation|repartition|resultatImplantation|svgDessin|traceImplantation|visibilite",
     (OWN, "std", "module/services", "module/geometrie", "module/reports")),
    (r"module/tools", r"(?!commande|lisp|placer).*", (OWN, "std", "module/services", "module/geometrie", "module/reports")),
    (MODULE, r".*", (OWN, "std", "tinyxml", "expat", INTERFACE, BELOW)),
    # The terrain's ground is pure; one source of it sees the geometry library.
    (r"siblings/terrain", r"delaunayContraint", (OWN, "std", "posix")),
    # The terrain has copies of its own of the two lowest layers, for dialogs and reports.
    (r"siblings/terrain", DIALOGS, (OWN, "std", "qt", INTERFACE, "module/points", "module/services", "module/reports")),
    (r"siblings/terrain", r".*", (OWN, "std", INTERFACE, "module/points", "module/services", "module/reports")),
    # Siblings: the exported point tables, and the interface.
    (r"siblings/.*", r".*", (OWN, "std", INTERFACE, "module/points")),
    (r"(app|tests|bench)(/.*)?", r".*", ("anything",)),
)

# Folders whose headers are written as "folder/header.h" from here.
INCLUDE_ROOTS = ("host", "module", "siblings", "siblings/terrain", "app", "bench", "host/include", "")
SOURCE_FOLDERS = ("host", "module", "siblings", "app", "tests", "bench")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.M)

C_HEADERS = {"assert", "ctype", "errno", "fenv", "float", "inttypes", "limits", "locale", "math", "setjmp", "signal",
             "stdarg", "stddef", "stdint", "stdio", "stdlib", "string", "time", "uchar", "wchar", "wctype"}


def foreign_kind(name):
    """The kind of a header that is not in the tree."""
    stem = name[:-2] if name.endswith(".h") else name
    if re.match(r"Q[A-Za-z]|Qt|q[a-z]+\.h$|ui_\w+\.h$", name):      # ui_: made from a dialog's template
        return "qt"
    if name in ("tinyxml.h", "expat.h"):
        return name[:-2]
    if re.fullmatch(r"[a-z_0-9]+", name) or name.endswith(".h") and stem in C_HEADERS:
        return "std"
    return "posix"


def source_files(root):
    for folder in SOURCE_FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp") and path.is_file():
                yield path


def resolve(root, includer, quoted, name):
    """The file of the tree that an include names, or None."""
    near = [includer.parent / name] if quoted else []
    for candidate in near + [root / base / name for base in INCLUDE_ROOTS]:
        if candidate.is_file():
            return candidate.resolve()
    return None


def folder_of(root, path):
    """host/x, module/x and siblings/x are folders of the house, with what lies below them; others whole."""
    parts = path.relative_to(root).parent.parts
    return "/".join(parts[:2] if parts[0] in ("host", "module", "siblings") else parts[:1])


def below(folder):
    """The module's folders below this one."""
    lower = set()
    for row in LAYERS:
        names = {"module/" + name for name in row}
        if folder in names:
            return lower
        lower |= names
    return set()


def rule_for(folder, stem):
    for pattern, names, allowed in RULES:
        if re.fullmatch(pattern, folder) and re.fullmatch(names, stem):
            return allowed
    return ()


def allows(allowed, own, target_folder, target_name):
    for item in allowed:
        if item == "anything" or item == target_folder or (item == OWN and target_folder == own):
            return True
        if item == BELOW and target_folder in below(own):
            return True
        if item.endswith("/*") and target_folder.startswith(item[:-1]) and target_folder != "host/include":
            return True
        interface = re.fullmatch(r"interface\((.*)\)", item)
        if interface and target_folder == "host/include" and re.fullmatch(interface[1], Path(target_name).stem):
            return True
    return False


def circle(graph):
    """A list of nodes that leads back to its first one, or None."""
    done = set()
    for start in sorted(graph):
        path, on_path, stack = [], set(), [(start, False)]
        while stack:
            node, leaving = stack.pop()
            if leaving:
                on_path.discard(path.pop())
                done.add(node)
            elif node in on_path:
                return path[path.index(node):] + [node]
            elif node not in done:
                path.append(node)
                on_path.add(node)
                stack.append((node, True))
                stack.extend((n, False) for n in sorted(graph.get(node, ())))
    return None


def faults(root):
    root = root.resolve()
    found, files, folders = [], {}, {}
    for path in source_files(root):
        own = folder_of(root, path)
        allowed = rule_for(own, path.stem)
        text = path.read_text(encoding="utf-8", errors="replace")
        for match in INCLUDE.finditer(text):
            where = "%s:%d" % (path.relative_to(root), text.count("\n", 0, match.start()) + 1)
            quoted, name = match[1] == '"', match[2]
            target = resolve(root, path, quoted, name)
            if target is None:
                kind = foreign_kind(name)
                if not allows(allowed, own, kind, name):
                    found.append('%s: %s may not include <%s> (%s)' % (where, own, name, kind))
                continue
            target_folder = folder_of(root, target)
            if not allows(allowed, own, target_folder, target.name):
                found.append('%s: %s may not include "%s" of %s' % (where, own, name, target_folder))
            files.setdefault(str(path.relative_to(root)), set()).add(str(target.relative_to(root)))
            # Everyone sees the interface, and the interface only itself: it makes no circle of folders.
            if own != target_folder and "host/include" not in (own, target_folder):
                folders.setdefault(own, set()).add(target_folder)
    for graph, what in ((files, "files"), (folders, "folders")):
        ring = circle(graph)
        if ring:
            found.append("%s include each other in a circle: %s" % (what, " -> ".join(ring)))
    return found


def main(argv):
    found = faults(Path(argv[0]))
    print("\n".join(found) if found else "Every include follows the arrows.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
