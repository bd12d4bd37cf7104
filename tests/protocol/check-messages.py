#!/usr/bin/env python3
"""Fails when no test used a topic of the contract, or one of its attributes. Arguments: the contract,
the folder where the test programs write what their messages used, and the programs."""

import json
import pathlib
import sys

SKIPPED = 77
# What no test uses, with the reason.
UNUSED = {"parameters.response": "only a host publishes it, with whatever it likes"}


def attributes(schema):
    return {name for variant in schema.get("oneOf", [schema])
            for name in variant.get("properties", {})}


def main():
    contract, folder, *programs = sys.argv[1:]
    files = [pathlib.Path(folder, f"{program}.txt") for program in programs]
    missing = [file.stem for file in files if not file.exists()]
    if missing:
        print(f"These tests have not run yet: {', '.join(missing)}")
        sys.exit(SKIPPED)

    used = {line for file in files for line in file.read_text(encoding="utf-8").splitlines()}
    topics = json.loads(pathlib.Path(contract).read_text(encoding="utf-8"))["topics"]
    wanted = {topic["topic"] for topic in topics}
    wanted |= {f"{topic['topic']} {name}" for topic in topics
               for name in attributes(topic["attributes"])}
    faults = [f"no test used: {name}" for name in sorted(wanted - used - set(UNUSED))]
    faults += [f"a test used, though here is said that none does: {name}"
               for name in sorted(used & set(UNUSED))]
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main()
