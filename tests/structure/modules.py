"""Compares the inclusions in src/ with the table of modules in ARCHITECTURE.md.

    modules.py SOURCE-DIRECTORY

The table's last column is read so: `name` is a module, `module/File.h` a header, "public headers" are
those that cmake/KxInstall.cmake installs, V8 are the engine's. A module may use itself. A file
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
        r"^\| `src/(\w+)` \|.*\| ([^|]*) \|$",
        (root / "ARCHITECTURE.md").read_text(),
        re.MULTILINE,
    )
    return dict(rows)


def inclusions(files):
    """File, line and included header, for each of the files; headers as seen from src."""
    for file in sorted(files):
        if file.suffix not in (".h", ".cpp"):
            continue
        for number, line in enumerate(file.read_text().splitlines(), 1):
            match = re.match(r'\s*#\s*include\s*(<[^>]*>|"[^"]*")', line)
            if not match:
                continue
            header = match[1]
            beside = file.parent / header.strip('"')
            if header.startswith('"') and beside.is_file():
                header = f'"{beside.resolve().relative_to(source.resolve())}"'
            yield file.relative_to(root), number, header


def may_use(module, uses, header):
    if header.startswith("<"):
        engine = re.match(r"<(v8|libplatform/|cppgc/|node)", header)
        return not engine or "V8" in uses
    path = header.strip('"')
    if path in public and "public headers" in uses:
        return True
    other = path.split("/")[0] if "/" in path else module
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

directories = {path.name for path in source.iterdir() if path.is_dir()}
for module in sorted(directories ^ set(table)):
    mistakes.append(f"src/{module}: not both a directory and a row of the table")

order = list(table)
for module, uses in table.items():
    for other in re.findall(r"`(\w+)`", uses):
        if order.index(other) <= order.index(module):
            mistakes.append(f"ARCHITECTURE.md: {other} does not stand below {module}, which uses it")
    for file, number, header in inclusions((source / module).rglob("*")):
        included.add(header.strip('"'))
        other = header.strip('"').split("/")[0]
        if header.startswith('"') and other in table and other != module:
            graph[module].add(other)
        if not may_use(module, uses, header):
            mistakes.append(f"{file}:{number}: {module} may not include {header}")

for file, number, header in inclusions(source.iterdir()):
    included.add(header.strip('"'))
    if header.strip('"') not in public:
        mistakes.append(f"{file}:{number}: a file directly in src may include public headers only")

if not public or not table or not any(graph.values()):
    mistakes.append("found no public headers, no modules, or nothing that one uses of another")
cycle = find_cycle(graph)
if cycle:
    mistakes.append("modules use one another in a circle: " + " > ".join(cycle))
check_that_files_are_reached(included)

for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
