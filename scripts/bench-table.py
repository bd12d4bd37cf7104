#!/usr/bin/env python3
"""Turns results of Google Benchmark into ratios: each variant beside the limit of the same work."""

import argparse
import json

# Work, the variant that is its limit, the variant that is measured, the ratio that is the goal.
GOALS = [
    ("publish to 1 handler, 96 topics in turn", "publish", "96/1", "direct", "panorel", 1.3),
    ("publish to 16 handlers, 96 topics in turn", "publish", "96/16", "direct", "panorel", 1.2),
    ("publish to a topic without handlers", "unheard", "96", "direct", "panorel", 0.5),
    ("make a message; beside one made the plain way", "make", "", "naive", "panorel", 1 / 8),
]
VARIANTS = ["panorel", "naive", "qt-signal", "boost-signals2"]


def medians(path):
    """Nanoseconds by (group, variant, arguments)."""
    with open(path, encoding="utf-8") as file:
        results = json.load(file)
    times = {}
    for run in results["benchmarks"]:
        if run.get("aggregate_name") != "median":
            continue
        group, variant, *arguments = run["run_name"].split("/")
        times[group, variant, "/".join(arguments)] = run["cpu_time"]
    return times


def goals_of(times):
    rows = []
    for work, group, arguments, limit, measured, goal in GOALS:
        ratio = times[group, measured, arguments] / times[group, limit, arguments]
        rows.append({"work": work, "limit": limit, "ratio": ratio, "goal": goal,
                     "met": ratio <= goal})
    return rows


def peers_of(times):
    """Every variant of every work, as a ratio to the direct call."""
    rows = []
    for (group, variant, arguments), time in sorted(times.items()):
        limit = times.get((group, "direct", arguments))
        if variant in VARIANTS and limit:
            rows.append({"group": group, "arguments": arguments, "variant": variant,
                         "nanoseconds": time, "ratio": time / limit})
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results", help="JSON output of Google Benchmark")
    parser.add_argument("--json", help="write the table there, too")
    options = parser.parse_args()

    times = medians(options.results)
    goals, peers = goals_of(times), peers_of(times)
    print("| work | beside | ratio | goal | met |\n|---|---|---|---|---|")
    for row in goals:
        print(f"| {row['work']} | {row['limit']} | {row['ratio']:.2f} | <= {row['goal']:.3g} "
              f"| {'yes' if row['met'] else 'no'} |")
    print("\n| work | variant | ns | beside a direct call |\n|---|---|---|---|")
    for row in peers:
        name = "/".join(filter(None, [row["group"], row["arguments"]]))
        print(f"| {name} | {row['variant']} | {row['nanoseconds']:.1f} | {row['ratio']:.2f} |")
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump({"goals": goals, "peers": peers}, file, indent=1)


if __name__ == "__main__":
    main()
