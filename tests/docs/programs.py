"""Compiles and runs the programs in a Markdown document, and compares what they print.

    programs.py DOCUMENT LANGUAGE DIRECTORY COMPILER...

Takes every fenced block of the language; each is a whole program. The next fenced block, where it is
one of `text`, is what it must print. In the compiler's arguments, {source} and {program} stand for the
two files.
"""

import pathlib
import re
import subprocess
import sys

document, language, directory, *compiler = sys.argv[1:]
fence = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
endings = {"c": "c", "pascal": "pas"}
work = pathlib.Path(directory)
work.mkdir(parents=True, exist_ok=True)

text = pathlib.Path(document).read_text(encoding="utf-8")
blocks = list(fence.finditer(text))
mistakes = []
count = 0
for block, following in zip(blocks, blocks[1:] + [None]):
    if block[1] != language:
        continue
    count += 1
    line = text.count("\n", 0, block.start()) + 2
    source = work / f"line{line}.{endings[language]}"
    program = work / f"line{line}"
    source.write_text(block[2], encoding="utf-8")
    files = {"source": str(source), "program": str(program)}
    subprocess.run([argument.format(**files) for argument in compiler], check=True)
    printed = subprocess.run([program], capture_output=True, text=True, check=False)
    expected = following[2] if following and following[1] == "text" else ""
    if printed.returncode != 0 or printed.stdout != expected:
        mistakes.append(
            f"{document}:{line}: ends with {printed.returncode} and prints\n{printed.stdout}{printed.stderr}"
        )
if count == 0:
    mistakes.append(f"{document}: no {language}")
for mistake in mistakes:
    print(mistake)
sys.exit(1 if mistakes else 0)
