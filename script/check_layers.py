#!/usr/bin/env python3
"""check_layers.py [--self-test] - checks that includes point down: those of src/ and of the public headers.

src/layers.txt lists the folders of src/, lowest layer first. A file belongs to the longest folder that contains it.
PUBLIC gives each public header its layer. A file may include its own layer and lower ones. The check refuses:
 - an include of a higher layer, and of anything that is neither in src/ nor a public header;
 - in write/, an include of read/ outside read/transfer/;
 - a source that does not include its own header first;
 - a file or a public header without a layer, and a folder of layers.txt without a file.

--self-test plants each of these faults in a tree of its own and fails if one of them passes.
"""

import pathlib
import re
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
TOP = "top"  # above every folder: src/ never includes such a header
PUBLIC = {
    "export.h": "support", "fwd.h": "support", "text.h": "support", "version.h": "support",
    "alphabets.h": "support", "encoding.h": "support",  # header-only
    "module.h": "platform",
    "schema.h": "schema", "library.h": "schema",
    "instance.h": "model", "model.h": "model", "aggregate.h": "model", "select.h": "model",
    "items.h": "read/transfer",  # its two halves are in read and write
    "standard.h": "model",  # complex instances; the driver and the options are in read
    "file_header.h": "model",
    "standard_write.h": "write",
    "read.h": "read",
    "write.h": "write",
    "step.h": TOP,
    "any_record.h": TOP, "attributes.h": TOP, "attribute_lists.h": TOP, "value.h": TOP, "record.h": TOP,  # a client's code
    "references.h": TOP, "description.h": TOP,
}


class Tree:
    """The files below one root, with the layer of each."""

    def __init__(self, root):
        self.src, self.public = root / "src", root / "include"
        lines = (self.src / "layers.txt").read_text().splitlines()
        self.layers = [folder for line in lines if (folder := line.split("#", 1)[0].strip())]
        self.files = sorted(str(path.relative_to(self.src)) for path in self.src.rglob("*")
                            if path.suffix in (".h", ".cpp", ".def"))
        self.headers = sorted(str(path.relative_to(self.public)) for path in self.public.rglob("*.h"))

    def path(self, file):
        return (self.public if file in self.headers else self.src) / file

    def layer(self, file):
        """The layer of a file of src/ or of a public header; None if it has none."""
        if file in self.headers:
            return PUBLIC.get(file.removeprefix("steprt/"))
        return max((folder for folder in self.layers if file.startswith(folder + "/")), key=len, default=None)

    def rank(self, layer):
        return len(self.layers) if layer == TOP else self.layers.index(layer)

    def own_header(self, file):
        """The header with a source's name: in its folder, in the one above (sources of one platform), or public."""
        path = pathlib.PurePosixPath(file)
        candidates = [str(folder / f"{path.stem}.h") for folder in (path.parent, path.parent.parent)]
        known = self.files + [header for header in self.headers if self.layer(header) == self.layer(file)]
        return next((name for name in [*candidates, f"steprt/{path.stem}.h"] if name in known), None)


def check_include(tree, file, quote, name):
    """What is wrong with one include of a file; None if nothing is."""
    if name not in tree.headers and name not in tree.files:
        return f'includes "{name}", which is not in src/' if quote == '"' else None
    if file in tree.headers and name not in tree.headers:
        return f'includes "{name}" of src/'
    own, other = tree.layer(file), tree.layer(name)
    if other is None:
        return None  # reported at the file itself
    if tree.rank(other) > tree.rank(own):
        return f'in the layer {own}, includes "{name}" of the higher layer {other}'
    if own == "write" and other == "read":
        return f'in the layer write, includes "{name}": of read/ it may include read/transfer/ only'
    return None


def check_file(tree, file):
    if tree.layer(file) is None:
        return [f"{file}: has no layer (src/layers.txt; PUBLIC in script/check_layers.py for a public header)"]
    found = INCLUDE.findall(tree.path(file).read_text())
    troubles = [trouble for quote, name in found if (trouble := check_include(tree, file, quote, name))]
    header = tree.own_header(file) if file.endswith(".cpp") else None
    if header and found[:1] != [('"', header)]:
        troubles.append(f'"{header}" is not its first include')
    return [f"{file}: {trouble}" for trouble in troubles]


def check(root):
    tree = Tree(root)
    used = {tree.layer(file) for file in tree.files}
    troubles = [f"src/layers.txt: no file is in {layer}" for layer in tree.layers if layer not in used]
    return troubles + [trouble for file in tree.headers + tree.files for trouble in check_file(tree, file)]


SOUND = {
    "src/layers.txt": "# lowest first\nsupport\nread/transfer\nread\nwrite\n",
    "include/steprt/fwd.h": "",
    "include/steprt/text.h": "#include <steprt/fwd.h>\n",
    "include/steprt/step.h": "#include <steprt/text.h>\n",
    "src/support/copy.cpp": '#include "steprt/text.h"\n#include <cstring>\n',
    "src/read/transfer/record.h": "",
    "src/read/lists.h": '#include "read/transfer/record.h"\n#include "steprt/text.h"\n',
    "src/read/lists.cpp": '#include "read/lists.h"\n',
    "src/write/values.cpp": '#include "read/transfer/record.h"\n',
}
FAULTS = [
    ("src/support/copy.cpp", '#include "read/lists.h"\n', "of the higher layer read"),
    ("src/read/transfer/record.h", '#include "read/lists.h"\n', "of the higher layer read"),
    ("src/support/copy.cpp", '#include "steprt/step.h"\n', "of the higher layer top"),
    ("src/support/copy.cpp", '#include <steprt/step.h>\n', "of the higher layer top"),
    ("include/steprt/text.h", "#include <steprt/step.h>\n", "of the higher layer top"),
    ("include/steprt/text.h", '#include "read/lists.h"\n', "of src/"),
    ("src/write/values.cpp", '#include "read/lists.h"\n', "read/transfer/ only"),
    ("src/read/lists.cpp", '#include <cstring>\n#include "read/lists.h"\n', "not its first include"),
    ("src/read/lists.cpp", '#include "read/lists.h"\n#include "express/ast.h"\n', "not in src/"),
    ("src/read/lists.cpp", '#include "read/lists.h"\n#include "../tools/main.h"\n', "not in src/"),
    ("src/other/file.h", "", "has no layer"),
    ("include/steprt/other.h", "", "has no layer"),
    ("src/layers.txt", SOUND["src/layers.txt"] + "xml\n", "no file is in xml"),
]


def found_in(files):
    """What the check says of a tree of these files."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        return check(pathlib.Path(folder))


def self_test():
    troubles = [f"the sound tree is refused: {trouble}" for trouble in found_in(SOUND)]
    for file, text, wanted in FAULTS:
        found = found_in({**SOUND, file: text})
        if len(found) != 1 or wanted not in found[0]:
            troubles.append(f"{file} with {text!r} must be refused with '{wanted}', but: {found}")
    return troubles


def main():
    found = self_test() if sys.argv[1:] == ["--self-test"] else check(ROOT)
    for trouble in found:
        print(trouble)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
