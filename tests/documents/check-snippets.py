#!/usr/bin/env python3
"""Fails when a code block of a document is not what the tree holds. Argument: the root of the tree.

Every block is fenced and says what it is:
  cpp FILE, cmake FILE, html FILE, ...   an excerpt of FILE, which is built or run; "..." leaves lines out
  cpp, html                              README.md's examples, which are built and run as they stand
  sh                                     commands: their scripts, options and presets must be there
  json                                   one JSON value a line, or one in all
  text                                   a drawing or what a program prints
"""

import json
import pathlib
import re
import shlex
import subprocess
import sys
import textwrap

ROOT = pathlib.Path(sys.argv[1]).resolve()
BUILT_AS_THEY_STAND = {("README.md", "cpp"), ("README.md", "html")}
TOOLS = {"cmake", "curl", "ctest", "cpack", "cd", "export", "gdb", "git", "npm", "doxygen", "xdg-open"}


def presets():
    data = json.loads((ROOT / "CMakePresets.json").read_text(encoding="utf-8"))
    return {preset["name"] for preset in data["configurePresets"] if not preset.get("hidden")}


def normal(lines):
    """Without indentation, and without the asterisks of a comment."""
    return [re.sub(r"^\* ", "", " ".join(line.split())) for line in lines]


def contains(lines, part):
    return any(lines[at:at + len(part)] == part for at in range(len(lines) - len(part) + 1))


def excerpt_error(body, path):
    if not (ROOT / path).is_file():
        return f"{path} is not there"
    lines = normal((ROOT / path).read_text(encoding="utf-8").splitlines())
    part = []
    for line in [*normal(textwrap.dedent(body).splitlines()), "..."]:
        if line in ("...", "// ...", "# ..."):
            if part and not contains(lines, part):
                return f"{path} does not hold this any more, beginning with: {part[0]}"
            part = []
        else:
            part.append(line)
    return None


HELP = {}


def help_of(script):
    if script not in HELP:
        result = subprocess.run([str(ROOT / script), "--help"], capture_output=True, text=True,
                                check=False)
        HELP[script] = result.stdout if result.returncode == 0 else ""
    return HELP[script]


def command_error(words):
    while words and re.fullmatch(r"\w+=.*", words[0]):
        words = words[1:]
    if not words:
        return None
    program = words[0]
    if "--preset" in words and words[words.index("--preset") + 1] not in presets():
        return f"there is no preset {words[words.index('--preset') + 1]}"
    if program in TOOLS:
        return None
    if not (ROOT / program).is_file():
        return f"{program} is neither a script of this tree nor a known tool"
    for word in words[1:]:
        if word == "--":
            break
        option = word.split("=")[0]
        if option.startswith("--") and option not in help_of(program):
            return f"{program} --help does not tell of {option}"
    return None


def shell_error(body):
    for line in body.replace("\\\n", " ").splitlines():
        text = re.sub(r"(^|\s)#.*", "", line)
        for command in re.split(r"&&|\|\||[|;()]", text):
            words = shlex.split(command)
            error = command_error(words) if words else None
            if error:
                return f"{line.strip()}: {error}"
    return None


def json_error(body):
    try:
        json.loads(body)
        return None
    except ValueError:
        pass
    for line in body.splitlines():
        try:
            json.loads(line or "null")
        except ValueError as error:
            return f"{line.strip()}: {error}"
    return None


def block_error(document, info, body):
    language, _, path = info.partition(" ")
    if path:
        return excerpt_error(body, path)
    if language == "sh":
        return shell_error(body)
    if language == "json":
        return json_error(body)
    if language == "text" or (document, language) in BUILT_AS_THEY_STAND:
        return None
    return f'"```{info}" does not say where the tree holds it'


def main():
    documents = [*ROOT.glob("*.md"), *ROOT.glob("docs/**/*.md"), *ROOT.glob("examples/**/*.md")]
    problems, blocks = [], 0
    for document in sorted(documents):
        name = str(document.relative_to(ROOT))
        text = document.read_text(encoding="utf-8")
        for found in re.finditer(r"^ *```([^\n]*)\n(.*?)^ *```$", text, re.MULTILINE | re.DOTALL):
            blocks += 1
            error = block_error(name, found.group(1).strip(), found.group(2))
            if error:
                line = text.count("\n", 0, found.start()) + 1
                problems.append(f"{name}:{line}: {error}")
        outside = re.sub(r"^ *```.*?^ *```$", "", text, flags=re.MULTILINE | re.DOTALL)
        for found in re.finditer(r"\n\n    [^ \n*-][^\n]*", outside):
            problems.append(f"{name}: fence this block and say what it is: {found.group(0).strip()}")
    if not blocks:
        problems.append(f"no code block in the documents below {ROOT}")
    sys.exit("\n".join(problems) or 0)


if __name__ == "__main__":
    main()
