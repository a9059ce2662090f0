#!/usr/bin/env python3
"""Checks who includes whom. Prints each offence as file:line and exits 1 if there is any.

- Files of platform/ include along win32 <- com <- mfc <- posix, windows. posix/ is nobody else's, windows/ the component's.
- Headers of the plug-in include along platform <- symb <- model <- frame <- import, resolve, browse, dump.
- The other parts reach only what they are built on; the plug-in sees of the component its public header alone.
- No two files include each other, directly or in a ring; a source and its header count as one.
- Only platform/ includes system headers, asks for the operating system, handles signals or calls the compiler's
  builtins. Tests may.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PARTS = ("platform", "symbtables", "korvaproservices", "symbhost", "tests", "bench", "fuzz")
INCLUDE_ROOTS = (ROOT, ROOT / "symbtables", ROOT / "tests")
COMPONENT_HEADER = "korvaproservices/KorvaProServices.h"

# What the files of a layer may include besides their own layer. Headers only: some sources of
# model/ need the symbol table.
PLATFORM = {"win32", "com", "mfc"}
LAYERS = {
    "win32": set(),
    "com": {"win32"},
    "mfc": {"win32", "com"},
    "posix": PLATFORM,
    "windows": PLATFORM,
    "symb": PLATFORM,
    "model": PLATFORM | {"symb"},
    "frame": PLATFORM | {"symb", "model"},
    "operations": PLATFORM | {"symb", "model", "frame", "component"},
    "component": PLATFORM | {"windows"},
    "symbhost": PLATFORM | {"symb", "component", "values"},
}
# Headers of the plug-in that symbhost shares: those of the library symbkds_values and what they include.
VALUES = {"symbtables/symbkds/model/" + name for name in (
    "AccessRights.h", "ArrayDeclaration.h", "ElementaryTypes.h", "ExportKeys.h", "ExportWords.h", "ImportRules.h",
    "TextNumber.h", "TypeCodes.h", "WideToUtf8.h")} | {"symbtables/symbkds/resolve/CSymbKorvaAnalyser.h"}
# Layers whose sources are held to the same rule as their headers.
STRICT = LAYERS.keys() - {"model", "frame", "operations"}
PLUGIN_FOLDERS = {"model": "model", "frame": "frame"}  # every other folder holds operations

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
SYSTEM_MACRO = re.compile(r"\b(_WIN32|_WIN64|WIN32|__MINGW\w*|__linux\w*|linux|__unix\w*|__APPLE__|_POSIX\w*)\b")
NOT_PORTABLE = re.compile(
    r"__builtin_\w+|\bSIG(?:ABRT|ALRM|BUS|CHLD|CONT|FPE|HUP|ILL|INT|KILL|PIPE|QUIT|SEGV|TERM|TRAP|TSTP|USR[12]"
    r"|WINCH|XCPU|XFSZ|_IGN|_DFL|_ERR)\b|\bsigaction\b|\bsig(?:nal|emptyset|fillset|addset|procmask|wait|altstack)\s*\("
)
COMMENT = re.compile(r"//.*")
# Standard headers have no ".h" and the libraries in use, but this one, end in ".hpp": the rest is the system's.
SYSTEM_HEADER = re.compile(r"^(?!benchmark/).*\.h$")


def layer_of(path):
    """The layer of a file of the project, None for those that may include anything."""
    parts = path.relative_to(ROOT).parts
    if parts[0] == "symbtables":
        return "symb" if parts[1] == "symb" else PLUGIN_FOLDERS.get(parts[2], "operations")
    if parts[0] == "platform":
        return parts[1]
    return {"korvaproservices": "component", "symbhost": "symbhost"}.get(parts[0])


def resolve(name, includer):
    for folder in (*INCLUDE_ROOTS, includer.parent):
        for file in (folder / name, folder / (name + ".in")):  # or what the build makes the header from
            if file.is_file():
                return file.resolve()
    return None


def check_layer(includer, target):
    """What is wrong with this include, or None."""
    layer, other = layer_of(includer), layer_of(target)
    name = target.relative_to(ROOT).as_posix()
    if layer is None:
        return None
    if other is None:
        return f"{name} is not part of the product"
    if layer != other and other == "component" and name != COMPONENT_HEADER:
        return f"{name} is the component's own"
    if layer == "symbhost" and name in VALUES:
        other = "values"
    held = includer.suffix == ".h" or layer in STRICT
    if held and other != layer and other not in LAYERS[layer]:
        return f"{layer} must not include {other} ({name})"
    return None


def check_file(path, offences, graph):
    where = path.relative_to(ROOT).as_posix()
    may_know_system = where.startswith(("platform/", "tests/"))
    unit = path.with_suffix("")
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        condition = CONDITION.match(line)
        if condition and not may_know_system and SYSTEM_MACRO.search(condition[1]):
            offences.append(f"{where}:{number}: asks for the operating system outside platform/")
        unportable = NOT_PORTABLE.search(COMMENT.sub("", line))
        if unportable and not may_know_system:
            offences.append(f"{where}:{number}: {unportable[0]} outside platform/")
        include = INCLUDE.match(line)
        if not include:
            continue
        if include[1] == "<":
            if not may_know_system and SYSTEM_HEADER.match(include[2]):
                offences.append(f"{where}:{number}: system header <{include[2]}> outside platform/")
            continue
        target = resolve(include[2], path)
        if target is None:
            offences.append(f"{where}:{number}: {include[2]} does not exist")
            continue
        offence = check_layer(path, target)
        if offence:
            offences.append(f"{where}:{number}: {offence}")
        if target.with_suffix("") != unit:
            graph.setdefault(unit, set()).add(target.with_suffix(""))


def find_rings(graph):
    """One ring per knot of files that include one another, as lists of files."""
    rings, done = [], set()
    for start in graph:
        path, iterators = [start], [iter(sorted(graph[start]))]
        while path and start not in done:
            following = next(iterators[-1], None)
            if following is None:
                done.add(path.pop())
                iterators.pop()
            elif following in path:
                rings.append(path[path.index(following):] + [following])
            elif following not in done:
                path.append(following)
                iterators.append(iter(sorted(graph.get(following, ()))))
    return rings


def main():
    offences, graph = [], {}
    files = [file for part in PARTS for file in sorted((ROOT / part).rglob("*")) if file.suffix in (".h", ".cpp")]
    for file in files:
        check_file(file, offences, graph)
    for ring in find_rings(graph):
        offences.append("ring: " + " -> ".join(unit.relative_to(ROOT).as_posix() for unit in ring))
    print("\n".join(offences) if offences else f"{len(files)} files: nothing to object to")
    return 1 if offences else 0


if __name__ == "__main__":
    sys.exit(main())
