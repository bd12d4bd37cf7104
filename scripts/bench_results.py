"""What scripts/bench-table.py and scripts/bench-plots.py know of results of Google Benchmark."""

import collections
import json
import re
import statistics
import sys

# A piece of work, who does it, and its arguments: "publish", "panorel", "96/1".
Case = collections.namedtuple("Case", "group variant arguments")

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
OPTION = re.compile(r"(iterations|repeats|threads|min_time|min_warmup_time):.*"
                    r"|manual_time|real_time|process_time")
NOT_COUNTERS = {"family_index", "per_family_instance_index", "repetitions", "repetition_index",
                "threads", "iterations", "real_time", "cpu_time"}


class Results:
    """Medians of several files."""

    def __init__(self):
        self.times = {}  # nanoseconds by case
        self.counters = {}  # numbers by name, by case
        self.errors = {}  # what went wrong, by case
        self.notes = []  # what is wrong with a file

    def cases(self):
        return self.times.keys() | self.errors.keys()

    def time(self, group, variant, arguments):
        return self.times.get(Case(group, variant, arguments))

    def counter(self, name, group, variant, arguments):
        return self.counters.get(Case(group, variant, arguments), {}).get(name)


class Unreadable(Exception):
    """A file that is not there, holds something else, or repeats another one."""


def case_of(run_name):
    group, *rest = [part for part in run_name.split("/") if not OPTION.fullmatch(part)]
    return Case(group, rest[0] if rest else "", "/".join(rest[1:]))


def time_of(run):
    """Nanoseconds on the clock that the benchmark asked for."""
    asked = set(run["run_name"].split("/")) & {"manual_time", "real_time"}
    return run["real_time" if asked else "cpu_time"] * NANOSECONDS[run["time_unit"]]


def counters_of(run):
    return {name: value for name, value in run.items()
            if name not in NOT_COUNTERS and isinstance(value, (int, float))
            and not isinstance(value, bool)}


def runs_of(text):
    """The runs in a file, and whether it is whole: a program that was stopped leaves a part."""
    try:
        return json.loads(text)["benchmarks"], True
    except ValueError:
        end = text.rfind("\n    }")
    try:
        return json.loads(text[:end] + "}]}")["benchmarks"], False
    except ValueError:
        return [], False


def add_runs(results, runs):
    medians, repetitions = {}, collections.defaultdict(list)
    for run in runs:
        case = case_of(run["run_name"])
        if run.get("error_occurred"):
            results.errors[case] = run.get("error_message") or "no reason given"
        elif run.get("aggregate_name") == "median":
            medians[case] = run
        elif run.get("run_type") == "iteration":
            repetitions[case].append(run)
    for case, alone in repetitions.items():
        if case not in medians:  # there was one repetition only
            times = [time_of(run) for run in alone]
            medians[case] = {**alone[0], "time_unit": "ns",
                             **dict.fromkeys(["real_time", "cpu_time"], statistics.median(times))}
    for case, run in medians.items():
        if case not in results.errors:
            results.times[case] = time_of(run)
            results.counters[case] = counters_of(run)


def read(paths):
    results = Results()
    for path in paths:
        try:
            with open(path, encoding="utf-8") as file:
                runs, whole = runs_of(file.read())
        except OSError as error:
            raise Unreadable(f"{path} cannot be read: {error.strerror}") from error
        except (KeyError, TypeError, UnicodeDecodeError) as error:
            raise Unreadable(f"{path} holds no results of Google Benchmark") from error
        if not whole:
            results.notes.append(f"{path} is not whole: its program was stopped, or failed.")
        again = results.cases() & {case_of(run["run_name"]) for run in runs}
        if again:
            raise Unreadable(f"{path} holds what another file holds, too: {'/'.join(min(again))}")
        add_runs(results, runs)
    return results


def read_or_exit(paths):
    try:
        return read(paths)
    except Unreadable as error:
        sys.exit(f"{sys.argv[0]}: {error}")
