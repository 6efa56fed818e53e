"""The Python in the documents runs, one block after the other, and prints what the text behind it says."""

import contextlib
import io
import pathlib
import re

import pytest

SOURCE = pathlib.Path(__file__).parents[2]
# A block of Python, and the block of text that follows, with at most a line of prose between.
BLOCKS = re.compile(r"^```python\n(.*?)^```\n(?:\n(?:[^\n`]+\n)?\n?```text\n(.*?)^```\n)?", re.M | re.S)
DOCUMENTS = [
    document
    for document in sorted([*SOURCE.glob("*.md"), *SOURCE.glob("docs/*.md")])
    if "```python\n" in document.read_text()
]


def test_there_are_documents_with_python():
    assert SOURCE / "docs/python.md" in DOCUMENTS


@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda document: document.name)
def test_document(document, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    text = document.read_text()
    names = {"__name__": "document"}
    for block in BLOCKS.finditer(text):
        line = text[: block.start()].count("\n") + 2
        code = compile("\n" * (line - 1) + block[1], document.name, "exec")
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            exec(code, names)
        assert printed.getvalue() == (block[2] or ""), f"line {line}"
