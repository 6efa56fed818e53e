"""Checks that the table in SECURITY.md of what only an isolated host survives names the scripts that
are marked so, and no others.

    hostile.py SOURCE-DIRECTORY
"""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
folder = root / "tests" / "hostile"
mark = re.compile(r"^// (?:since [^:]*: )?(?:dies: |signal: |hangs: |isolated$)", re.MULTILINE)
marked = {
    str(path.relative_to(folder))
    for path in folder.rglob("*.js")
    if mark.search(path.read_text(encoding="utf-8"))
}
document = (root / "SECURITY.md").read_text(encoding="utf-8")
section = document.split("## What only an isolated host survives\n")[1].split("\n## ")[0]
listed = set(re.findall(r"`([\w-]+/\w+\.js)`", section))

for script in sorted(marked - listed):
    print(f"SECURITY.md does not list {script}")
for script in sorted(listed - marked):
    print(f"SECURITY.md lists {script}, which is not marked")
sys.exit(0 if marked and marked == listed else 1)
