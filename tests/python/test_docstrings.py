"""The examples in the docstrings."""

import doctest
import importlib
import pkgutil

import kxjsparser
import pandas
import pytest

MODULES = ["kxjsparser"] + [
    f"kxjsparser.{module.name}"
    for module in pkgutil.iter_modules(kxjsparser.__path__)
    if module.name != "dask"
]
FRAME = pandas.DataFrame({"PRICE": [1.5, 2], "QTY": [1, 2]})


@pytest.mark.parametrize("name", MODULES)
def test_examples(name, host):
    names = {**vars(kxjsparser), "host": host, "frame": FRAME}
    result = doctest.testmod(
        importlib.import_module(name),
        extraglobs=names,
        optionflags=doctest.NORMALIZE_WHITESPACE,
    )
    assert result.failed == 0


def test_there_are_examples():
    finder = doctest.DocTestFinder()
    found = [finder.find(importlib.import_module(name)) for name in MODULES]
    assert sum(len(test.examples) for tests in found for test in tests) > 10
