"""Which functions of the page's client send or hear a topic, read from its sources: there each topic
stands as a text of its own."""

import dataclasses
import re
import sys

FOLDER = "client/src/areas"

FUNCTION = re.compile(r"^(export )?(?:async )?function (\w+)(.*?)^}$", re.M | re.S)
COMMENT = re.compile(r"/\*.*?\*/|^\s*//.*?$", re.M | re.S)
# A type that names a topic says nothing of what the function does.
TYPE = re.compile(r"\b(?:Request|Event)Topics\['[^']*'\]")
TOPIC = re.compile(r"'([a-z]+(?:\.[a-z]+)+)'")
LISTENS = re.compile(r"\.on\(\s*'([^']*)'")
WAITS = re.compile(r"\.request(?:<\w+>)?\(")
CHOOSES = re.compile(r"\buntil[(:]")


@dataclasses.dataclass
class Function:
    """One that a page may call."""

    name: str
    file: str
    sends: set
    hears: set


def whole(name, bodies, own):
    """The code of function @p name, and that of the functions of its file that it calls and only the
    file knows, @p own."""
    taken, waiting = [], [name]
    while waiting:
        name = waiting.pop()
        taken.append(name)
        waiting += [other for other in own if other not in taken and other not in waiting
                    and re.search(rf"\b{other}\(", bodies[name])]
    return "\n".join(bodies[name] for name in taken)


def answers(request, named, code):
    """Those of the replies to @p request that a function hears: the ones that it names or, where it
    names none, what it waits for. Its `until` also hears what does not end the request."""
    replies = request["replies"]
    known = [reply["topic"] for reply in replies]
    wanted = named & set(known)
    if CHOOSES.search(code):
        interim = {reply["topic"] for reply in replies if "interim" in reply}
        return wanted | interim if wanted else set(known)
    now = [reply["topic"] for reply in replies if reply["how"] == "synchronous"]
    return wanted or set(now or known)


def functions(contract, root):
    """All of them, in the order of files and lines."""
    topics = {topic["topic"]: topic for topic in contract["topics"]}
    found = []
    for path in sorted((root / FOLDER).glob("*.ts")):
        text = TYPE.sub("", COMMENT.sub("", path.read_text(encoding="utf-8")))
        parts = FUNCTION.findall(text)
        bodies = {name: code for _, name, code in parts}
        own = [name for export, name, _ in parts if not export]
        for name in (name for export, name, _ in parts if export and path.stem != "common"):
            code = whole(name, bodies, own)
            named = topics.keys() & set(TOPIC.findall(code))
            sends = {topic for topic in named if topics[topic]["direction"] != "to page"}
            hears = set(LISTENS.findall(code))
            if WAITS.search(code):
                hears |= {reply for topic in sends for reply in answers(topics[topic], named, code)}
            if not sends | hears:
                sys.exit(f"{path.name}: {name} names no topic in single quotes.")
            found.append(Function(name, path.name, sends, hears))
    if not found:
        sys.exit(f"{root / FOLDER} holds no function.")
    return found
