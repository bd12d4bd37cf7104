#!/usr/bin/env python3
"""Makes tables of results of Google Benchmark: each goal, then each variant beside its limit.

Ends with 1 when something could not be measured because it failed; a missed goal is no failure.
"""

import argparse
import dataclasses
import json
import sys

sys.dont_write_bytecode = True  # leaves no folder beside the scripts

import bench_results  # noqa: E402


@dataclasses.dataclass(frozen=True)
class Comparison:
    """How a measured value is held against that of the limit."""

    name: str
    of: callable  # of the measured value and the limit's
    sign: str = "<="
    before: str = ""  # around its figure
    after: str = ""
    counter: str = None  # what is compared, instead of times

    def meets(self, value, bound):
        return value <= bound if self.sign == "<=" else value >= bound

    def show(self, value, bound):
        """As many digits as it takes to see on which side of the bound it is."""
        digits = 3
        while bound is not None and digits < 9 and (
                self.meets(float(figure(value, digits).replace(",", "")), bound)
                != self.meets(value, bound)):
            digits += 1
        plus = "+" if self.before and value >= 0 else ""
        return plus + figure(value, digits) + self.after


RATIO = Comparison("ratio", lambda value, limit: value / limit)
FASTER = Comparison("times faster", lambda value, limit: limit / value, ">=", after=" x faster")
MORE_TIME = Comparison("ms more", lambda value, limit: (value - limit) / 1e6, before="+",
                       after=" ms")
MORE_MEMORY = Comparison("MiB more", lambda value, limit: (value - limit) / 1024, before="+",
                         after=" MiB", counter="pss_kib")


@dataclasses.dataclass(frozen=True)
class Goal:
    number: int  # None: for information
    work: str
    group: str
    arguments: str
    limit: str
    comparison: Comparison
    bound: float
    measured: str = "panorel"


GOALS = [
    Goal(1, "publish to 1 handler, 96 topics in turn", "publish", "96/1", "direct", RATIO, 1.3),
    Goal(2, "publish to 16 handlers, 96 topics in turn", "publish", "96/16", "direct", RATIO, 1.2),
    Goal(3, "publish to a topic without handlers", "unheard", "96", "direct", RATIO, 0.5),
    Goal(4, "make a message", "make", "", "naive", FASTER, 8),
    Goal(5, "face report 20x5, to an envelope", "envelope", "20/5", "naive", FASTER, 3.5),
    Goal(6, "face report 20x5, to the web channel", "report", "20/5", "raw", RATIO, 1.25),
    Goal(7, "event of 100 bytes, one of many", "events", "100", "raw", RATIO, 1.1),
    Goal(7, "event of 1,000 bytes, one of many", "events", "1000", "raw", RATIO, 1.1),
    Goal(8, "round trip of 100 bytes", "trips", "100", "raw", RATIO, 1.05),
    Goal(9, "round trip of 1 MB", "trips", "1000000", "raw", RATIO, 1.2),
    Goal(10, "round trip of 100 bytes, with the log on", "trips", "100", "panorel", RATIO, 1.15,
         "panorel-with-log"),
    Goal(11, "start: time", "start", "", "bare", MORE_TIME, 5),
    Goal(11, "start: memory", "start", "", "bare", MORE_MEMORY, 2),
    Goal(12, "10 records of statistics, 100 bytes each", "statistics", "10/100", "by-hand", RATIO,
         1.5),
]
OTHERS = [
    Goal(None, "make a message", "make", "", "direct", RATIO, None),
    Goal(None, "round trip of 1,000 bytes, with the log on", "trips", "1000", "panorel", RATIO,
         None, "panorel-with-log"),
    Goal(None, "start: time", "start", "", "bare-with-sound", MORE_TIME, None),
    Goal(None, "start: memory", "start", "", "bare-with-sound", MORE_MEMORY, None),
]

