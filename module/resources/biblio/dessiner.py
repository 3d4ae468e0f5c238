#!/usr/bin/env python3
"""Draws the symbol library: one DXF file (R12, so that every CAD reads it) for each symbol, in this folder.

    dessiner.py [FOLDER]
    dessiner.py --planche FILE      one drawing that shows them all, with their names
    dessiner.py --verifier          exit status 1 when the files of this folder are not those it would write

A symbol is drawn around its insertion point (0, 0), one drawing unit wide, on layer "0" with colour and linetype by
layer: it takes those of the layer it is inserted on. Attributes are not part of it, the module adds them.
Coordinates are rounded to the tenth of a millimetre of that unit: the same files come out of every run.
"""
import math
import sys
from pathlib import Path


def line(x1, y1, x2, y2):
    return [(0, "LINE"), (8, "0"), (10, x1), (20, y1), (30, 0), (11, x2), (21, y2), (31, 0)]


def circle(x, y, radius):
    return [(0, "CIRCLE"), (8, "0"), (10, x), (20, y), (30, 0), (40, radius)]


def arc(x, y, radius, start, end):
    """Counter-clockwise, in degrees."""
    return [(0, "ARC"), (8, "0"), (10, x), (20, y), (30, 0), (40, radius), (50, start), (51, end)]


def path(*points, closed=False):
    tags = [(0, "POLYLINE"), (8, "0"), (66, 1), (10, 0), (20, 0), (30, 0), (70, 1 if closed else 0)]
    for x, y in points:
        tags += [(0, "VERTEX"), (8, "0"), (10, x), (20, y), (30, 0)]
    return tags + [(0, "SEQEND"), (8, "0")]


def polygon(*points):
    return path(*points, closed=True)


def filled(p0, p1, p2, p3):
    """A filled quadrilateral, its corners in turn."""
    tags = [(0, "SOLID"), (8, "0")]
    for i, (x, y) in enumerate((p0, p1, p3, p2)):               # the format crosses over
        tags += [(10 + i, x), (20 + i, y), (30 + i, 0)]
    return tags


def rectangle(x1, y1, x2, y2):
    return polygon((x1, y1), (x2, y1), (x2, y2), (x1, y2))


def disc(x, y, radius, sectors=16):
    """Filled, in slices of two sectors each."""
    at = [(x + radius * math.cos(2 * math.pi * i / sectors), y + radius * math.sin(2 * math.pi * i / sectors))
          for i in range(sectors + 1)]
    return sum((filled((x, y), at[i], at[i + 1], at[i + 2]) for i in range(0, sectors, 2)), [])


def plus(size):
    return line(-size, 0, size, 0) + line(0, -size, 0, size)


def times(size):
    return line(-size, -size, size, size) + line(-size, size, size, -size)


def triangle(radius):
    return polygon(*((radius * math.cos(math.radians(a)), radius * math.sin(math.radians(a))) for a in (90, 210, 330)))


def star(count, inner, outer, shift=0.0):
    tags = []
    for i in range(count):
        a = 2 * math.pi * i / count + shift
        tags += line(inner * math.cos(a), inner * math.sin(a), outer * math.cos(a), outer * math.sin(a))
    return tags


def foliage():
    """Eight arcs that bulge outwards, chained around the trunk."""
    tags, ring, bulge = [], 0.34, 0.16
    for i in range(8):
        a = 45 * i
        tags += arc(ring * math.cos(math.radians(a)), ring * math.sin(math.radians(a)), bulge, a - 76.9, a + 76.9)
    return tags


