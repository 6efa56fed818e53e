"""Makes a test program of the C++ in a Markdown document.

    snippets.py DOCUMENT OUTPUT.cpp

Takes every fenced block of `cpp`. A block with a main function is a whole program. Any other block
is a piece: the body of a function, behind its own inclusions and those of snippets.h, in the scope of
what that header declares. The next fenced block, where it is one of `text`, is what the C++ must
print; otherwise it must print nothing.

The program runs the blocks in order and names each that prints something else.
"""

import pathlib
import re
import sys

fence = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def literal(text):
    """A C++ literal of the text's UTF-8, a line of source for each of its lines."""
    escapes = {'"': '\\"', "\\": "\\\\", "\n": "\\n"}
    lines = text.splitlines(keepends=True) or [""]
    return "\n    ".join('"' + "".join(escapes.get(c, c) for c in line) + '"' for line in lines)


def blocks_in(text):
    """Line, code and expected output of each block of C++."""
    found = list(fence.finditer(text))
    for match, following in zip(found, found[1:] + [None]):
        if match[1] != "cpp":
            continue
        expected = following[2] if following and following[1] == "text" else ""
        yield text.count("\n", 0, match.start()) + 2, match[2], expected


document = pathlib.Path(sys.argv[1])
blocks = list(blocks_in(document.read_text(encoding="utf-8")))
if not blocks:
    sys.exit(f"{document}: no C++")

inclusions = []
functions = []
entries = []
for line, code, expected in blocks:
    name = f"line{line}"
    inclusions += re.findall(r"^#include .*$", code, re.MULTILINE)
    code = re.sub(r"^#include .*$", "", code, flags=re.MULTILINE)  # keeps the lines' numbers
    main = re.search(r"^int main\(\) {\n.*?(?=^}$)", code, re.MULTILINE | re.DOTALL)
    if main:
        code = f"{code[: main.end()]}return 0;\n{code[main.end() :]}".replace("int main()", "int run()")
    else:
        code = f"int run() {{\n#line {line}\n{code}return 0;\n}}\n"
    functions.append(f'namespace {name} {{\n#line {line} "{document}"\n{code}}}\n')
    entries.append(f"{{{line}, {name}::run,\n    {literal(expected)}}},\n")

pathlib.Path(sys.argv[2]).write_text(
    "\n".join(dict.fromkeys(inclusions))
    + '\n#include "snippets.h"\n\nnamespace {\n'
    + "\n".join(functions)
    + "}  // namespace\n\nint main() {\n"
    + f'return runSnippets("{document.name}", {{\n{"".join(entries)}}});\n}}\n',
    encoding="utf-8",
)
