#!/usr/bin/env python3
"""Counts the instructions of the library's common work and holds them against the kept counts.

Times differ from run to run, counts under callgrind hardly do. "check" fails when a piece of work
takes more than 10 % more instructions than benchmarks/instructions.json says; "update" writes the
counts there anew. Both need valgrind and an optimised build of panorel-bench-instructions; each build
type has counts of its own.
"""

import argparse
import json
import os
import pathlib
import platform
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
KEPT = ROOT / "benchmarks" / "instructions.json"
PRESET = "ci"
PROGRAM = ROOT / "build" / PRESET / "bin" / "panorel-bench-instructions"
LIMIT = 0.10

COUNTED_WITH = "counted with"
COUNTS = "instructions per operation"


def fail(message):
    sys.exit(f"instructions.py: {message}")


def run(command):
    """Its output, in an environment that cannot change what is counted."""
    kept = {name: os.environ[name] for name in ("PATH", "HOME", "LD_LIBRARY_PATH")
            if name in os.environ}
    result = subprocess.run([str(part) for part in command], env={**kept, "LC_ALL": "C.UTF-8"},
                            capture_output=True, text=True, check=False)
    if result.returncode != 0:
        fail(f"{' '.join(map(str, command))} failed:\n{result.stdout}{result.stderr}")
    return result.stdout


def find_valgrind():
    valgrind = shutil.which("valgrind")
    if not valgrind:
        fail("valgrind is not installed (Debian package: valgrind), and nothing else counts "
             "instructions.")
    return valgrind


def processor():
    """The C library and Qt choose their fastest loops by what the processor can do."""
    try:
        flags = pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").split()
    except OSError:
        flags = []
    return platform.machine() + (" with AVX2" if "avx2" in flags else "")


def surroundings(valgrind, program):
    """What the counts depend on beside the library."""
    if not program.is_file():
        fail(f"{program} is not there. Build it, with valgrind's header installed:\n"
             f"  cmake --preset {PRESET} -DPANOREL_BUILD_BENCHMARKS=ON\n"
             f"  cmake --build --preset {PRESET} --target panorel-bench-instructions")
    about = dict(line.split("=", 1) for line in run([program, "--about"]).splitlines())
    if about.pop("optimised") != "yes":
        fail(f"{program} is not optimised: count a build of type RelWithDebInfo or Release.")
    about["valgrind"] = run([valgrind, "--version"]).strip()
    about["processor"] = processor()
    return about


def count(valgrind, program):
    """Instructions per operation, by work."""
    counts = {}
    with tempfile.TemporaryDirectory() as folder:
        results = pathlib.Path(folder) / "callgrind.out"
        for line in run([program, "--list"]).splitlines():
            work, times = line.split()
            run([valgrind, "--tool=callgrind", "--instr-atstart=no",
                 f"--callgrind-out-file={results}", program, work])
            total = re.search(r"^totals: (\d+)", results.read_text(encoding="utf-8"), re.MULTILINE)
            if not total or int(total[1]) == 0:
                fail(f"callgrind counted nothing for {work}.")
            counts[work] = round(int(total[1]) / int(times), 1)
    return counts


def compare(kept, now):
    """Works that take too many instructions, far fewer, or are in one of the two only."""
    both = kept.keys() & now.keys()
    return {"more": sorted(work for work in both if now[work] > kept[work] * (1 + LIMIT)),
            "fewer": sorted(work for work in both if now[work] < kept[work] * (1 - LIMIT)),
            "odd": sorted(kept.keys() ^ now.keys())}


def table(kept, now):
    lines = ["| work | kept | now | change |", "|---|---|---|---|"]
    for work in list(now) + [work for work in kept if work not in now]:
        before, after = kept.get(work), now.get(work)
        change = f"{(after / before - 1) * 100:+.1f} %" if before and after else ""
        lines.append(f"| {work} | {before or ''} | {after or ''} | {change} |")
    return "\n".join(lines)


def read_kept(path):
    return json.loads(path.read_text(encoding="utf-8")) if path.is_file() else {}


def check(path, build_type, about, now):
    section = read_kept(path).get(build_type)
    if not section:
        fail(f"{path} has no counts of build type {build_type}; scripts/instructions.py update adds "
             "them.")
    kept_about, kept = section[COUNTED_WITH], section[COUNTS]
    verdict = compare(kept, now)
    print(table(kept, now))
    percent = f"{LIMIT * 100:.0f} %"
    if verdict["fewer"]:
        print(f"\nMore than {percent} fewer instructions: {', '.join(verdict['fewer'])}. Keep the "
              "gain: run scripts/instructions.py update.")
    if verdict["odd"]:
        print(f"\nKept but not counted, or counted but not kept: {', '.join(verdict['odd'])}. Run "
              "scripts/instructions.py update.")
    if verdict["more"]:
        print(f"\nMore than {percent} more instructions: {', '.join(verdict['more'])}. Find the "
              "cause; if the cost is meant, run scripts/instructions.py update.")
    for name in sorted(kept_about.keys() | about.keys()):
        if kept_about.get(name) != about.get(name):
            print(f"\nNote: the kept counts are of another {name} ({kept_about.get(name)}; now "
                  f"{about.get(name)}), which alone may change them.")
    return 1 if verdict["more"] or verdict["odd"] else 0


def update(path, build_type, about, now):
    kept = read_kept(path)
    print(table(kept.get(build_type, {}).get(COUNTS, {}), now))
    kept[build_type] = {COUNTED_WITH: about, COUNTS: now}
    path.write_text(json.dumps(kept, indent=2, sort_keys=True) + "\n", encoding="utf-8")
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=["check", "update"])
    parser.add_argument("--program", type=pathlib.Path, default=PROGRAM,
                        help="the built panorel-bench-instructions")
    parser.add_argument("--kept", type=pathlib.Path, default=KEPT, help="the file of kept counts")
    options = parser.parse_args()

    valgrind = find_valgrind()
    about = surroundings(valgrind, options.program.resolve())
    build_type = about.pop("build type")
    now = count(valgrind, options.program.resolve())
    return (check if options.action == "check" else update)(options.kept, build_type, about, now)


if __name__ == "__main__":
    sys.exit(main())
