#!/usr/bin/env python3
"""Checks what the libraries and programs of a Windows build export and import.

    scripts/check-windows-binaries.py FOLDER

The plug-in exports its three functions under their decorated names, the component the entry points of a COM
server, both nothing else. Whatever they import belongs to Windows, to the compiler's runtime that lies beside them, or
is part of the project.
"""
import pathlib
import re
import subprocess
import sys

EXPORTS = {
    "symbkds.dll": {"_NewSymb@4", "_DeleteSymb@4", "_GetSymbType@4"},
    "KorvaProServices.dll": {"DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer", "DllUnregisterServer"},
    "symbhost.exe": set(),
}
RUNTIME = {"libstdc++-6.dll", "libgcc_s_dw2-1.dll", "libwinpthread-1.dll"}
SYSTEM = {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll"}


def tables(path):
    """The names that a library exports and the libraries that it imports from."""
    text = subprocess.run(["i686-w64-mingw32-objdump", "-p", path], check=True, capture_output=True, text=True).stdout
    names = re.search(r"\[Ordinal/Name Pointer\] Table(.*?)\n\n", text, re.DOTALL)
    exported = re.findall(r"^\s*\[ *\d+\] (\S+)$", names.group(1), re.MULTILINE) if names else []
    return exported, re.findall(r"DLL Name: (\S+)", text)


def problems(folder):
    for name, expected in EXPORTS.items():
        exported, imported = tables(folder / name)
        if sorted(exported) != sorted(expected):
            yield f"{name} exports {exported}"
        if "libstdc++-6.dll" not in imported:
            yield f"{name} holds a runtime of its own"
        for library in imported:
            if library not in RUNTIME and library.lower() not in SYSTEM:
                yield f"{name} imports from {library}"
    for name in RUNTIME:
        if not (folder / name).exists():
            yield f"{name} is missing"
            continue
        for library in tables(folder / name)[1]:
            if library not in RUNTIME and library.lower() not in SYSTEM:
                yield f"{name} imports from {library}"


def main():
    found = list(problems(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
