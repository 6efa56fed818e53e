"""Checks that the files that the documents name exist.

    documents.py SOURCE-DIRECTORY

A name is whatever stands in backticks or is linked to and ends like a file of the tree. It may be a
path from the top of the tree or from `src`, or the end of a path. CHANGELOG.md is left out: it tells
of files that are gone.
"""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
ending = r"[\w./*-]*\w\.(?:cpp|h|js|md|py|sh|txt|tsv|svg|map|cmake|1)"
files = [
    "/" + str(path.relative_to(root))
    for top in ("bench", "cmake", "docs", "examples", "fuzz", "packaging", "python", "scripts", "src", "tests")
    for path in (root / top).rglob("*")
    if path.is_file()
] + ["/" + path.name for path in root.iterdir() if path.is_file()]
documents = sorted({*root.glob("*.md"), *root.glob("docs/*.md")} - {root / "CHANGELOG.md"})

names = 0
mistakes = []
for document in documents:
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        for name in re.findall(rf"`({ending})`|\]\(({ending})\)", line):
            name = name[0] or name[1]
            names += 1
            if "*" in name:
                found = any(root.glob(name)) or any((root / "src").glob(name))
            else:
                found = any(file.endswith("/" + name) for file in files)
            if not found:
                mistakes.append(f"{document.relative_to(root)}:{number}: there is no {name}")

if not names:
    mistakes.append("the documents name no files")
for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
