#!/usr/bin/env python3
"""check_includes.py [--self-test] - finds includes that a file does not need, in all tracked headers and sources.

An include is needed if the file mentions a name that the header declares: a type, function, constant, macro or member.
standard_names.txt has the names of the standard library's headers. Other headers of the system are left alone.
A header that declares nothing counts as the headers that it includes. The check also refuses a second include of the
same header. It reads texts, not meanings: a common name may hide an include that is not needed.

--self-test plants faults and fails if one of them passes.
"""

import functools
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ["src", "include", "tests", ""]  # where the compiler looks, after the folder of the file
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"].*$', re.MULTILINE)
NOISE = re.compile(r'R"(\w*)\(.*?\)\1"|"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)+\'|//[^\n]*|/\*.*?\*/', re.DOTALL)
FORWARD = re.compile(r"\b(?:class|struct|union)\s+(\w+)\s*;")
TOKEN = re.compile(r"\w+|\S")
OPENS_SCOPE = re.compile(r"\b(?:namespace|class|struct|union|enum|extern)\b")
NO_NAMES = set("const noexcept override final default delete operator public private protected int char bool".split())
IMPLICIT = {"initializer_list": ": {", "new": "new ("}  # needed without a name


def read_standard():
    """Header to the pattern of its names. Those of the C headers count with and without `std::`."""
    names = {}
    for line in (ROOT / "script/standard_names.txt").read_text().splitlines():
        if line and not line.startswith("#"):
            header, *patterns = line.split()
            names.setdefault(header, []).extend(patterns)
    scope = {header: "" if header.startswith("c") else "std::(?:ranges::)?" for header in names}
    return {header: re.compile(rf"{scope[header]}\b(?:{'|'.join(names[header])})\b") for header in names}


STANDARD = read_standard()


def code_of(text):
    """The text without comments, literals and include lines."""
    return NOISE.sub(" ", INCLUDE.sub("", text))


def skip(tokens, at, opening, closing):
    """The place after the bracket that closes the one at `at`."""
    depth = 0
    for place in range(at, len(tokens)):
        depth += (tokens[place] == opening) - (tokens[place] == closing)
        if depth == 0:
            return place + 1
    return len(tokens)


def declared(text):
    """The names that a header declares. Bodies of functions, parameters and initialisers do not count."""
    code = code_of(text)
    names = set(re.findall(r"^[ \t]*#[ \t]*define[ \t]+(\w+)", code, re.MULTILINE))
    names -= set(re.findall(r"^[ \t]*#[ \t]*ifndef[ \t]+(\w+_H)\b", code, re.MULTILINE))
    code = re.sub(r"^[ \t]*#(?:[^\n\\]|\\.)*", "", code, flags=re.MULTILINE | re.DOTALL)
    code = re.sub(r"\btemplate\s*<[^<>]*(?:<[^<>]*>[^<>]*)*>", "", code)
    forward = set(FORWARD.findall(code))
    tokens = TOKEN.findall(FORWARD.sub("", code))
    statement, at = [], 0
    while at < len(tokens):
        token = tokens[at]
        if token in "(;={,[:}" and statement and statement[-1].isidentifier():
            names.add(statement[-1])
        if token in "([":
            at = skip(tokens, at, token, ")" if token == "(" else "]")
            statement.append(")")
            continue
        if token == "=":  # the initialiser
            while at < len(tokens) and tokens[at] not in ";,}":
                at = skip(tokens, at, tokens[at], {"(": ")", "{": "}"}[tokens[at]]) if tokens[at] in "({" else at + 1
            statement = []
            continue
        if token == "{" and not OPENS_SCOPE.search(" ".join(statement)):
            at = skip(tokens, at, "{", "}")
            statement = []
            continue
        statement = [] if token in ";{},:" and token != ":" else statement + [token]
        at += 1
    return (names - NO_NAMES) or forward


def find(file, name):
    """The file of the project that an include names; None for a header of the system."""
    places = [file.parent, *(ROOT / folder for folder in FOLDERS)]
    return next((place / name for place in places if (place / name).is_file()), None)


@functools.cache
def names_of(header):
    text = header.read_text()
    names = declared(text)
    inner = [find(header, name) for _, name in INCLUDE.findall(text)]
    return names or set().union(*(names_of(path) for path in inner if path))


def is_used(code, file, name):
    if name in STANDARD:
        return STANDARD[name].search(code) is not None or name in IMPLICIT and IMPLICIT[name] in code
    header = find(file, name)
    if header is None or header.suffix != ".h" or header.stem == file.stem.removesuffix("_test"):
        return True
    return not names_of(header).isdisjoint(re.findall(r"\w+", code))


def check(file, text):
    code, found, troubles = code_of(text), [name for _, name in INCLUDE.findall(text)], []
    if not code.strip() or not declared(text) and file.suffix == ".h":
        return []  # an umbrella
    for name in sorted(set(found)):
        if found.count(name) > 1 and not name.endswith(".def"):
            troubles.append(f"includes {name} twice")
        if not is_used(code, file, name):
            troubles.append(f"does not need {name}")
    return troubles


SELF_TEST = [
    ("a.cpp", "#include <vector>\nint a;  // std::vector\n", ["does not need vector"]),
    ("a.cpp", '#include <vector>\nstd::vector<int> a;\n', []),
    ("a.cpp", '#include <cstring>\nconst char* a = "strlen";\n', ["does not need cstring"]),
    ("a.cpp", '#include <cstring>\n#include <cstring>\nauto a = strlen("");\n', ["includes cstring twice"]),
    ("a.cpp", '#include "steprt/schema.h"\nAPPtable table;\n', []),
    ("a.cpp", '#include "steprt/schema.h"\nSTEPheader* table;\n', ["does not need steprt/schema.h"]),
    ("a.cpp", '#include "steprt/step.h"\nSTEPheader* table;\n', []),
    ("a.cpp", '#include "steprt/step.h"\nint x;\n', ["does not need steprt/step.h"]),
    ("schema.cpp", '#include "steprt/schema.h"\nint table;\n', []),
]
DECLARED = """
#ifndef A_H
#define A_H
#define MACRO(x) x
class Early;
namespace outer {
enum Kind { kOne = 1, kTwo };
template <typename Parameter> struct Record : Base { int field = other; Early* a, *b; void Call(int argument) const; };
inline int Twice(int x) { int local = x; return local; }
constexpr int kTable[] = {first, second};
using Name = Record<int>;
}
#endif
"""


def self_test():
    troubles = []
    for name, text, wanted in SELF_TEST:
        found = check(ROOT / "src" / name, text)
        troubles += [] if found == wanted else [f"{text!r}: {found}, not {wanted}"]
    wanted = set("MACRO Kind kOne kTwo Record Base field a b Call Twice kTable Name outer".split())
    difference = declared(DECLARED) ^ wanted
    return troubles + ([f"declared: {difference} too many or missing"] if difference else [])


def main():
    if sys.argv[1:] == ["--self-test"]:
        troubles = self_test()
    else:
        command = ["git", "-C", str(ROOT), "ls-files", "--", "*.h", "*.cpp"]
        files = subprocess.run(command, check=True, capture_output=True, text=True).stdout.split()
        troubles = [f"{file}: {trouble}" for file in files if (ROOT / file).is_file()
                    for trouble in check(ROOT / file, (ROOT / file).read_text())]
    for trouble in troubles:
        print(trouble)
    return 1 if troubles else 0


if __name__ == "__main__":
    sys.exit(main())
