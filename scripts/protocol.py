#!/usr/bin/env python3
"""Makes docs/protocol.md of protocol/topics.json, the contract of all topics, of
protocol/protocol.md.in, the text around them, and of client/src/areas/, whose functions it names.
"write" writes it; "check" fails when it differs.
"""

import json
import re
import textwrap

from client_functions import FOLDER, functions
from contract import CONTRACT, REFERENCE, generate, how

TEMPLATE = "protocol/protocol.md.in"
DOCUMENT = "docs/protocol.md"

FIRST_LINE = (f"<!-- Generated from {CONTRACT}, {TEMPLATE} and {FOLDER}/ by scripts/protocol.py. Edit"
              " those. -->")
# Where the client's document tells of `send` and `on`.
CLIENT = "client.md#messages-requests-and-events"
WIDTH = 100
KINDS = {"string": "text", "boolean": "truth value", "object": "object"}
# What needs no table of its own.
SHORT = ("presence", "uuid", "date_time", "category")


def paragraph(text, first="", indent=""):
    return textwrap.fill(text, WIDTH, initial_indent=first, subsequent_indent=indent,
                         break_long_words=False, break_on_hyphens=False)


def anchor(heading):
    """Where Markdown lets a link to @p heading lead."""
    return re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def link(heading):
    return f"[{heading}](#{anchor(heading)})"


def table(heads, rows):
    lines = [heads, ["---"] * len(heads), *rows]
    return "\n".join(f"| {' | '.join(cell.replace('|', chr(92) + '|') for cell in line)} |"
                     for line in lines)


def one_of(values):
    texts = [json.dumps(value, ensure_ascii=False) for value in values]
    return texts[0] if len(texts) == 1 else f"{', '.join(texts[:-1])} or {texts[-1]}"


def name_of(schema):
    return schema["$ref"].removeprefix(REFERENCE)


def referred(name):
    if name == "presence":
        return "presence counts"
    if name.startswith("given_"):
        return f"{link(name.removeprefix('given_'))}, handed back"
    return {"uuid": "UUID", "date_time": "time", "category": f"category: text or {link('id')}"}.get(
        name) or link(name)


def kind(schema):
    """What @p schema asks for, in the words of the document."""
    if "$ref" in schema:
        return referred(name_of(schema))
    if "anyOf" in schema:
        return " or ".join(kind(choice) for choice in schema["anyOf"])
    if "const" in schema:
        value = f"`{json.dumps(schema['const'])}`"
        return value if isinstance(schema["const"], bool) else f"text: {json.dumps(schema['const'])}"
    if "enum" in schema:
        return f"text: {one_of(schema['enum'])}"
    if "type" not in schema:
        return "any"
    if schema["type"] == "array":
        return f"list of {kind(schema['items'])}s"
    if isinstance(schema.get("additionalProperties"), dict):
        values = kind(schema["additionalProperties"])
        keys = ", each under a random key" if "propertyNames" in schema else "s"
        return f"object of {values}{keys}" if keys == "s" else f"object: {values}{keys}"
    words = KINDS.get(schema["type"], schema["type"])
    if "minimum" in schema:
        words += f", {schema['minimum']} to {schema['maximum']}"
    return f"{words}, in {schema['unit']}" if "unit" in schema else words


def remark(schema):
    text = schema.get("description", "")
    if "default" in schema:
        text += f" Default {json.dumps(schema['default'])}."
    return text.strip()


def rows(schema, is_request, prefix=""):
    """One for each attribute, those of inner objects behind their own."""
    found = []
    required = schema.get("required", [])
    for name, attribute in schema.get("properties", {}).items():
        words = kind(attribute)
        if is_request and name in required:
            words += ", required"
        elif not is_request and name not in required:
            words += ", may be missing"
        found.append([f"`{prefix}{name}`", words, remark(attribute)])
        found += rows(attribute, is_request, f"{prefix}{name}.")
    return found


def attributes(schema, is_request):
    """Tables, or the sentence that stands for one."""
    if "oneOf" in schema:
        parts = []
        for number, variant in enumerate(schema["oneOf"]):
            parts.append(f"{'or' if number else 'Either'} {variant['title']}:")
            parts.append(attributes(variant, is_request))
        return "\n\n".join(parts)
    found = rows(schema, is_request)
    if found:
        return table(["attribute", "kind", ""], found)
    if schema.get("additionalProperties") is False:
        return "No attributes."
    return f"Attributes: {schema['description'][0].lower()}{schema['description'][1:]}"


def shown(value):
    """An example as it is read best: long codes are cut."""
    if isinstance(value, dict):
        return {key: shown(item) for key, item in value.items()}
    if isinstance(value, str) and len(value) > 40 and " " not in value:
        return value[:value.find(",") + 12] + "…"
    return value