# What the work is called, what its arguments count, and the variant that the others are beside.
GROUPS = {
    "publish": ("publish", ["topic", "handler"], "direct"),
    "unheard": ("publish, unheard", ["topic"], "direct"),
    "make": ("make a message", [], "direct"),
    "envelope": ("face report to an envelope", ["face", "match"], "naive"),
    "report": ("face report to the channel", ["face", "match"], "raw"),
    "events": ("event", ["byte"], "raw"),
    "trips": ("round trip", ["byte"], "raw"),
    "start": ("start", [], "bare"),
    "statistics": ("statistics", ["record", "byte"], "by-hand"),
}


def figure(value, digits=3):
    """Right-sized: "1.80", "16.6", "5,190"."""
    if value == 0:
        return "0"
    mantissa, exponent = f"{value:.{digits - 1}e}".split("e")
    return f"{float(f'{mantissa}e{exponent}'):,.{max(0, digits - 1 - int(exponent))}f}"


def duration(nanoseconds):
    for unit, size in [("ns", 1), ("µs", 1e3), ("ms", 1e6)]:
        if float(f"{nanoseconds / size:.2e}") < 1000:
            return f"{figure(nanoseconds / size)} {unit}"
    return f"{figure(nanoseconds / 1e9)} s"


def memory(kib):
    return f"{figure(kib / 1024)} MiB"


def plural(number, noun):
    ending = "" if number == "1" else "es" if noun.endswith("ch") else "s"
    return f"{int(number):,} {noun}{ending}" if number.isdigit() else number


def work_of(case):
    name, nouns, _ = GROUPS.get(case.group, (case.group, [], None))
    arguments = case.arguments.split("/") if case.arguments else []
    nouns = nouns if len(nouns) == len(arguments) else [""] * len(arguments)
    counts = [plural(*pair) if pair[1] else pair[0] for pair in zip(arguments, nouns)]
    return ", ".join([name, *counts])


def row_of(goal, results):
    """A goal, or a comparison without one, as it goes into the JSON."""
    def value_of(variant):
        if goal.comparison.counter:
            return results.counter(goal.comparison.counter, goal.group, variant, goal.arguments)
        return results.time(goal.group, variant, goal.arguments)

    compare = goal.comparison
    limit, measured, naive = map(value_of, [goal.limit, goal.measured, "naive"])
    cases = {bench_results.Case(goal.group, variant, goal.arguments)
             for variant in (goal.limit, goal.measured)}
    value = compare.of(measured, limit) if measured and limit else None
    beside_limit = compare is RATIO and goal.limit == GROUPS[goal.group][2]
    return {
        "goal": goal.number, "work": goal.work, "limit": goal.limit, "measured": goal.measured,
        "unit": "KiB" if compare.counter else "ns", "limit_value": limit,
        "measured_value": measured, "comparison": compare.name, "value": value,
        "naive_ratio": naive / limit if beside_limit and naive and limit else None,
        "bound": goal.bound,
        "met": None if value is None or goal.bound is None else compare.meets(value, goal.bound),
        "problem": None if value is not None
                   else "failed" if cases & results.errors.keys() else "not measured",
    }


def cells_of(goal, row):
    compare, show = goal.comparison, memory if goal.comparison.counter else duration
    bound = f"{compare.sign} {compare.before}{goal.bound:g}{compare.after}" if goal.bound else ""
    return [
        str(goal.number or ""), goal.work, goal.limit,
        *(show(row[key]) if row[key] else "" for key in ("limit_value", "measured_value")),
        "" if row["value"] is None else compare.show(row["value"], goal.bound),
        figure(row["naive_ratio"]) if row["naive_ratio"] else "", bound,
        row["problem"] or {True: "yes", False: "no", None: ""}[row["met"]],
    ]


