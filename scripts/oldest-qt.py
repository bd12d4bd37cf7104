#!/usr/bin/python3
"""Fails where the library uses API that is younger than the oldest Qt it supports.

The versions are those that Qt's own documentation gives ("This function was introduced in Qt 5.10");
what is used is read off the sources by clang: every function, class, enumeration value and macro-free
name that a source or header of panorel/ or host/ refers to, implicit constructors and conversions
included. What the documentation does not describe is not seen.

Argument: a build folder with compile_commands.json. Debian's own Python runs this, since it has
clang's bindings (packages python3-clang-14, qt*5-doc-html).
"""

import collections
import html
import json
import multiprocessing
import pathlib
import re
import shlex
import sys

OLDEST = (5, 9)
DOCUMENTATION = pathlib.Path("/usr/share/qt5/doc")
ROOT = pathlib.Path(__file__).resolve().parent.parent
OURS = [ROOT / "panorel", ROOT / "host"]

# What is fit for the oldest Qt in spite of its date, each with the reason.
FIT = {
    # Documented for QMutex, whose base it takes; only the one for QRecursiveMutex is young.
    "QMutexLocker::QMutexLocker(QBasicMutex*)",
    # Called with a separator alone, which older versions take too.
    "QString::split(QChar, Qt::SplitBehavior, Qt::CaseSensitivity)",
}

Overload = collections.namedtuple("Overload", "parameters since")


def fail(message):
    sys.exit(f"oldest-qt.py: {message}")


def version(text):
    found = re.search(r"\b5\.(\d+)", text)
    return (5, int(found.group(1))) if found else (0, 0)


def plain(markup):
    return html.unescape(re.sub(r"<[^>]+>", "", markup))


def normal_type(text, function):
    """A parameter's type, the same from the documentation and from a declaration."""
    text = re.sub(r"\b(const|class|struct|enum|typename)\b|&|\s", "", text)
    owner = function.rpartition("::")[0]
    return text.replace(f"{owner}::", "") if owner else text


def split_parameters(text):
    parts, depth, part = [], 0, ""
    for letter in text:
        depth += letter in "<({"
        depth -= letter in ">)}"
        if letter == "," and depth == 0:
            parts.append(part)
            part = ""
        else:
            part += letter
    return [*parts, part] if part.strip() else parts


def documented_parameters(heading, function):
    heading = re.sub(r"<i>\w+</i>", "", heading)
    signature = plain(heading)
    found = re.search(r"\((.*)\)[^()]*$", signature)
    if not found:
        return None
    return tuple(normal_type(parameter.split("=")[0], function)
                 for parameter in split_parameters(found.group(1)))


def read_documentation():
    """Qualified name to what the documentation says: overloads, a class's or a value's version."""
    known = collections.defaultdict(list)
    for page in DOCUMENTATION.glob("qt*/*.html"):
        text = page.read_text(encoding="utf-8", errors="replace")
        title = re.search(r"<title>(\w+) (?:Class|Struct|Namespace)", text)
        if title:
            since = re.search(r"Since:</td><td[^>]*> Qt ([\d.]+)", text)
            known[title.group(1)].append(Overload(None, version(since.group(1)) if since else (0, 0)))
        for entry in re.finditer(r"<h3 class=\"(?:fn|flags)\".*?(?=<h3|<h2|<!-- @@@|\Z)", text, re.S):
            read_entry(entry.group(0), known)
    return known


def read_entry(entry, known):
    heading, _, body = entry.partition("</h3>")
    name = re.search(r"((?:\w+::)*)<span class=\"name\">([^<]+)</span>", heading)
    if not name:
        return
    qualified = name.group(1) + plain(name.group(2))
    introduced = re.search(r"(?:was|were) introduced (?:or modified )?in (Qt [\d.]+)", body)
    since = version(introduced.group(1)) if introduced else (0, 0)
    if re.match(r"\s*enum|.*\benum ", plain(heading)):
        for value, row in re.findall(r"<tr><td[^>]*><code>([\w:]+)</code></td>(.*?)</tr>", body, re.S):
            dated = re.search(r"(?:added|introduced|since)(?: in)?(?: Qt)? 5\.\d+", plain(row), re.I)
            # "Introduced or modified": an undated value may be older than the mark of the whole.
            known[value].append(Overload(None, version(dated.group(0)) if dated else since))
        return
    known[qualified].append(Overload(documented_parameters(heading, qualified), since))


def qualified_name(cursor):
    from clang import cindex

    names = []
    while cursor is not None and cursor.kind.is_declaration() and cursor.spelling:
        if cursor.kind != cindex.CursorKind.ENUM_DECL or not names:
            names.append(re.sub(r"(?<=\w)<.*", "", cursor.spelling))
        cursor = cursor.semantic_parent
    return "::".join(reversed(names))