def example(message):
    message = shown(message)
    if "id" in message:
        message = {**message, "id": "{…}"}
    return f"```json\n{broken(message)}\n```"


def broken(value, room=WIDTH - 4):
    """JSON, on several lines when @p room columns do not hold it."""
    line = json.dumps(value, ensure_ascii=False)
    if len(line) <= room or not isinstance(value, dict):
        return line
    members = (f"{json.dumps(key, ensure_ascii=False)}: " for key in value)
    lines = (key + broken(item, room - 2 - len(key)) for key, item in zip(members, value.values()))
    return "{\n" + textwrap.indent(",\n".join(lines), "  ") + "\n}"


def answers(topic):
    """What may come of a request, as a list."""
    if not topic["replies"]:
        return "No reply."
    lines = [f"- {link(reply['topic'])}, {how(reply)}: {reply['when']}"
             for reply in topic["replies"]]
    lines = [paragraph(line, "", "  ") for line in lines]
    if "silent_when" in topic:
        lines.append(paragraph(f"- no answer: {topic['silent_when']}", "", "  "))
    return "Answered by\n\n" + "\n".join(lines)


def quirks(topic):
    if len(topic["quirks"]) < 2:
        return "".join(paragraph(quirk) for quirk in topic["quirks"])
    return "Mind:\n\n" + "\n".join(paragraph(quirk, "- ", "  ") for quirk in topic["quirks"])


def origin(topic):
    """Constant, direction, and whose topic it is."""
    line = f"`{topic['constant']}`, {topic['direction']}"
    if "handler" in topic:
        line += f", handled by `{topic['handler']}`"
    if "publisher" in topic:
        who = topic["publisher"]
        line += f", published by {who if ' ' in who else f'`{who}`'}"
    return line


def occasion(topic):
    when = topic.get("when")
    if not when:
        return ""
    return f" Comes {when}." if when.startswith("in reply") else f" Comes when {when}."


def in_client(topic, known):
    """What of the client, whose functions are @p known, sends or hears @p topic."""
    asked = topic["direction"] != "to page"
    names = {}
    for function in known:
        if topic["topic"] in (function.sends if asked else function.hears):
            names.setdefault(function.file, []).append(f"`{function.name}`")
    parts = [f"{', '.join(found)} in [{file}](../{FOLDER}/{file})" for file, found in names.items()]
    return paragraph("In the client: "
                     + ("; ".join(parts) or f"[`{'send' if asked else 'on'}`]({CLIENT})") + ".")


def section(topic, known):
    asked = topic["direction"] != "to page"
    parts = [f"### {topic['topic']}", origin(topic),
             paragraph(topic["description"] + occasion(topic)),
             attributes(topic["attributes"], asked), example(topic["example"]),
             answers(topic) if asked else "", quirks(topic), in_client(topic, known)]
    return "\n\n".join(part for part in parts if part)


def areas(contract):
    found = []
    for area in contract["areas"]:
        topics = [topic for topic in contract["topics"] if topic["area"] == area["area"]]
        told = [topic["direction"] == "to page" for topic in topics]
        cells = [", ".join(link(topic["topic"]) for topic, is_told in zip(topics, told)
                           if is_told == wanted)
                 for wanted in (False, True)]
        found.append([area["title"], *cells])
    return table(["area", "the page asks", "the page is told"], found)


def records(contract):
    parts = []
    for name, schema in contract["$defs"].items():
        if name in SHORT or name.startswith("given_"):
            continue
        parts += [f"### {name}", schema["description"], attributes(schema, False)]
    return "\n\n".join(parts)


def vocabulary(contract):
    return table(["topic", "constant", "direction"],
                 [[f"`{topic['topic']}`", f"`{topic['constant']}`", topic["direction"]]
                  for topic in sorted(contract["topics"], key=lambda topic: topic["topic"])])


def document(contract, template, known):
    topics = contract["topics"]
    parts = {
        "areas": areas(contract),
        "asked": "\n\n".join(section(topic, known) for topic in topics
                             if topic["direction"].startswith("from page")),
        "told": "\n\n".join(section(topic, known) for topic in topics
                            if topic["direction"] == "to page"),
        "free": "\n\n".join(section(topic, known) for topic in topics
                            if topic["direction"] == "reserved"),
        "records": records(contract),
        "count": str(sum(topic["direction"] == "to page" for topic in topics)),
        "vocabulary": vocabulary(contract),
    }
    text = re.sub(r"@(\w+)@", lambda found: parts[found[1]], template)
    return f"{FIRST_LINE}\n{text}"


def make(contract, root):
    template = (root / TEMPLATE).read_text(encoding="utf-8")
    return {DOCUMENT: document(contract, template, functions(contract, root))}


if __name__ == "__main__":
    generate("protocol.py", __doc__, make)