SYMBOLS = {
    "velablk1": plus(0.35),                                                              # survey point
    "velablk2": circle(0, 0, 0.2) + disc(0, 0, 0.04, 8),                                 # detail point
    "velablk3": triangle(0.5) + disc(0, 0, 0.06, 8),                                     # station
    "vela_polygonale": triangle(0.5) + circle(0, 0, 0.25) + disc(0, 0, 0.06, 8),         # traverse station
    "vela_repere": circle(0, 0, 0.3) + line(-0.5, 0, 0.5, 0) + disc(0, 0, 0.1, 8),       # levelling mark
    "vela_borne": circle(0, 0, 0.3) + disc(0, 0, 0.06, 8),                               # boundary stone
    "vela_clou": circle(0, 0, 0.25) + times(0.25 * math.sqrt(0.5)),                      # nail
    "vela_spit": polygon((0, 0.3), (0.3, 0), (0, -0.3), (-0.3, 0)) + disc(0, 0, 0.06, 8),  # expansion bolt
    "vela_piquet": rectangle(-0.2, -0.2, 0.2, 0.2) + times(0.2),                         # peg
    "vela_arbre": foliage() + disc(0, 0, 0.06, 8),                                       # broad-leaved tree
    "vela_conifere": star(12, 0.1, 0.5) + circle(0, 0, 0.1),                             # conifer
    "vela_poteau": circle(0, 0, 0.25) + disc(0, 0, 0.12),                                # pole
    "vela_lampadaire": circle(0, 0, 0.2) + star(8, 0.2, 0.45),                           # street lamp
    "vela_regard": circle(0, 0, 0.4) + rectangle(-0.28, -0.28, 0.28, 0.28),              # round manhole
    "vela_regard_carre": rectangle(-0.4, -0.4, 0.4, 0.4) + circle(0, 0, 0.3),            # square manhole
    "vela_avaloir": rectangle(-0.5, -0.25, 0.5, 0.25)                                    # gully
                    + sum((line(x / 10, -0.25, x / 10, 0.25) for x in (-3, -1, 1, 3)), []),
    "vela_bouche_cle": circle(0, 0, 0.2) + line(-0.4, 0, -0.2, 0) + line(0.2, 0, 0.4, 0),  # valve box
    "vela_incendie": circle(0, 0, 0.4) + plus(0.4) + disc(0, 0, 0.15),                   # fire hydrant
    "vela_coffret": rectangle(-0.4, -0.25, 0.4, 0.25)                                    # cabinet
                    + path((-0.1, 0.2), (0.05, 0.02), (-0.05, -0.02), (0.1, -0.2)),
    "vela_telecom": rectangle(-0.5, -0.3, 0.5, 0.3) + line(-0.5, -0.3, 0.5, 0.3) + line(-0.5, 0.3, 0.5, -0.3),
    "vela_panneau": line(0, 0, 0, 0.2) + rectangle(-0.4, 0.2, 0.4, 0.45) + disc(0, 0, 0.05, 8),  # sign
    "vela_puits": circle(0, 0, 0.45) + circle(0, 0, 0.3),                                # well
}


def written(code, value):
    if isinstance(value, str):
        text = value
    elif 60 <= code < 80:
        text = str(value)
    else:
        text = "%.4f" % value
        text = "0.0000" if float(text) == 0 else text                                    # no negative zero
    return "%3d\n%s\n" % (code, text)


def drawing(symbol):
    header = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1009"), (9, "$INSBASE"), (10, 0.0), (20, 0.0),
              (30, 0.0), (0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")]
    return "".join(written(c, v) for c, v in header + symbol + [(0, "ENDSEC"), (0, "EOF")])


def moved(symbol, x, y):
    """The symbol around another place."""
    tags, kind = [], ""
    for code, value in symbol:
        kind = value if code == 0 else kind
        if kind != "POLYLINE" and 10 <= code <= 13:
            value += x
        elif kind != "POLYLINE" and 20 <= code <= 23:
            value += y
        tags.append((code, value))
    return tags


def text(content, x, y, height):
    """Centred on x."""
    return [(0, "TEXT"), (8, "0"), (10, x), (20, y), (30, 0), (40, height), (1, content), (72, 1), (11, x), (21, y),
            (31, 0)]


def sheet(columns=6, width=2.4, height=1.8):
    tags = []
    for i, (name, symbol) in enumerate(SYMBOLS.items()):
        x, y = i % columns * width, -(i // columns) * height
        tags += moved(symbol, x, y) + text(name, x, y - 0.85, 0.17)
    return tags


def main(arguments):
    here = Path(__file__).resolve().parent
    if arguments[:1] == ["--planche"]:
        Path(arguments[1]).write_text(drawing(sheet()), encoding="ascii")
    elif arguments[:1] == ["--verifier"]:
        drawn = {name + ".dxf": drawing(symbol) for name, symbol in SYMBOLS.items()}
        there = {path.name: path.read_text(encoding="ascii") for path in here.glob("*.dxf")}
        for name in sorted(set(drawn) | set(there)):
            if drawn.get(name) != there.get(name):
                sys.exit("%s is not what this script draws" % name)
    else:
        folder = Path(arguments[0]) if arguments else here
        for name, symbol in SYMBOLS.items():
            (folder / (name + ".dxf")).write_text(drawing(symbol), encoding="ascii")


if __name__ == "__main__":
    main(sys.argv[1:])
