#!/usr/bin/env python3
"""Fails when docs/protocol.md is not what the contract says, when its links lead nowhere, when it
names a function of the client in the wrong place, or when scripts/protocol.py would not notice a change.
Argument: the root of the tree."""

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
AREAS = pathlib.Path("client", "src", "areas")
FILES = [DOCUMENT, pathlib.Path("protocol", "topics.json"),
         pathlib.Path("protocol", "protocol.md.in"), *sorted(
             path.relative_to(ROOT) for path in (ROOT / AREAS).glob("*.ts"))]


def protocol(command, root):
    result = subprocess.run([sys.executable, ROOT / "scripts" / "protocol.py", command,
                             "--root", root], text=True, capture_output=True, check=False)
    return result.returncode, result.stdout + result.stderr


def anchors(text):
    """Where links into a document may lead."""
    return [re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")
            for heading in re.findall(r"^#+ (.*)$", text, re.M)]


def sections(text):
    return dict(re.findall(r"^### (\S+)$(.*?)(?=^##)", text, re.M | re.S))


def in_client(text):
    """What the document says of the client, by topic."""
    found = {topic: re.search(r"^In the client: (.*?)\.$", section, re.M | re.S)
             for topic, section in sections(text).items()}
    return {topic: " ".join(part[1].split()) for topic, part in found.items() if part}


class DocumentTest(unittest.TestCase):
    def setUp(self):
        self.text = (ROOT / DOCUMENT).read_text(encoding="utf-8")
        self.topics = json.loads((ROOT / "protocol" / "topics.json").read_text(encoding="utf-8"))[
            "topics"]

    def test_is_what_the_contract_says(self):
        self.assertEqual(protocol("check", ROOT), (0, ""))

    def test_says_what_it_is_made_of(self):
        first = self.text.splitlines()[0]
        for path in ("protocol/topics.json", "protocol/protocol.md.in", "client/src/areas/",
                     "scripts/protocol.py"):
            self.assertIn(path, first)

    def test_shows_each_topic_with_all_its_attributes(self):
        known = sections(self.text)
        for topic in self.topics:
            section = known[topic["topic"]]
            schema = topic["attributes"]
            for variant in schema.get("oneOf", [schema]):
                for name in variant.get("properties", {}):
                    self.assertIn(f"| `{name}` |", section)
            plain = " ".join(section.split())
            for text in [topic["description"], *topic["quirks"]]:
                self.assertIn(" ".join(text.split()), plain)
            for reply in topic.get("replies", ()):
                how = re.search(rf"- \[{reply['topic']}\]\(\S*\), ([^:]*):", section)[1]
                self.assertEqual("not the outcome" in how, "interim" in reply)
            self.assertIn(f'"type": "{topic["topic"]}"', section)

    def test_links_lead_to_headings(self):
        known = anchors(self.text)
        self.assertEqual(len(set(known)), len(known))
        links = set(re.findall(r"\]\(#([^)]+)\)", self.text))
        self.assertLessEqual(links, set(known))
        self.assertGreater(len(links), 90)

    def test_names_each_function_of_the_client_and_where_it_stands(self):
        document = (ROOT / "docs" / "client.md").read_text(encoding="utf-8")
        table = re.search(r"^## What the robot can do$(.*?)^## ", document, re.M | re.S)[1]
        listed = set(re.findall(r"`(\w+)`", "".join(re.findall(r"^\|.*", table, re.M))))
        said = in_client(self.text)
        self.assertEqual(said.keys(), {topic["topic"] for topic in self.topics})
        named = set()
        for line in said.values():
            for names, file in re.findall(r"((?:`\w+`,? )+)in \[(\w+\.ts)\]", line):
                self.assertIn(f"[{file}](../{AREAS}/{file})", line)
                code = (ROOT / AREAS / file).read_text(encoding="utf-8")
                for name in re.findall(r"\w+", names):
                    named.add(name)
                    self.assertRegex(code, rf"(?m)^export (async )?function {name}\b")
        self.assertEqual(named, listed)

    def test_names_no_function_for_what_none_is_there(self):
        document = (ROOT / "docs" / "client.md").read_text(encoding="utf-8")
        said = in_client(self.text)
        for topic, name in (("cookie.set", "send"), ("dialog.action", "on")):
            found = re.fullmatch(rf"\[`{name}`\]\(client\.md#(\S+)\)", said[topic])
            self.assertIn(found[1], anchors(document))

    def test_names_what_sends_and_what_hears(self):
        said = in_client(self.text)
        for topic, names in {
                "system.play.external": ["play", "stopPlaying"], "system.play.status": ["play"],
                "printer.print": ["print"], "printer.error": ["print"],
                "printer.paper.low": ["print"], "printer.state": ["printerState"],
                "scanner.passport.finish": ["scanPassport"],
                "dispenser.card.dispensing": ["dispense"], "system.general.setted": ["touch"],
                "sip.call.response": ["call"], "system.scripts.end": ["onScriptEnd"],
                "dialog.replica.get": ["getReplica"], "dialog.replica.load": ["getReplica"],
                "system.drive.mode": ["onDrive"], "operator.control.status": ["on"]}.items():
            self.assertEqual(re.findall(r"`(\w+)`", said[topic]), names, topic)


class ScriptTest(unittest.TestCase):
    """In a copy of what it reads and writes."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for file in FILES:
            (self.root / file).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / file, self.root / file)

    def change(self, file, old, new):
        path = self.root / file
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1), encoding="utf-8")

    def test_notices_a_change_of_each_file(self):
        for file, old, new in [(FILES[0], "In any", "In no"), (FILES[1], "In any", "In no"),
                               (FILES[2], "# Topics", "# Messages"),
                               (AREAS / "scripts.ts", "'system.scripts.end'", "'user.lost.user'"),
                               (AREAS / "speech.ts", "export function setLanguage",
                                "export function setTongue"),
                               (AREAS / "operator.ts", "'operator.call.response'",
                                "'operator.control.status'")]:
            self.setUp()
            self.change(file, old, new)
            status, output = protocol("check", self.root)
            self.assertEqual(status, 1)
            self.assertIn("docs/protocol.md is not what", output)
            self.assertIn("scripts/protocol.py write", output)

    def test_notices_a_missing_document(self):
        (self.root / DOCUMENT).unlink()
        self.assertEqual(protocol("check", self.root)[0], 1)

    def test_notices_functions_that_it_cannot_read(self):
        self.change(AREAS / "mail.ts", "'mail.sender.request', mail", "TOPIC, mail")
        status, output = protocol("check", self.root)
        self.assertEqual((status, output), (1, "mail.ts: sendMail names no topic in single quotes.\n"))
        shutil.rmtree(self.root / AREAS)
        status, output = protocol("check", self.root)
        self.assertEqual(status, 1)
        self.assertIn("holds no function", output)

    def test_reads_code_only(self):
        for old, new in [("  let isPlaying", "  // Not 'printer.print'.\n  let isPlaying"),
                         ("url: string,", "url: string | RequestTopics['printer.print']['data'],")]:
            self.change(AREAS / "sound.ts", old, new)
        self.assertEqual(protocol("check", self.root), (0, ""))

    def test_writes_what_it_checks(self):
        self.change(FILES[1], "In any letter case", "In whatever letter case")
        self.assertEqual(protocol("write", self.root), (0, ""))
        self.assertEqual(protocol("check", self.root), (0, ""))
        self.assertIn("In whatever letter case", (self.root / DOCUMENT).read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
