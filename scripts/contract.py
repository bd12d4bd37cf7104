"""What the generators share that make files of protocol/topics.json, the contract of all topics."""

import argparse
import difflib
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CONTRACT = "protocol/topics.json"
# How the contract's schemas name a record of its own.
REFERENCE = "#/$defs/"


def how(reply):
    """When a reply comes, in words."""
    words = "at once" if reply["how"] == "synchronous" else "later"
    return f"{words}, not the outcome" if reply.get("interim") else words


def generate(script, description, make):
    """A program with the commands "write" and "check". @p make gets the contract and the root of the
    tree, and returns the files, as texts by their paths in the tree."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("command", choices=["write", "check"])
    parser.add_argument("--root", type=pathlib.Path, default=ROOT, help="the tree to work in")
    options = parser.parse_args()

    contract = json.loads((options.root / CONTRACT).read_text(encoding="utf-8"))
    differing = []
    for name, text in make(contract, options.root).items():
        path = options.root / name
        if options.command == "write":
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
            continue
        kept = path.read_text(encoding="utf-8") if path.exists() else ""
        if kept != text:
            differing.append(name)
            changes = difflib.unified_diff(kept.splitlines(), text.splitlines(), name,
                                           "what the contract says", lineterm="", n=1)
            print("\n".join(list(changes)[:40]))
    if differing:
        sys.exit(f"{script}: {' and '.join(differing)} is not what {CONTRACT} says, with what stands "
                 f"beside it. Change those, then run: scripts/{script} write")
