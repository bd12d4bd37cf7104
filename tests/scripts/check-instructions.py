#!/usr/bin/env python3
"""Calls scripts/instructions.py as a person would, with a valgrind and a program that give the
counts of the test: check-instructions.py ROOT"""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(sys.argv[1]) / "scripts" / "instructions.py"

VALGRIND = """#!{python}
import json, pathlib, sys
here = pathlib.Path(__file__).parent
if sys.argv[1:] == ["--version"]:
    print("valgrind-3.0.0")
    sys.exit()
assert sys.argv[1] == "--tool=callgrind", sys.argv
out = next(part.split("=", 1)[1] for part in sys.argv if part.startswith("--callgrind-out-file="))
total = json.loads((here / "totals.json").read_text())[sys.argv[-1]]
pathlib.Path(out).write_text(f"events: Ir\\nsummary: 0\\n\\ntotals: {{total}}\\n")
"""

PROGRAM = """#!{python}
import pathlib, sys
here = pathlib.Path(__file__).parent
print((here / sys.argv[1].lstrip("-")).read_text(), end="")
"""


class InstructionsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.kept = self.folder / "kept.json"
        self.program = self.folder / "program"
        for name, text in [("valgrind", VALGRIND), ("program", PROGRAM)]:
            (self.folder / name).write_text(text.format(python=sys.executable))
            (self.folder / name).chmod(0o755)
        self.give("list", "publish 1000\nmake 10\n")
        self.about()
        self.count(publish=100000, make=5000)
        self.assertEqual(self.call("update")[0], 0)

    def give(self, name, text):
        (self.folder / name).write_text(text)

    def about(self, build="Release", optimised="yes", qt="5.1"):
        self.give("about", f"build type={build}\noptimised={optimised}\ncompiler=GCC 1\nQt={qt}\n"
                  "libc=2\n")

    def count(self, **totals):
        self.give("totals.json", json.dumps(totals))

    def call(self, action, path=None):
        result = subprocess.run(
            [sys.executable, SCRIPT, action, "--program", self.program, "--kept", self.kept],
            env={"PATH": str(path or self.folder)}, capture_output=True, text=True, check=False)
        return result.returncode, result.stdout + result.stderr

    def check_fails(self, *words):
        status, output = self.call("check")
        self.assertEqual(status, 1, output)
        for word in words:
            self.assertIn(word, output)
        return output

    def check_passes(self, *words):
        status, output = self.call("check")
        self.assertEqual(status, 0, output)
        for word in words:
            self.assertIn(word, output)
        return output

    def test_keeps_counts_per_operation(self):
        kept = json.loads(self.kept.read_text())["Release"]
        self.assertEqual(kept["instructions per operation"], {"publish": 100.0, "make": 500.0})
        about = kept["counted with"]
        self.assertEqual(about["valgrind"], "valgrind-3.0.0")
        self.assertEqual(about["Qt"], "5.1")
        self.assertNotIn("optimised", about)

    def test_keeps_each_build_type_by_itself(self):
        self.about(build="RelWithDebInfo")
        self.count(publish=300000, make=5000)
        self.check_fails("no counts of build type RelWithDebInfo", "instructions.py update")
        self.assertEqual(self.call("update")[0], 0)
        self.check_passes("| publish | 300.0 | 300.0 |")
        self.about()
        self.count(publish=100000, make=5000)
        self.check_passes("| publish | 100.0 | 100.0 |")

    def test_passes_the_same_counts(self):
        output = self.check_passes("| publish | 100.0 | 100.0 | +0.0 % |")
        self.assertNotIn("update", output)
        self.assertNotIn("Note", output)

    def test_passes_9_9_percent_more(self):
        self.count(publish=109900, make=5495)
        output = self.check_passes("+9.9 %")
        self.assertNotIn("update", output)

    def test_fails_at_10_1_percent_more(self):
        self.count(publish=110100, make=5000)
        output = self.check_fails("+10.1 %", "more instructions: publish. Find the cause",
                                  "instructions.py update")
        self.assertNotIn("fewer", output)

    def test_fails_when_one_is_more_and_one_fewer(self):
        self.count(publish=50000, make=9000)
        self.check_fails("fewer instructions: publish.", "more instructions: make.")

    def test_passes_9_9_percent_fewer_in_silence(self):
        self.count(publish=90100, make=4505)
        self.assertNotIn("update", self.check_passes("-9.9 %"))

    def test_tells_of_10_1_percent_fewer(self):
        self.count(publish=89900, make=5000)
        self.check_passes("-10.1 %", "fewer instructions: publish.", "instructions.py update")

    def test_passes_after_an_update(self):
        self.count(publish=200000, make=5000)
        self.check_fails("publish")
        self.assertEqual(self.call("update")[0], 0)
        self.check_passes("| publish | 200.0 | 200.0 |")

    def test_fails_for_work_that_is_not_kept(self):
        self.give("list", "publish 1000\nmake 10\nnew 1\n")
        self.count(publish=100000, make=5000, new=1)
        self.check_fails("not kept: new", "instructions.py update")

    def test_fails_for_kept_work_that_is_gone(self):
        self.give("list", "publish 1000\n")
        self.check_fails("not counted", "make", "instructions.py update")

    def test_names_what_else_changed(self):
        self.about(qt="5.2")
        self.check_passes("another Qt (5.1; now 5.2)")
        self.count(publish=200000, make=5000)
        self.check_fails("another Qt (5.1; now 5.2)")

    def test_fails_without_valgrind(self):
        (self.folder / "valgrind").unlink()
        self.check_fails("valgrind is not installed", "Debian package")

    def test_fails_without_a_program(self):
        self.program.unlink()
        self.check_fails("program is not there", "PANOREL_BUILD_BENCHMARKS=ON")

    def test_fails_without_kept_counts(self):
        self.kept.unlink()
        self.check_fails("kept.json has no counts", "instructions.py update")

    def test_fails_for_a_build_that_is_not_optimised(self):
        self.about(optimised="no")
        self.check_fails("not optimised")

    def test_fails_when_nothing_was_counted(self):
        self.count(publish=0, make=5000)
        self.check_fails("counted nothing for publish")

    def test_fails_when_valgrind_fails(self):
        self.count(make=5000)
        self.check_fails("failed:", "KeyError")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
