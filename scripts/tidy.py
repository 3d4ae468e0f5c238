#!/usr/bin/env python3
"""The files that tidy.sh looks at, and what is done with each. Run it through tidy.sh, which makes its build folder."""
import json
import os
import re
import resource
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

BUILD = Path("build/tidy")
SOURCES = ("app", "bench", "host", "module", "siblings", "tests")
LAST_COMMITS = 20  # looked at when no branch says where the change began
MOST = 60          # files in one run: a merge of everything is not to hold the others up
MOST_SECONDS = 240 # of processor time, for the same reason


def git(*arguments):
    return subprocess.run(("git", *arguments), capture_output=True, text=True)


def start_of_change():
    """Where the branch left origin/main; where that is no help, some commits ago."""
    for start in (git("merge-base", "HEAD", "origin/main"), git("rev-parse", f"HEAD~{LAST_COMMITS}")):
        commit = start.stdout.strip()
        if start.returncode == 0 and commit != git("rev-parse", "HEAD").stdout.strip():
            return commit
    return git("hash-object", "-t", "tree", "/dev/null").stdout.strip()  # the empty tree: all of it is new


def changed_files(start):
    """The most recently committed first, what is not committed yet before them."""
    changed = set(git("diff", "--name-only", "--diff-filter=d", start, "--").stdout.split())
    recent = git("status", "--porcelain", "--no-renames").stdout
    ordered = [line[3:] for line in recent.splitlines()]
    ordered += git("log", "--name-only", "--format=", f"{start}..HEAD").stdout.split()
    return [name for name in dict.fromkeys(ordered + sorted(changed)) if name in changed]


def commands():
    """For each source of the build, how it is compiled, without the source and the object."""
    table = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        words = shlex.split(entry["command"])
        compiler = next(at for at, word in enumerate(words) if re.search(r"(^|/)clang\+\+", word))
        words = words[compiler:words.index("-o")]
        table[os.path.relpath(entry["file"])] = words
    return table


def nearest(header, table):
    """The command of its own source, else of one that shares most folders with it: the interface goes with the module."""
    if (own := header[:-2] + ".cpp") in table:
        return table[own]
    folder = Path(header).parent.parts
    if folder[:2] == ("host", "include"):
        folder = ("module",)
    return table[max(sorted(table), key=lambda source: len(os.path.commonprefix((Path(source).parts, folder))))]


def look_at(name, table):
    if name.endswith(".h"):
        command = [*nearest(name, table), "-fsyntax-only", "-x", "c++", "-include", os.path.abspath(name), "/dev/null"]
    elif name in table:
        command = ["clang-tidy", "--quiet", "-p", str(BUILD), name]
    else:
        return True  # not of this build: benchmarks, fuzz targets
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode != 0:
        print(f"== {name}\n{done.stdout}", flush=True)
    return done.returncode == 0


def seconds_spent():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def main(arguments):
    named = bool(arguments) and all(Path(name).exists() for name in arguments)
    names = list(arguments)
    if not named:
        names = changed_files(arguments[0] if arguments else start_of_change())
    names = [name for name in names if name.endswith((".cpp", ".h")) and name.startswith(SOURCES)]
    if not named and len(names) > MOST:
        print(f"{len(names)} files changed: the {MOST} most recent are looked at.")
        names = names[:MOST]
    table = commands()
    late = []

    def look_in_time(name):
        if not named and seconds_spent() > MOST_SECONDS:
            late.append(name)
            return True
        return look_at(name, table)

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = list(pool.map(look_in_time, names)).count(False)
    if late:
        print(f"Not looked at for want of time: {' '.join(late)}")
    print(f"{len(names) - len(late)} files, {faults} with findings, {seconds_spent():.0f} s of processor time.")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
