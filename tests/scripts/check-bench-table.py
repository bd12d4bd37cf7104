#!/usr/bin/env python3
"""Calls scripts/bench-table.py as a person would, with results of the test, and
scripts/bench-plots.py with a gnuplot that tells what it was given: check-bench-table.py ROOT"""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(sys.argv[1]).resolve() / "scripts"

GNUPLOT = """#!{python}
import pathlib, sys
script = sys.stdin.read()
print("<svg><title>Gnuplot</title>" + script + "</svg>")
sys.exit("no such terminal" if (pathlib.Path(__file__).parent / "broken").exists() else 0)
"""


def median(name, time, unit="ns", real_time=None, **counters):
    """What Google Benchmark writes of one run; the other aggregates are there to be passed over."""
    def row(aggregate, factor):
        return {"name": f"{name}_{aggregate}", "run_name": name, "run_type": "aggregate",
                "repetitions": 3, "threads": 1, "aggregate_name": aggregate, "iterations": 3,
                "real_time": factor * (7e9 if real_time is None else real_time),
                "cpu_time": factor * time, "time_unit": unit,
                **{counter: factor * value for counter, value in counters.items()}}
    return [row("mean", 3), row("median", 1), row("stddev", 5), row("cv", 0.1)]


def repetition(name, time, index=0):
    return {"name": name, "run_name": name, "run_type": "iteration", "repetitions": 1,
            "repetition_index": index, "threads": 1, "iterations": 3, "real_time": 7e9,
            "cpu_time": time, "time_unit": "ns"}


def failure(name, message):
    return {**repetition(name, 0), "error_occurred": True, "error_message": message}


class ScriptTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, runs, name="results.json"):
        path = self.folder / name
        path.write_text(json.dumps({"context": {}, "benchmarks": runs}, indent=2))
        return path

    def call(self, script, *arguments, path=None):
        result = subprocess.run([sys.executable, SCRIPTS / script, *arguments], text=True,
                                capture_output=True, check=False, cwd=self.folder,
                                env={"PATH": str(path or self.folder), "PYTHONUTF8": "1"})
        return result.returncode, result.stdout, result.stderr


