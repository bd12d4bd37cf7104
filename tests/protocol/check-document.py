#!/usr/bin/env python3
"""Fails when docs/protocol.md is not what the contract says, when its links lead nowhere, or when
scripts/protocol.py would not notice. Argument: the root of the tree."""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv[1]).resolve()
DOCUMENT = pathlib.Path("docs", "protocol.md")
FILES = [DOCUMENT, pathlib.Path("protocol", "topics.json"),
         pathlib.Path("protocol", "protocol.md.in")]


def protocol(command, root):
    result = subprocess.run([sys.executable, ROOT / "scripts" / "protocol.py", command,
                             "--root", root], text=True, capture_output=True, check=False)
    return result.returncode, result.stdout + result.stderr


class DocumentTest(unittest.TestCase):
    def setUp(self):
        self.text = (ROOT / DOCUMENT).read_text(encoding="utf-8")
        self.topics = json.loads((ROOT / "protocol" / "topics.json").read_text(encoding="utf-8"))[
            "topics"]

    def test_is_what_the_contract_says(self):
        self.assertEqual(protocol("check", ROOT), (0, ""))

    def test_says_what_it_is_made_of(self):
        first = self.text.splitlines()[0]
        for path in ("protocol/topics.json", "protocol/protocol.md.in", "scripts/protocol.py"):
            self.assertIn(path, first)

    def test_shows_each_topic_with_all_its_attributes(self):
        sections = dict(re.findall(r"^### (\S+)$(.*?)(?=^##)", self.text, re.M | re.S))
        for topic in self.topics:
            section = sections[topic["topic"]]
            schema = topic["attributes"]
            for variant in schema.get("oneOf", [schema]):
                for name in variant.get("properties", {}):
                    self.assertIn(f"| `{name}` |", section)
            plain = " ".join(section.split())
            for text in [topic["description"], *topic["quirks"]]:
                self.assertIn(" ".join(text.split()), plain)
            for reply in topic.get("replies", ()):
                self.assertIn(reply["topic"], section)
            self.assertIn(f'"type": "{topic["topic"]}"', section)

    def test_links_lead_to_headings(self):
        headings = re.findall(r"^#+ (.*)$", self.text, re.M)
        anchors = [re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")
                   for heading in headings]
        self.assertEqual(len(set(anchors)), len(anchors))
        links = set(re.findall(r"\]\(#([^)]+)\)", self.text))
        self.assertLessEqual(links, set(anchors))
        self.assertGreater(len(links), 90)


class ScriptTest(unittest.TestCase):
    """In a copy of what it reads and writes."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for file in FILES:
            (self.root / file).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / file, self.root / file)

    def change(self, file, old, new):
        path = self.root / file
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def test_notices_a_change_of_each_file(self):
        for file, old, new in [(FILES[0], "In any", "In no"), (FILES[1], "In any", "In no"),
                               (FILES[2], "# Topics", "# Messages")]:
            self.setUp()
            self.change(file, old, new)
            status, output = protocol("check", self.root)
            self.assertEqual(status, 1)
            self.assertIn("docs/protocol.md is not what", output)
            self.assertIn("scripts/protocol.py write", output)

    def test_notices_a_missing_document(self):
        (self.root / DOCUMENT).unlink()
        self.assertEqual(protocol("check", self.root)[0], 1)

    def test_writes_what_it_checks(self):
        self.change(FILES[1], "In any letter case", "In whatever letter case")
        self.assertEqual(protocol("write", self.root), (0, ""))
        self.assertEqual(protocol("check", self.root), (0, ""))
        self.assertIn("In whatever letter case", (self.root / DOCUMENT).read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