def is_ours(path):
    return any(folder in path.parents for folder in OURS)


def used_by(command):
    """What one source and its headers use of Qt: (name, parameters or None) to the first place."""
    from clang import cindex

    arguments = shlex.split(command["command"])[1:]
    while arguments and not arguments[0].startswith("-"):
        arguments.pop(0)  # the compiler behind a launcher
    kept = [part for part in arguments if part.startswith(("-I", "-D", "-std", "-f"))
            and part != "-fno-semantic-interposition"]
    systems = [value for flag, value in zip(arguments, arguments[1:]) if flag == "-isystem"]
    for folder in systems:
        kept += ["-isystem", folder]
    unit = cindex.Index.create().parse(command["file"], args=kept)
    errors = [str(message) for message in unit.diagnostics if message.severity >= 3]
    if errors:
        return errors[0], {}
    used = {}
    functions = (cindex.CursorKind.CXX_METHOD, cindex.CursorKind.FUNCTION_DECL,
                 cindex.CursorKind.CONSTRUCTOR, cindex.CursorKind.CONVERSION_FUNCTION,
                 cindex.CursorKind.FUNCTION_TEMPLATE)
    for top in unit.cursor.get_children():
        if top.location.file is None or not is_ours(pathlib.Path(top.location.file.name).resolve()):
            continue
        for cursor in top.walk_preorder():
            target = cursor.referenced
            if target is None or target.location.file is None:
                continue
            origin = cindex.conf.lib.clang_getSpecializedCursorTemplate(target)
            if origin is not None and origin.location.file is not None:
                target = origin
            if "/qt5/" not in target.location.file.name:
                continue
            name, parameters = qualified_name(target), None
            if target.kind in functions:
                parameters = tuple(normal_type(argument.type.spelling, name)
                                   for argument in target.get_children()
                                   if argument.kind == cindex.CursorKind.PARM_DECL)
            where = cursor.location if cursor.location.file else top.location
            place = f"{where.file.name}:{where.line}".replace(f"{ROOT}/", "")
            used.setdefault((name, parameters), place)
    return None, used


def since_when(name, parameters, known):
    """The version of what is used; None when the overloads' dates leave it open."""
    overloads = known.get(name, [])
    if all(overload.since <= OLDEST for overload in overloads):
        return (0, 0)
    matching = [overload for overload in overloads if overload.parameters == parameters]
    if matching:
        return min(overload.since for overload in matching)
    return None if any(overload.since <= OLDEST for overload in overloads) \
        else min(overload.since for overload in overloads)


def main():
    if len(sys.argv) != 2:
        fail("give the build folder, such as build/dev.")
    commands = pathlib.Path(sys.argv[1]) / "compile_commands.json"
    if not commands.is_file():
        fail(f"{commands} is not there: configure this build folder first.")
    try:
        import clang.cindex  # noqa: F401
    except ImportError:
        fail("clang's Python bindings are missing (Debian package python3-clang-14; run this with "
             "/usr/bin/python3).")
    known = read_documentation()
    for name, package in (("QString::chopped", "qtbase5-doc-html"),
                          ("QWebChannel::registerObject", "qtwebchannel5-doc-html"),
                          ("QWebEngineProfile::clearHttpCache", "qtwebengine5-doc-html"),
                          ("QMediaPlayer::setMedia", "qtmultimedia5-doc-html")):
        if name not in known:
            fail(f"Qt's documentation does not tell of {name}: install {package}.")
    units = [command for command in json.loads(commands.read_text(encoding="utf-8"))
             if is_ours(pathlib.Path(command["file"])) and "_autogen" not in command["file"]]
    if not units:
        fail(f"{commands} names no source of the library.")

    used = {}
    with multiprocessing.Pool() as pool:
        for command, (error, uses) in zip(units, pool.imap(used_by, units)):
            if error:
                fail(f"clang cannot read {command['file']}: {error}")
            used = {**uses, **used}

    young = []
    for (name, parameters), place in sorted(used.items(), key=lambda item: item[1]):
        since = since_when(name, parameters, known)
        shown = name if parameters is None else f"{name}({', '.join(parameters)})"
        if shown in FIT or (since is not None and since <= OLDEST):
            continue
        age = "of an overload whose version is not clear" if since is None \
            else f"since Qt {since[0]}.{since[1]}"
        young.append(f"{place}: {shown}, {age}")
    documented = sum(name in known for name, _ in used)
    if not documented:
        fail("nothing that is used was found in the documentation.")
    print(f"{len(used)} names of Qt are used, {documented} of them documented, in {len(units)} sources.",
          flush=True)
    if young:
        fail("younger than Qt {}.{}; use something older, or put QT_VERSION_CHECK around it:\n{}"
             .format(*OLDEST, "\n".join(young)))


if __name__ == "__main__":
    main()
