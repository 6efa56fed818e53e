"""Compares the inclusions in src/ with the table of modules in ARCHITECTURE.md.

    modules.py SOURCE-DIRECTORY

A module is a directory of src, or a directory below one. A file belongs to the deepest module that
contains it. The table's last column names what a module may include: `name` is a module,
`module/File.h` a header, "public headers" are those that cmake/KxInstall.cmake installs, and V8
stands for V8's headers. A module may include its own headers. A file
directly in src may include public headers only.
"""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
source = root / "src"
mistakes = []


def public_headers():
    text = (root / "cmake/KxInstall.cmake").read_text()
    return set(re.findall(r"^ +(\S+\.h)$", text, re.MULTILINE))


def modules():
    """The rows of the table: the module's name and what it uses, in words."""
    rows = re.findall(
        r"^\| `src/([\w/]+)` \|.*\| ([^|]*) \|$",
        (root / "ARCHITECTURE.md").read_text(),
        re.MULTILINE,
    )
    return dict(rows)


def module_of(path):
    """The deepest module that contains the file, seen from src; nothing where there is none."""
    for directory in pathlib.PurePath(path).parents:
        if str(directory) in table:
            return str(directory)
    return None


def inclusions():
    """File, module, line and included header of every inclusion in src; headers seen from src."""
    for file in sorted(source.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        module = module_of(file.relative_to(source))
        for number, line in enumerate(file.read_text().splitlines(), 1):
            match = re.match(r'\s*#\s*include\s*(<[^>]*>|"[^"]*")', line)
            if not match:
                continue
            header = match[1]
            beside = file.parent / header.strip('"')
            if header.startswith('"') and beside.is_file():
                header = f'"{beside.resolve().relative_to(source.resolve())}"'
            yield file.relative_to(root), module, number, header


def may_use(module, uses, header):
    if header.startswith("<"):
        v8_header = re.match(r"<(v8|libplatform/|cppgc/|node)", header)
        return not v8_header or "V8" in uses
    path = header.strip('"')
    if path in public and "public headers" in uses:
        return True
    # A header without a directory is one that the module's build makes.
    other = module_of(path) if "/" in path else module
    return other == module or f"`{other}`" in uses or f"`{path}`" in uses


def find_cycle(graph):
    """A path that comes back to its beginning, or nothing."""
    finished = set()

    def visit(module, path):
        if module in path:
            return path[path.index(module) :] + [module]
        if module in finished:
            return None
        for other in sorted(graph[module]):
            cycle = visit(other, path + [module])
            if cycle:
                return cycle
        finished.add(module)
        return None

    for module in graph:
        cycle = visit(module, [])
        if cycle:
            return cycle
    return None


def check_that_files_are_reached(included):
    """Every source file is named where its module is built, every header included or installed."""
    lists = "".join(file.read_text() for file in source.rglob("CMakeLists.txt"))
    for file in sorted(source.rglob("*.cpp")):
        if not re.search(rf"(?<![\w.]){re.escape(file.name)}(?![\w.])", lists):
            mistakes.append(f"{file.relative_to(root)}: no CMakeLists.txt in src builds it")
    for file in sorted(source.rglob("*.h")):
        path = str(file.relative_to(source))
        if path not in included and path not in public:
            mistakes.append(f"{file.relative_to(root)}: nothing in src includes it")


public = public_headers()
table = modules()
graph = {module: set() for module in table}
included = set()

for module in table:
    if not (source / module).is_dir():
        mistakes.append(f"ARCHITECTURE.md: there is no directory src/{module}")
# Where a module has modules below it, all of its directories are modules.
for parent in {""} | {str(pathlib.PurePath(module).parent) for module in table if "/" in module}:
    for path in sorted((source / parent).iterdir()):
        if path.is_dir() and str(path.relative_to(source)) not in table:
            mistakes.append(f"{path.relative_to(root)}: no row of the table")

order = list(table)
for module, uses in table.items():
    for other in re.findall(r"`([\w/]+)`", uses):
        if other not in table:
            mistakes.append(f"ARCHITECTURE.md: {module} uses {other}, which is no row of the table")
        elif order.index(other) <= order.index(module):
            mistakes.append(f"ARCHITECTURE.md: {other} does not stand below {module}, which uses it")
for file, module, number, header in inclusions():
    included.add(header.strip('"'))
    if module is None:
        if header.strip('"') not in public:
            mistakes.append(f"{file}:{number}: in no module, so it may include public headers only")
        continue
    other = module_of(header.strip('"'))
    if header.startswith('"') and other in table and other != module:
        graph[module].add(other)
    if not may_use(module, table[module], header):
        mistakes.append(f"{file}:{number}: {module} may not include {header}")

if not public or not table or not any(graph.values()):
    mistakes.append("found no public headers, no modules, or nothing that one uses of another")
cycle = find_cycle(graph)
if cycle:
    mistakes.append("modules use one another in a circle: " + " > ".join(cycle))
check_that_files_are_reached(included)

umbrella = (source / "KxJs.h").read_text()
c_umbrella = (source / "kxjsparser.h").read_text()
for header in sorted(public - {"KxJs.h", "kxjsparser.h", "library/Export.h"}):
    name, text = ("kxjsparser.h", c_umbrella) if header.startswith("c/") else ("KxJs.h", umbrella)
    if f'#include "{header}"' not in text:
        mistakes.append(f"src/{name} does not include {header}, which is public")

for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