class TableTest(ScriptTest):
    def tables(self, *runs, status=0):
        """The JSON, and the cells of each line of the Markdown tables."""
        files = [self.write(run, f"{number}.json") for number, run in enumerate(runs)]
        ended, out, err = self.call("bench-table.py", *files, "--json", "out.json")
        self.assertEqual(ended, status, out + err)
        self.assertEqual(err, "")
        self.text = out
        lines = [line for line in out.splitlines() if line.startswith("|")]
        return (json.loads((self.folder / "out.json").read_text(encoding="utf-8")),
                [[cell.strip() for cell in line.strip("|").split("|")] for line in lines])

    def goal(self, work, *runs, **options):
        """The row of one goal, in both forms."""
        kept, lines = self.tables(*runs, **options)
        rows = [row for row in kept["goals"] if work in row["work"]]
        self.assertEqual(len(rows), 1, work)
        shown = [cells for cells in lines if cells[1:2] == [rows[0]["work"]]]
        return rows[0], shown[0]

    def verdict(self, work, *runs):
        row, cells = self.goal(work, list(sum(runs, [])))
        self.assertEqual(cells[-1], {True: "yes", False: "no"}[row["met"]])
        return row["met"], cells[5]

    def test_ratio_meets_its_goal_at_the_bound(self):
        limit = median("publish/direct/96/1", 100)
        self.assertEqual(self.verdict("to 1 handler", limit, median("publish/panorel/96/1", 130)),
                         (True, "1.30"))

    def test_ratio_misses_its_goal_just_beyond_and_shows_it(self):
        limit = median("publish/direct/96/1", 100)
        self.assertEqual(self.verdict("to 1 handler", limit, median("publish/panorel/96/1", 130.1)),
                         (False, "1.301"))

    def test_times_faster_meets_its_goal_at_the_bound(self):
        self.assertEqual(self.verdict("make a message", median("make/naive", 800),
                                      median("make/panorel", 100)), (True, "8.00 x faster"))

    def test_times_faster_misses_its_goal_just_below(self):
        self.assertEqual(self.verdict("make a message", median("make/naive", 799.9),
                                      median("make/panorel", 100)), (False, "7.999 x faster"))

    def start(self, time, kib):
        return [median("start/bare/iterations:1/manual_time", 1, "ms", 60, pss_kib=100000),
                median("start/panorel/iterations:1/manual_time", 1, "ms", time, pss_kib=kib)]

    def test_difference_meets_its_goal_at_the_bound(self):
        self.assertEqual(self.verdict("start: time", *self.start(65, 1)), (True, "+5.00 ms"))
        self.assertEqual(self.verdict("start: memory", *self.start(1, 102048)),
                         (True, "+2.00 MiB"))

    def test_difference_misses_its_goal_just_beyond(self):
        self.assertEqual(self.verdict("start: time", *self.start(65.01, 1)), (False, "+5.01 ms"))
        self.assertEqual(self.verdict("start: memory", *self.start(1, 102049)),
                         (False, "+2.001 MiB"))

    def test_difference_may_be_a_gain(self):
        self.assertEqual(self.verdict("start: time", *self.start(58.5, 1)), (True, "-1.50 ms"))

    def test_each_goal_has_its_own_limit_and_bound(self):
        kept, _ = self.tables(median("make/naive", 1))
        self.assertEqual(
            [(row["goal"], row["limit"], row["comparison"], row["bound"]) for row in kept["goals"]],
            [(1, "direct", "ratio", 1.3), (2, "direct", "ratio", 1.2), (3, "direct", "ratio", 0.5),
             (4, "naive", "times faster", 8), (5, "naive", "times faster", 3.5),
             (6, "raw", "ratio", 1.25), (7, "raw", "ratio", 1.1), (7, "raw", "ratio", 1.1),
             (8, "raw", "ratio", 1.05), (9, "raw", "ratio", 1.2), (10, "panorel", "ratio", 1.15),
             (11, "bare", "ms more", 5), (11, "bare", "MiB more", 2),
             (12, "by-hand", "ratio", 1.5)])

    def test_log_is_held_against_the_library_without_it(self):
        runs = [*median("trips/panorel/100", 100), *median("trips/panorel-with-log/100", 115),
                *median("trips/panorel/1000", 100), *median("trips/panorel-with-log/1000", 250)]
        self.assertEqual(self.verdict("100 bytes, with the log", runs), (True, "1.15"))
        kept, lines = self.tables(runs)
        self.assertEqual([row["value"] for row in kept["others"] if "1,000" in row["work"]], [2.5])
        self.assertIn("2.50", next(line for line in lines if "1,000 bytes, with" in line[0]))

    def test_start_is_held_against_sound_without_a_goal(self):
        kept, lines = self.tables(sum(self.start(62, 1024), []) + median(
            "start/bare-with-sound/iterations:1/manual_time", 1, "ms", 61, pss_kib=512))
        self.assertEqual([row["value"] for row in kept["others"] if "start" in row["work"]],
                         [1, 0.5])
        self.assertIn(["start: memory", "bare-with-sound", "0.500 MiB", "1.00 MiB", "+0.500 MiB"],
                      lines)

    def test_units_become_nanoseconds_and_are_right_sized(self):
        kept, lines = self.tables([run for number, unit in enumerate(["ns", "us", "ms", "s"])
                                   for run in median(f"publish/direct/{number}/1", 1.5, unit)])
        self.assertEqual([row["nanoseconds"] for row in kept["variants"]],
                         [1.5, 1.5e3, 1.5e6, 1.5e9])
        self.assertEqual([line[2] for line in lines[-4:]],
                         ["1.50 ns", "1.50 µs", "1.50 ms", "1.50 s"])

    def test_three_digits(self):
        times = [0.0501234, 9.996, 88, 999.4, 999.6, 12345]
        _, lines = self.tables([run for number, time in enumerate(times)
                                for run in median(f"publish/direct/{number}/1", time)])
        self.assertEqual([line[2] for line in lines[-6:]],
                         ["0.0501 ns", "10.0 ns", "88.0 ns", "999 ns", "1.00 µs", "12.3 µs"])

    def test_clock_is_the_one_in_the_name_and_suffixes_go(self):
        kept, _ = self.tables([
            *median("publish/direct/96/1", 1, real_time=2),
            *median("publish/panorel/96/1/iterations:3/manual_time", 1, real_time=3),
            *median("publish/naive/96/1/repeats:4/real_time", 1, real_time=4),
            *median("publish/qt-signal/96/1/min_time:0.200/process_time", 1, real_time=5),
            *median("make/naive/process_time/real_time", 1, real_time=6)])
        self.assertEqual([(row["variant"], row["arguments"], row["nanoseconds"])
                          for row in kept["variants"]],
                         [("direct", "96/1", 1), ("panorel", "96/1", 3), ("naive", "96/1", 4),
                          ("qt-signal", "96/1", 1), ("naive", "", 6)])

    def test_missing_variant_is_not_measured(self):
        for runs in (median("report/raw/20/5", 100), median("report/panorel/20/5", 100)):
            row, cells = self.goal("web channel", runs)
            self.assertIsNone(row["met"])
            self.assertEqual(row["problem"], "not measured")
            self.assertEqual(cells[-1], "not measured")

    def test_failed_run_is_told(self):
        runs = [*median("events/raw/100", 100),
                failure("events/panorel/100/manual_time", "too late")]
        row, cells = self.goal("event of 100", runs, status=1)
        self.assertIsNone(row["met"])
        self.assertEqual(cells[-1], "failed")
        self.assertIn("\n- events/panorel/100: too late\n", self.text)
        self.assertIn("| failed |", self.text.split("## All variants")[1])

    def test_one_failed_repetition_spoils_the_median(self):
        runs = [*median("events/raw/100", 100), *median("events/panorel/100", 100),
                failure("events/panorel/100", "too late")]
        self.assertEqual(self.goal("event of 100", runs, status=1)[1][-1], "failed")

    def test_takes_repetitions_when_there_is_no_median(self):
        runs = [*median("make/naive", 800), *(repetition("make/panorel", time, index)
                                              for index, time in enumerate([90, 100, 1000]))]
        self.assertEqual(self.verdict("make a message", runs), (True, "8.00 x faster"))

    def test_naive_is_beside_the_same_limit(self):
        row, cells = self.goal("to 16 handlers", [
            *median("publish/direct/96/16", 50), *median("publish/panorel/96/16", 55),
            *median("publish/naive/96/16", 90)])
        self.assertEqual((row["naive_ratio"], cells[6]), (1.8, "1.80"))
        row, _ = self.goal("100 bytes, with the log", [
            *median("trips/panorel/100", 50), *median("trips/panorel-with-log/100", 55),
            *median("trips/naive/100", 90)])
        self.assertIsNone(row["naive_ratio"])

    def test_variants_are_beside_their_limit(self):
        kept, lines = self.tables([*median("events/naive/1000", 40000), *median("other/a/1", 7),
                                   *median("events/raw/1000", 20, "us")])
        self.assertEqual([(row["variant"], row["ratio"], row["messages_per_second"])
                          for row in kept["variants"]],
                         [("raw", 1, 50000), ("naive", 2, 25000), ("a", None, None)])
        self.assertEqual(lines[-3:], [["event, 1,000 bytes", "raw", "20.0 µs", "1", "50,000/s"],
                                      ["", "naive", "40.0 µs", "2.00", "25,000/s"],
                                      ["other, 1", "a", "7.00 ns", "", ""]])

    def test_lines_up(self):
        self.tables(median("publish/direct/96/1", 100))
        for block in self.text.split("\n\n"):
            self.assertLessEqual(len({len(line) for line in block.strip().splitlines()
                                      if line.startswith("|")}), 1, block)

    def test_limit_and_variant_may_be_in_two_files(self):
        self.assertEqual(self.goal("make a message", median("make/naive", 800),
                                   median("make/panorel", 100))[1][-1], "yes")

    def test_part_of_a_file_is_used_and_told(self):
        path = self.write(median("make/naive", 800) + median("make/panorel", 100))
        text = path.read_text()
        path.write_text(text[:text.rindex("aggregate_name")])
        status, out, _ = self.call("bench-table.py", path)
        self.assertEqual(status, 1)
        self.assertRegex(out, r"8\.00 x faster .* yes")
        self.assertIn("results.json is not whole", out)
        path.write_text("")
        self.assertEqual(self.call("bench-table.py", path)[0], 1)

    def test_refuses_what_it_cannot_use(self):
        one, two = (self.write(median("make/naive", 8), name) for name in ("one", "two"))
        (self.folder / "list").write_text("[]")
        for files, message in [(["gone"], "gone cannot be read"),
                               (["list"], "list holds no results"),
                               ([one, two], "two holds what another file holds, too: make/naive")]:
            status, out, err = self.call("bench-table.py", *files)
            self.assertEqual((status, out), (1, ""))
            self.assertIn(message, err)
            self.assertNotIn("Traceback", err)


