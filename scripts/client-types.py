#!/usr/bin/env python3
"""Makes the types of the page's client of protocol/topics.json, the contract of all topics:
client/src/topics.ts, and the examples of its fake robot, client/src/testing/examples.ts. "write"
writes them; "check" fails when they differ.
"""

import json
import re
import textwrap

from contract import CONTRACT, REFERENCE, generate, how

TYPES = "client/src/topics.ts"
EXAMPLES = "client/src/testing/examples.ts"

FIRST_LINE = f"// Generated from {CONTRACT} by scripts/client-types.py. Edit that."
WIDTH = 100
SCALARS = {"string": "string", "integer": "number", "number": "number", "boolean": "boolean"}
# What a page writes where the presence of an attribute counts: `false` would count, too.
PRESENCE = "true"


def quoted(text):
    """@p text as a string literal with single quotes."""
    return "'" + json.dumps(text, ensure_ascii=False)[1:-1].replace('\\"', '"').replace("'", "\\'") + "'"


def key(name):
    return name if re.fullmatch(r"[A-Za-z_]\w*", name) else quoted(name)


def type_name(name):
    return "".join(part.capitalize() for part in name.split("_"))


def name_of(schema):
    return schema["$ref"][len(REFERENCE):]


def plain(text):
    """What a comment can hold, without the emphasis of the document."""
    return text.replace("**", "").replace("*/", "* /")


def comment(paragraphs, indent=""):
    """A doc comment, or nothing."""
    lines = []
    for paragraph in paragraphs:
        if lines and not paragraph.startswith("- "):
            lines.append("")
        first, rest = ("- ", "  ") if paragraph.startswith("- ") else ("", "")
        lines += textwrap.wrap(plain(paragraph.removeprefix("- ")), WIDTH - len(indent) - 3,
                               initial_indent=first, subsequent_indent=rest,
                               break_long_words=False, break_on_hyphens=False)
    if not lines:
        return ""
    if len(lines) == 1 and len(indent) + len(lines[0]) + 7 <= WIDTH:
        return f"{indent}/** {lines[0]} */\n"
    body = "".join(f"{indent} * {line}".rstrip() + "\n" for line in lines)
    return f"{indent}/**\n{body}{indent} */\n"


def remarks(schema):
    """What the type of @p schema cannot say."""
    words = [schema["description"]] if "description" in schema else []
    if schema.get("type") == "integer":
        words.append("An integer.")
    if "minimum" in schema:
        words.append(f"From {schema['minimum']} to {schema['maximum']}.")
    if "unit" in schema:
        words.append(f"In {schema['unit']}.")
    if "default" in schema:
        words.append(f"Default `{json.dumps(schema['default'])}`.")
    return [" ".join(words)] if words else []


def expression(schema, indent):
    """The TypeScript type of @p schema."""
    if "$ref" in schema:
        return type_name(name_of(schema))
    for choice in ("anyOf", "oneOf"):
        if choice in schema:
            return union(schema[choice], indent)
    if "const" in schema:
        value = schema["const"]
        return quoted(value) if isinstance(value, str) else json.dumps(value)
    if "enum" in schema:
        return " | ".join(quoted(value) for value in schema["enum"])
    kind = schema.get("type")
    if kind is None:
        return "unknown"
    if kind == "array":
        items = expression(schema["items"], indent)
        return f"{items}[]" if re.fullmatch(r"\w+", items) else f"({items})[]"
    if kind == "object":
        return structure(schema, indent)
    return SCALARS[kind]


def union(choices, indent):
    """One of several; objects among them also name each other's members, as missing, so that a page
    may ask for any of them."""
    names = [name for choice in choices for name in choice.get("properties", {})]
    parts = []
    for choice in choices:
        others = [name for name in dict.fromkeys(names) if name not in choice.get("properties", {})]
        is_object = choice.get("type") == "object"
        parts.append(structure(choice, indent + "  ", others) if is_object
                     else expression(choice, indent))
    if not any("\n" in part for part in parts):
        return " | ".join(parts)
    return "".join(f"\n{indent}  | {part}" for part in parts)


def structure(schema, indent, missing=()):
    """An object type."""
    properties = schema.get("properties")
    more = schema.get("additionalProperties")
    if isinstance(more, dict) and not properties:
        return f"{{ [key: string]: {expression(more, indent)} }}"
    if properties is None:
        return "{ [name: string]: unknown }"
    if not properties:
        return "Nothing"
    inner = indent + "  "
    required = schema.get("required", [])
    text = f"{inner}// {schema['title']}\n" if missing else ""
    for name, member in properties.items():
        mark = "" if name in required else "?"
        text += comment(remarks(member), inner)
        text += f"{inner}{key(name)}{mark}: {expression(member, inner)}\n"
    text += "".join(f"{inner}{key(name)}?: undefined\n" for name in missing)
    return "{\n" + text + indent + "}"


def record(name, schema):
    lines = comment([schema["description"]])
    if name == "presence":
        lines = comment([schema["description"] + " Write `true`, or leave it out: `false` would not"
                         " switch it off."])
        return f"{lines}export type Presence = {PRESENCE}\n"
    if schema.get("type") == "object":
        return f"{lines}export interface {type_name(name)} {expression(schema, '')}\n"
    return f"{lines}export type {type_name(name)} = {expression(schema, '')}\n"


