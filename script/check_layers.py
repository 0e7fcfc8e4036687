#!/usr/bin/env python3
"""Holds the includes of src/ to the layers of src/layers.txt, and of include/ to itself.

Refused are: an include that points to a higher layer, a file in no layer, a pattern that no file matches, a source that
does not include its own header first, and a public header that reaches into src/.
"""

import fnmatch
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
PUBLIC = "steprt/"


def read_layers(path):
    """The pairs of pattern and rank, and the layers' names by rank."""
    patterns, names = [], []
    for line in path.read_text().splitlines():
        words = line.split("#", 1)[0].split()
        if not words:
            continue
        if words[0] not in names:
            names.append(words[0])
        patterns += [(pattern, names.index(words[0])) for pattern in words[1:]]
    return patterns, names


def match(file, patterns):
    """The longest pattern that matches, with its rank; None if none does."""
    hits = [entry for entry in patterns if fnmatch.fnmatchcase(file, entry[0])]
    return max(hits, key=lambda entry: len(entry[0]), default=None)


def includes(path):
    return [name for _, name in INCLUDE.findall(path.read_text())]


def own_header(file, src):
    """The header of a source's name, in its folder or, for the sources of one platform, in the one above."""
    path = pathlib.PurePosixPath(file)
    for folder in (path.parent, path.parent.parent):
        header = folder / (path.stem + ".h")
        if (src / header).exists():
            return str(header)
    return None


def check_source(file, src, patterns, names):
    own = match(file, patterns)
    if own is None:
        return [f"src/{file}: in no layer of src/layers.txt"]
    found = includes(src / file)
    troubles = []
    header = own_header(file, src) if file.endswith(".cpp") else None
    if header and found[:1] != [header]:
        troubles.append(f'src/{file}: "{header}" is not its first include')
    for name in found:
        theirs = match(name, patterns) if (src / name).exists() else None
        if theirs and theirs[1] > own[1]:
            lower, higher = names[own[1]], names[theirs[1]]
            troubles.append(f'src/{file}: layer {lower} includes "{name}" of the higher layer {higher}')
    return troubles


def main():
    src, public = ROOT / "src", ROOT / "include"
    patterns, names = read_layers(src / "layers.txt")
    files = sorted(str(path.relative_to(src)) for path in src.rglob("*") if path.suffix in (".h", ".cpp"))

    troubles = [trouble for file in files for trouble in check_source(file, src, patterns, names)]
    used = {entry[0] for entry in (match(file, patterns) for file in files) if entry}
    troubles += [f"src/layers.txt: no file is {pattern}" for pattern, _ in patterns if pattern not in used]
    for path in sorted(public.rglob("*.h")):
        troubles += [f'{path.relative_to(ROOT)}: includes "{name}" of src/'
                     for name in includes(path) if not name.startswith(PUBLIC) and (src / name).exists()]

    print("\n".join(troubles), end="\n" if troubles else "")
    return 1 if troubles else 0


if __name__ == "__main__":
    sys.exit(main())