class PlotsTest(ScriptTest):
    def setUp(self):
        super().setUp()
        (self.folder / "gnuplot").write_text(GNUPLOT.format(python=sys.executable))
        (self.folder / "gnuplot").chmod(0o755)
        self.results = self.write([
            *median("envelope/panorel/1/5", 20000), *median("envelope/panorel/2/5", 30, "us"),
            *median("envelope/panorel/20/6", 1), *median("envelope/naive/1/5", 50000),
            *median("envelope/naive/5/5", 90000)])

    def test_draws_what_was_measured(self):
        status, _, err = self.call("bench-plots.py", self.results, "--out", "plots")
        self.assertEqual(status, 0, err)
        self.assertEqual([file.name for file in (self.folder / "plots").iterdir()],
                         ["envelope-faces.svg"])
        self.assertIn("nothing was measured for trips-bytes.svg", err)
        script = (self.folder / "plots" / "envelope-faces.svg").read_text(encoding="utf-8")
        self.assertIn("<title>Making a face report", script)
        self.assertIn("time for a report (µs)", script)
        self.assertIn("set yrange [10:1000]", script)
        self.assertIn("<< END\n1 50\n\n5 90\n", script)  # a gap where 2 is missing
        self.assertIn("<< END\n1 20\n2 30\n", script)

    def test_fails_without_gnuplot(self):
        status, _, err = self.call("bench-plots.py", self.results, "--out", "p", path="/nowhere")
        self.assertEqual(status, 1)
        self.assertIn("gnuplot is not installed (Debian package: gnuplot-nox)", err)

    def test_fails_when_gnuplot_fails(self):
        (self.folder / "broken").touch()
        status, _, err = self.call("bench-plots.py", self.results, "--out", "p")
        self.assertEqual(status, 1)
        self.assertIn("no such terminal", err)
        self.assertEqual(list((self.folder / "p").iterdir()), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
