#!/usr/bin/env python3
"""Runs scripts through the whole program, on copies of what they need.

    run_scenario.py PROGRAM SCRIPT.scr         one scenario
    run_scenario.py PROGRAM MANUAL.md          each example of a manual: its blocks that begin with ```script
    run_scenario.py PROGRAM SCRIPT.scr FOLDER  the pictures that the scenario made go there

The comments at the head of a script say what it is given and how it ends:

    ; dessin : plan.dxf          opened first: a file of this folder, or of examples/
    ; fichiers : a.obs b.scr     copied beside it
    ; échec : texte              it must fail, with a message that contains the text

A script runs in an empty folder of its own, with settings and a support folder of its own, and with --strict: a
drawing object left open is a failure. Prints what the program printed when a script does not end as it should, and
exits with status 1.
"""
import contextlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
EXAMPLES = HERE.parent.parent / "examples"
TIMEOUT = 300  # seconds; with sanitizers on a busy machine


def header(text, key):
    """The value of a "; key : value" among the comments before the first line of the script."""
    for line in text.splitlines():
        if line.strip() and not line.lstrip().startswith(";"):
            break
        match = re.match(r"\s*;\s*%s\s*:\s*(.+?)\s*$" % re.escape(key), line)
        if match:
            return match[1]
    return ""


def source_of(name, folder):
    for candidate in (folder / name, HERE / name, EXAMPLES / name):
        if candidate.is_file():
            return candidate
    sys.exit("%s: no such file for a scenario" % name)


@contextlib.contextmanager
def folder_of_its_own(pictures):
    """Empty, gone afterwards. Pictures show paths: theirs has the same name each time."""
    if not pictures:
        with tempfile.TemporaryDirectory(prefix="vela-scenario-") as work:
            yield Path(work)
        return
    work = Path(tempfile.gettempdir()) / "vela"
    work.mkdir()
    try:
        yield work
    finally:
        shutil.rmtree(work)


def run(program, name, text, folder, pictures):
    """Nothing, or what went wrong."""
    drawing, failure = header(text, "dessin"), header(text, "échec")
    with folder_of_its_own(pictures) as work:
        for file in header(text, "fichiers").split() + ([drawing] if drawing else []):
            shutil.copyfile(source_of(file, folder), work / Path(file).name)
        (work / name).write_text(text, encoding="utf-8")
        command = [program, "executer", name, "--strict"] + (["--dessin", Path(drawing).name] if drawing else [])
        (work / "support").mkdir()
        (work / "support" / "biblio").symlink_to(HERE.parent.parent / "module" / "resources" / "biblio")
        settings = {"VELA_REGISTRY": "registre.ini", "VELA_SUPPORT": "support", "LC_ALL": "C.UTF-8"}
        environment = {k: v for k, v in os.environ.items() if k != "DISPLAY"} | settings
        try:
            done = subprocess.run(command, cwd=work, env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                                  timeout=TIMEOUT)
        except subprocess.TimeoutExpired as late:
            return "still running after %d s\n%s" % (TIMEOUT, (late.stdout or b"").decode("utf-8", "replace"))
        for picture in work.glob("*.png") if pictures else []:
            shutil.copyfile(picture, Path(pictures) / picture.name)
    errors = done.stderr.decode("utf-8", "replace")
    shown = "status %d\n%s\n%s" % (done.returncode, done.stdout.decode("utf-8", "replace"), errors)
    if failure:
        return "" if done.returncode == 1 and failure in errors else "should fail with « %s »: %s" % (failure, shown)
    return shown if done.returncode else ""


def examples(manual):
    """(name, script) of each block of a manual."""
    text = manual.read_text(encoding="utf-8")
    for match in re.finditer(r"^```script\n(.*?)^```$", text, re.M | re.S):
        yield "ligne%d.scr" % (text.count("\n", 0, match.start()) + 1), match[1]


def main(program, source, pictures=None):
    source = Path(source).resolve()
    scripts = list(examples(source)) if source.suffix == ".md" else [(source.name, source.read_text(encoding="utf-8"))]
    if not scripts:
        print("no script in %s" % source)
        return 1
    status = 0
    for name, text in scripts:
        problem = run(str(Path(program).resolve()), name, text, source.parent, pictures)
        if problem:
            print("%s: %s: %s" % (source.name, name, problem))
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