def member(topic):
    """One line of RequestTopics or EventTopics, with all that an author must know."""
    told = [topic["description"]]
    if "when" in topic:
        when = topic["when"]
        told.append(f"Comes {'' if when.startswith('in reply') else 'when '}{when}.")
    told += [f"- {reply['topic']}, {how(reply)}: {reply['when']}"
             for reply in topic.get("replies", [])]
    if "silent_when" in topic:
        told.append(f"- no answer: {topic['silent_when']}")
    told += topic["quirks"]
    return (comment(told, "  ")
            + f"  {quoted(topic['topic'])}: {expression(topic['attributes'], '  ')}\n".replace(
                ": \n", ":\n"))


def split(topic):
    """The replies of a request: those at once, those later, and those of both that never end it."""
    parts = {"now": [], "later": [], "interim": []}
    for reply in topic["replies"]:
        parts["now" if reply["how"] == "synchronous" else "later"].append(reply["topic"])
        if reply.get("interim"):
            parts["interim"].append(reply["topic"])
    return parts


def reply_types(asked):
    text = ""
    for topic in asked:
        members = "".join(f"    {part}: {' | '.join(map(quoted, names)) or 'never'}\n"
                          for part, names in split(topic).items())
        text += f"  {quoted(topic['topic'])}: {{\n{members}  }}\n"
    return text


def reply_table(asked):
    text = ""
    for topic in asked:
        lists = list(split(topic).values())
        while not lists[-1]:
            lists.pop()
        text += f"  {quoted(topic['topic'])}: [\n"
        text += "".join(textwrap.fill(f"[{', '.join(map(quoted, names))}],", WIDTH,
                                      initial_indent="    ", subsequent_indent="      ",
                                      break_on_hyphens=False) + "\n" for names in lists)
        text += "  ],\n"
    return text


KIND_LETTERS = {"string": "s", "integer": "n", "number": "n", "boolean": "b", "array": "a",
                "object": "o"}


def kinds(schema, definitions):
    """The kinds of JSON that @p schema allows, a letter for each; none where it allows any."""
    if "$ref" in schema:
        return kinds(definitions[name_of(schema)], definitions)
    for choice in ("anyOf", "oneOf"):
        if choice in schema:
            parts = [kinds(one, definitions) for one in schema[choice]]
            return "".join(sorted(set("".join(parts)))) if all(parts) else ""
    return KIND_LETTERS[schema["type"]] if "type" in schema else ""


def attribute_table(requests, definitions):
    text = ""
    for topic in requests:
        schema = topic["attributes"]
        required = schema.get("required", [])
        names = [f"{name}:{kinds(member, definitions)}{'!' if name in required else ''}"
                 for name, member in schema.get("properties", {}).items()]
        if schema.get("additionalProperties") is not False:
            names.append("*")
        value = quoted(" ".join(names))
        line = f"  {quoted(topic['topic'])}: {value},\n"
        text += line if len(line) <= WIDTH + 1 else line.replace(": ", ":\n    ", 1)
    return text


def types(contract):
    topics = contract["topics"]
    requests = [topic for topic in topics if topic["direction"] != "to page"]
    events = [topic for topic in topics if topic["direction"] == "to page"]
    asked = [topic for topic in requests if topic["replies"]]
    records = "\n".join(record(name, schema) for name, schema in contract["$defs"].items())
    return f"""{FIRST_LINE}

/** No attributes. */
export type Nothing = {{ [name: string]: never }}

{records}
/** What the page can ask: topic and attributes. */
export interface RequestTopics {{
{''.join(map(member, requests))}}}

/** What the page is told: topic and attributes. */
export interface EventTopics {{
{''.join(map(member, events))}}}

/**
 * Which topics may come of a request: before the robot has done with it ("now") and at any time
 * ("later"); "interim" names those of them that never end it, since another reply follows.
 */
export interface ReplyTopics {{
{reply_types(asked)}}}

/** ReplyTopics at run time: now, later, interim; empty lists at the end are left out. */
export const replyTopics: {{ readonly [topic: string]: readonly (readonly string[])[] }} = {{
{reply_table(asked)}}}

/**
 * RequestTopics at run time: the attributes' names, each with letters for the kinds of JSON that it
 * may be (none: any) and "!" when it is needed; "*" for any other attribute.
 */
export const requestAttributes: {{ readonly [topic: string]: string }} = {{
{attribute_table(requests, contract["$defs"])}}}
"""


def examples(contract):
    """The attributes of what the page is told, as the contract's examples have them."""
    lines = ""
    for topic in contract["topics"]:
        if topic["direction"] == "to page":
            attributes = {name: value for name, value in topic["example"].items()
                          if name not in ("id", "type")}
            value = json.dumps(attributes, ensure_ascii=False, indent=2).replace("\n", "\n  ")
            lines += f"  {quoted(topic['topic'])}: {value},\n"
    return f"""{FIRST_LINE}

import type {{ EventTopics }} from '../topics.js'

/** What the robot may tell, one example for each topic. */
export const examples: EventTopics = {{
{lines}}}
"""


def make(contract, _):
    return {TYPES: types(contract), EXAMPLES: examples(contract)}


if __name__ == "__main__":
    generate("client-types.py", __doc__, make)