def order_of(case):
    """Works as they are listed above, the limit first, the library second."""
    groups = list(GROUPS)
    first = [GROUPS[case.group][2] if case.group in GROUPS else "", "panorel", "naive"]
    arguments = [(not part.isdigit(), int(part) if part.isdigit() else 0, part)
                 for part in case.arguments.split("/")]
    return (groups.index(case.group) if case.group in groups else len(groups), case.group,
            arguments, first.index(case.variant) if case.variant in first else len(first),
            case.variant)


def variants_of(results):
    rows = []
    for case in sorted(results.cases(), key=order_of):
        limit = GROUPS.get(case.group, (None, [], None))[2]
        time, beside = results.times.get(case), results.time(case.group, limit, case.arguments)
        rows.append({
            "work": work_of(case), **case._asdict(), "nanoseconds": time, "limit": limit,
            "ratio": time / beside if time and beside and case.group != "start" else None,
            "messages_per_second": 1e9 / time if time and case.group == "events" else None,
            "counters": results.counters.get(case, {}), "error": results.errors.get(case)})
    return rows


def other_cells(goal, row):
    _, work, limit, limit_value, measured_value, compared, *_ = cells_of(goal, row)
    return [work, limit, limit_value, measured_value, row["problem"] or compared]


def variant_cells(row, before):
    kib, each_second = row["counters"].get("pss_kib"), row["messages_per_second"]
    return ["" if before and before["work"] == row["work"] else row["work"], row["variant"],
            "failed" if row["error"] else duration(row["nanoseconds"]),
            "" if not row["ratio"] else "1" if row["variant"] == row["limit"]
            else figure(row["ratio"]),
            f"{figure(each_second)}/s" if each_second else memory(kib) if kib else ""]


def table(heads, rows):
    """Markdown that lines up on a terminal, too. A head with ">" is set to the right."""
    right = [head.startswith(">") for head in heads]
    lines = [[head.lstrip(">") for head in heads], *rows]
    widths = [max(3, *(len(line[i]) for line in lines)) for i in range(len(heads))]
    lines.insert(1, ["-" * (width - 1) + (":" if to_right else "-")
                     for width, to_right in zip(widths, right)])
    return "\n".join("| " + " | ".join(
        cell.rjust(width) if to_right else cell.ljust(width)
        for cell, width, to_right in zip(line, widths, right)) + " |" for line in lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("results", nargs="+", help="JSON output of Google Benchmark")
    parser.add_argument("--json", help="write the tables there, too")
    parser.add_argument("--machine", help="where it was measured; goes into the JSON")
    options = parser.parse_args()

    results = bench_results.read_or_exit(options.results)
    rows = {goal: row_of(goal, results) for goal in GOALS + OTHERS}
    variants = variants_of(results)
    print("## Goals\n\nFigures without a unit are ratios to the limit.\n")
    print(table([">no.", "work", "limit", ">its cost", ">Panorel", ">compared", ">naive", ">goal",
                 "met"], [cells_of(goal, rows[goal]) for goal in GOALS]))
    print("\n## Without a goal\n")
    print(table(["work", "beside", ">its cost", ">Panorel", ">compared"],
                [other_cells(goal, rows[goal]) for goal in OTHERS]))
    print("\n## All variants\n\nRatios to the variant that has 1.\n")
    print(table(["work", "variant", ">time", ">ratio", ">also"],
                [variant_cells(*pair) for pair in zip(variants, [None, *variants])]))
    failed = [f"{'/'.join(filter(None, case))}: {error}"
              for case, error in sorted(results.errors.items())]
    if failed or results.notes:
        print("\n## Failed\n")
        for line in failed + results.notes:
            print(f"- {line}")
    if options.json:
        kept = {"machine": options.machine, "goals": [rows[goal] for goal in GOALS],
                "others": [rows[goal] for goal in OTHERS], "variants": variants,
                "failed": failed + results.notes}
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump(kept, file, indent=1, ensure_ascii=False)
            file.write("\n")
    return 1 if failed or results.notes else 0


if __name__ == "__main__":
    sys.exit(main())
