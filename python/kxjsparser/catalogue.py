"""The built-in functions and their help texts."""

from __future__ import annotations

import ctypes
from dataclasses import dataclass

from ._border import Handle, Text, Texts, ensure
from ._library import library


@dataclass(frozen=True)
class Function:
    """A built-in function. Descriptions and examples are HTML."""

    name: str
    category: str
    description: str
    parameters: list[tuple[str, str]]
    """Names and descriptions."""
    return_description: str
    examples: list[str]
    javascript: str
    """The function's declaration."""
    html: str
    """All of the help as a block of HTML."""


# The KXJS_FUNCTION_ constants in the order of what Function has of them.
_NAME, _CATEGORY, _DESCRIPTION, _RETURNS, _JAVASCRIPT, _HTML = 0, 4, 1, 2, 5, 7
_CATALOGUES = (1, 2, 3)


def functions() -> list[Function]:
    """All built-in functions, in the order of the catalogues.

    >>> [function.name for function in functions()][:3]
    ['ROUND', 'LOG', 'TRUNCATE']
    """
    return [function for catalogue in _CATALOGUES for function in _functions(catalogue)]


def _functions(catalogue: int) -> list[Function]:
    records = Handle("functions", catalogue)
    count = ctypes.c_size_t()
    ensure(library.kxjs_functions_count(records, ctypes.byref(count)))
    return [_function(records, index) for index in range(count.value)]


def _function(records: Handle, index: int) -> Function:
    text = Text()

    def read(which: int) -> str:
        ensure(library.kxjs_functions_text(records, index, which, text))
        return text.value

    names, descriptions, examples = Texts(), Texts(), Texts()
    ensure(library.kxjs_functions_lists(records, index, names, descriptions, examples))
    return Function(
        name=read(_NAME),
        category=read(_CATEGORY),
        description=read(_DESCRIPTION),
        parameters=list(zip(names.values(), descriptions.values())),
        return_description=read(_RETURNS),
        examples=examples.values(),
        javascript=read(_JAVASCRIPT),
        html=read(_HTML),
    )
