"""Compares the functions that the C headers declare with those that the library exports, and with
those that the tests call.

    declarations.py SOURCE-DIRECTORY LIBRARY
"""

import pathlib
import re
import subprocess
import sys

root = pathlib.Path(sys.argv[1])
headers = "".join(file.read_text() for file in sorted((root / "src/c").glob("kxjs_*.h")))
tests = "".join(file.read_text() for file in sorted((root / "tests/c").glob("*.c*")))
# Comments name functions too.
headers = re.sub(r"//.*", "", headers)
declared = set(re.findall(r"\b(kxjs_\w+)\(", headers))
symbols = subprocess.run(
    ["nm", "-D", "--defined-only", sys.argv[2]], check=True, capture_output=True, text=True
).stdout
exported = set(re.findall(r" T (kxjs_\w+)$", symbols, re.MULTILINE))
called = set(re.findall(r"\b(kxjs_\w+)\b", tests))

mistakes = [f"{name}: declared, not exported" for name in sorted(declared - exported)]
mistakes += [f"{name}: exported, not declared" for name in sorted(exported - declared)]
mistakes += [f"{name}: no test calls it" for name in sorted(declared - called)]
if not declared:
    mistakes.append("the headers declare no functions")
for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
