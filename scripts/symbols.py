#!/usr/bin/env python3
"""Holds the symbols that the two libraries export against the lists under version control.

"check" fails when a symbol came or went; "update" writes the lists anew. A symbol that goes, or
changes its arguments, breaks programs that are linked already: it needs a new SOVERSION
(cmake/PanorelInstall.cmake). One that comes needs a word in CHANGELOG.md. What the compiler makes of
other libraries' templates is left out.
"""

import argparse
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LISTS = {"libpanorel.so": ROOT / "panorel" / "libpanorel.symbols",
         "libpanorel-host.so": ROOT / "host" / "libpanorel-host.symbols"}


def fail(message):
    sys.exit(f"symbols.py: {message}")


def exported(library):
    """The names that programs link with, demangled, one for each."""
    if not library.exists():
        fail(f"{library} is not there: build it first.")
    try:
        result = subprocess.run(["nm", "--dynamic", "--defined-only", "--demangle", str(library)],
                                capture_output=True, text=True, check=False)
    except FileNotFoundError:
        fail("nm is not installed (Debian package: binutils).")
    if result.returncode != 0:
        fail(f"nm failed: {result.stderr}")
    names = set()
    for line in result.stdout.splitlines():
        _, kind, name = line.split(" ", 2)
        # W: templates and inline functions, which every program has copies of. The linker and
        # sanitizers add names with an underscore.
        if kind != "W" and not name.startswith("_"):
            names.add(name)
    if not names:
        fail(f"{library} exports nothing.")
    return names


def kept(path):
    if not path.is_file():
        fail(f"{path} is not there: make it with scripts/symbols.py update BUILD-FOLDER.")
    return {line for line in path.read_text(encoding="utf-8").splitlines() if line[:1] != "#"}


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("action", choices=("check", "update"))
    parser.add_argument("build", type=pathlib.Path, help="build folder, such as build/dev")
    arguments = parser.parse_args()

    differences = []
    for library, path in LISTS.items():
        names = exported(arguments.build / "lib" / library)
        if arguments.action == "update":
            path.write_text(f"# What {library} exports; written by scripts/symbols.py.\n"
                            + "".join(f"{name}\n" for name in sorted(names)), encoding="utf-8")
            continue
        before = kept(path)
        differences += [f"{library} no longer exports {name}" for name in sorted(before - names)]
        differences += [f"{library} now exports {name}" for name in sorted(names - before)]
    if differences:
        fail("the exported symbols changed:\n" + "\n".join(differences)
             + "\nIf that is meant, keep it: scripts/symbols.py update BUILD-FOLDER. What no longer is "
               "exported needs a new SOVERSION; what is new, a line in CHANGELOG.md.")


if __name__ == "__main__":
    main()
