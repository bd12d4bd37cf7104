#!/usr/bin/env python3
"""Fails when the contract of all topics is not sound. Argument: the root of the tree."""

import copy
import json
import pathlib
import re
import sys
import unittest

try:
    from jsonschema import Draft7Validator, Draft202012Validator
except ImportError:
    sys.exit("jsonschema is not installed (Debian package: python3-jsonschema)")

ROOT = pathlib.Path(sys.argv[1]).resolve()


def read(path):
    return json.loads((ROOT / "protocol" / path).read_text(encoding="utf-8"))


CONTRACT = read("topics.json")
SCHEMA = read("topics.schema.json")
TOPICS = CONTRACT["topics"]
# Topics whose attributes are the host's and the page's own affair.
OPEN = {"system.custom.event.core", "parameters.response", "cookie.set", "cookie.set.done",
        "parameters.get", "system.custom.event.js"}


def alone(schema):
    return {**schema, "$defs": CONTRACT["$defs"]}


def attributes(message):
    return {name: value for name, value in message.items() if name not in ("id", "type")}


def parts(value):
    """Every value in @p value, itself first."""
    yield value
    for item in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
        yield from parts(item)


def faults(contract):
    return [f"{'/'.join(map(str, error.absolute_path))}: {error.message}"
            for error in Draft202012Validator(SCHEMA).iter_errors(contract)]


class SchemaTest(unittest.TestCase):
    def test_schema_is_a_schema(self):
        Draft202012Validator.check_schema(SCHEMA)

    def test_contract_keeps_to_its_schema(self):
        self.assertEqual(faults(CONTRACT), [])

    def test_each_schema_is_a_schema(self):
        for schema in [topic["attributes"] for topic in TOPICS] + list(CONTRACT["$defs"].values()):
            for draft in (Draft202012Validator, Draft7Validator):
                draft.check_schema(alone(schema))

    def test_each_example_keeps_to_its_schema(self):
        for topic in TOPICS:
            message = topic["example"]
            self.assertEqual(message["type"], topic["topic"])
            for draft in (Draft202012Validator, Draft7Validator):
                errors = draft(alone(topic["attributes"])).iter_errors(attributes(message))
                self.assertEqual([error.message for error in errors], [], topic["topic"])

    def test_each_default_keeps_to_its_schema(self):
        for schema in parts(CONTRACT):
            if isinstance(schema, dict) and "default" in schema:
                Draft202012Validator(alone(schema)).validate(schema["default"])

    def changed(self, change):
        contract = copy.deepcopy(CONTRACT)
        change(contract, {topic["topic"]: topic for topic in contract["topics"]})
        return faults(contract)

    def test_refuses_what_a_checker_of_draft_7_reads_otherwise(self):
        def other_keyword(_, topics):
            topics["dialog.say"]["attributes"]["unevaluatedProperties"] = False

        def beside_reference(_, topics):
            topics["dialog.say"]["attributes"]["properties"]["face"]["required"] = ["id"]

        def list_of_items(_, topics):
            topics["dialog.action"]["attributes"]["properties"]["meta"]["items"] = [{}]

        for change in (other_keyword, beside_reference, list_of_items):
            self.assertNotEqual(self.changed(change), [], change.__name__)

    def test_refuses_what_lacks_something(self):
        def without(topic, name):
            return lambda _, topics: topics[topic].pop(name)

        for topic, name in [("dialog.say", "replies"), ("dialog.say", "handler"),
                            ("dialog.say", "quirks"), ("dialog.action", "publisher"),
                            ("dialog.action", "when"), ("dialog.action", "example")]:
            self.assertNotEqual(self.changed(without(topic, name)), [], f"{topic} {name}")
        self.assertNotEqual(self.changed(lambda _, topics: topics["dialog.action"]["example"].pop("id")),
                            [])
        self.assertNotEqual(self.changed(lambda _, topics: topics["cookie.set"].update(handler="AHandler")),
                            [])

    def test_refuses_an_interim_mark_that_says_no(self):
        for value in (False, "true", 1):
            self.assertNotEqual(
                self.changed(lambda _, topics: topics["printer.print"]["replies"][-1].update(
                    interim=value)), [])


class SenseTest(unittest.TestCase):
    def test_each_topic_and_each_constant_is_there_once(self):
        for name in ("topic", "constant"):
            values = [topic[name] for topic in TOPICS]
            self.assertEqual(len(set(values)), len(values))

    def test_areas_are_known_and_used(self):
        self.assertEqual({topic["area"] for topic in TOPICS},
                         {area["area"] for area in CONTRACT["areas"]})

    def test_references_lead_somewhere_and_definitions_are_used(self):
        names = {part["$ref"].rpartition("/")[2] for part in parts(CONTRACT)
                 if isinstance(part, dict) and "$ref" in part}
        self.assertEqual(names, set(CONTRACT["$defs"]))

    def test_replies_reach_the_page(self):
        told = {topic["topic"]: topic for topic in TOPICS if topic["direction"] == "to page"}
        for topic in TOPICS:
            for reply in topic.get("replies", ()):
                self.assertIn(reply["topic"], told, topic["topic"])

    def test_each_interim_reply_has_one_that_may_follow(self):
        interim = set()
        for topic in TOPICS:
            replies = topic.get("replies", ())
            marked = {reply["topic"] for reply in replies if "interim" in reply}
            last = {reply["topic"] for reply in replies if "interim" not in reply}
            self.assertEqual(marked & last, set(), topic["topic"])
            self.assertTrue(last or not marked, topic["topic"])
            interim |= marked
        self.assertIn("printer.paper.low", interim)
        self.assertNotIn("printer.success", interim)

    def test_what_comes_in_reply_names_its_request_and_the_request_names_it(self):
        by_name = {topic["topic"]: topic for topic in TOPICS}
        for topic in TOPICS:
            request = re.match(r"in reply to `([a-z.]+)`", topic.get("when", ""))
            if request:
                self.assertIn((topic["topic"], "synchronous"),
                              [(reply["topic"], reply["how"])
                               for reply in by_name[request[1]]["replies"]])

    def test_messages_to_the_page_are_exact(self):
        for topic in TOPICS:
            schema = topic["attributes"]
            for variant in schema.get("oneOf", [schema]):
                self.assertEqual(variant.get("additionalProperties", True), topic["topic"] in OPEN,
                                 topic["topic"])
                if topic["direction"] == "to page" and topic["topic"] not in OPEN:
                    self.assertEqual(variant.get("required", []), list(variant["properties"]),
                                     topic["topic"])

    def test_direction_agrees_with_the_names_in_the_header(self):
        """panorel/Constants.h says of each topic whose it is."""
        header = (ROOT / "panorel" / "Constants.h").read_text(encoding="utf-8")
        found = re.findall(r'^/// "([a-z.]+)"(?:, ([\w:]+))?\n.* QString ([A-Z_]+);$', header, re.M)
        self.assertEqual(sorted((topic, who, constant) for topic, who, constant in found),
                         sorted((topic["topic"], self.whose(topic), topic["constant"])
                                for topic in TOPICS))

    @staticmethod
    def whose(topic):
        who = topic.get("handler", topic.get("publisher", ""))
        return "" if who == "host code" else who


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
