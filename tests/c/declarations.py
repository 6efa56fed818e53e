"""Compares the functions that the C headers declare with those that the library exports, with those
that the tests call, and with the declarations of the Pascal unit.

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


def arity(parameters):
    """How many parameters a list in C or Pascal has."""
    parameters = parameters.strip()
    return 0 if parameters in ("", "void") else len(re.split("[,;]", parameters))


unit = (root / "examples/pascal/kxjsparser.pas").read_text()
unit = unit[: unit.index("implementation")]
in_c = {name: arity(list) for name, list in re.findall(r"\b(kxjs_\w+)\(([^)]*)\)", headers)}
in_pascal = {
    name: arity(list)
    for name, list in re.findall(r"^function (kxjs_\w+)(?:\(([^)]*)\))?:", unit, re.MULTILINE)
}
constants = re.compile(r"\b(KXJS_\w+) = (\d+)")
c_constants = dict(constants.findall(headers))

mistakes = [f"{name}: declared, not exported" for name in sorted(declared - exported)]
mistakes += [f"{name}: exported, not declared" for name in sorted(exported - declared)]
mistakes += [f"{name}: no test calls it" for name in sorted(declared - called)]
mistakes += [
    f"{name}: Pascal declares {count} parameters, C {in_c.get(name)}"
    for name, count in sorted(in_pascal.items())
    if in_c.get(name) != count
]
mistakes += [
    f"{name}: {value} in Pascal, {c_constants.get(name)} in C"
    for name, value in constants.findall(unit)
    if c_constants.get(name) != value
]
if not declared or not in_pascal or not c_constants:
    mistakes.append("found no declarations in C or Pascal")
for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
