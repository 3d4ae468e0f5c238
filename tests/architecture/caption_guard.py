#!/usr/bin/env python3
"""Says which letters behind Alt lead to two places of one dialog: what templates (*.ui) give, panels inside included."""
import re
import sys
import unicodedata
import xml.etree.ElementTree as ElementTree
from pathlib import Path

# Captions that users know by heart: two groups, each with its own "Tout" and "Std".
KEPT = {"DlgParamsTable": {"&Tout", "&Std"}}


def letter_of(caption):
    mark = re.search(r"&([^&\s])", caption.replace("&&", ""))
    return unicodedata.normalize("NFD", mark[1])[0].lower() if mark else None


def captions_of(template, templates):
    """Captions with a letter, those of the panels that the template holds among them."""
    captions = []
    for widget in template.iter("widget"):
        for text in widget.findall("property") + widget.findall("attribute"):
            caption = text.findtext("string") or ""
            if text.get("name") in ("text", "title") and letter_of(caption):
                captions.append(caption)
        panel = templates.get(widget.get("class"))
        if panel is not None and panel is not template:
            captions += captions_of(panel, templates)
    return captions


def faults(root):
    templates = {file.stem: ElementTree.parse(file).getroot() for folder in ("module", "siblings")
                 for file in Path(root, folder).rglob("*.ui")}
    found = []
    for name, template in sorted(templates.items()):
        seen = {}
        for caption in captions_of(template, templates):
            first = seen.setdefault(letter_of(caption), caption)
            if first is not caption and caption not in KEPT.get(name, ()):
                found.append('%s: Alt leads from one letter to "%s" and "%s"' % (name, first, caption))
    return found if templates else ["no dialog template below %s" % root]


def main(argv):
    found = faults(argv[0])
    print("\n".join(found) if found else "Every letter leads to one place.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
