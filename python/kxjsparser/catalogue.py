"""The built-in functions and those of the application, and their help texts."""

from __future__ import annotations

import ctypes
from collections.abc import Iterable
from dataclasses import dataclass

from ._border import REFUSED, Handle, Text, Texts, ensure, utf16
from ._library import library


@dataclass(frozen=True)
class Function:
    """A function for formulas. Descriptions and examples are HTML."""

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
_BODY = 3
_EMPTY, _BUILT_IN, _TRANSLATION = 0, (1, 2, 3), 4


def functions(*, translated: bool = False) -> list[Function]:
    """All built-in functions, in the order of the catalogues.

    ``translated`` is for those that translated formulas call instead.

    >>> [function.name for function in functions()][:3]
    ['ROUND', 'LOG', 'TRUNCATE']
    """
    catalogues = (_TRANSLATION,) if translated else _BUILT_IN
    return [function for catalogue in catalogues for function in _functions(catalogue)]


def make_function(
    name: str,
    body: str,
    *,
    description: str = "",
    parameters: Iterable[tuple[str, str]] = (),
    return_description: str = "",
    examples: Iterable[str] = (),
    category: str = "",
) -> Function:
    """A function of the application: its JavaScript, and help like that of the built-in ones.

    ``body`` is JavaScript without its braces, ``parameters`` are names and descriptions. Raises
    ValueError for a name with small letters or white space, and for "{" in a help text. There is
    help where there are both descriptions and an example.

    >>> vat = make_function("VAT", "return price*0.19;", parameters=[("price", "A net price")])
    >>> host.evaluate(vat.javascript, js=True)
    'undefined'
    >>> host.evaluate("VAT(100)")
    '19'
    """
    records, index = Handle("functions", _EMPTY), ctypes.c_size_t()
    ensure(library.kxjs_functions_add(records, ctypes.byref(index)))

    def take(part: str, status: int) -> None:
        if status == REFUSED:
            raise ValueError(f"the {part} of the function {name!r} is not allowed")
        ensure(status)

    for part, which, text in (
        ("name", _NAME, name),
        ("body", _BODY, body),
        ("description", _DESCRIPTION, description),
        ("description of the result", _RETURNS, return_description),
        ("category", _CATEGORY, category),
    ):
        if text or which in (_NAME, _BODY):
            status = library.kxjs_functions_set_text_utf16(records, index, which, *utf16(text))
            take(part, status)
    for parameter, text in parameters:
        take(
            f"parameter {parameter!r}",
            library.kxjs_functions_add_parameter_utf16(
                records, index, *utf16(parameter), *utf16(text)
            ),
        )
    for text in examples:
        status = library.kxjs_functions_add_example_utf16(records, index, *utf16(text))
        take("example", status)
    return _function(records, index.value)


def documentation(*, standalone: bool = True, examples: bool = True) -> str:
    """The help of all built-in functions as HTML: a document, or its body's inside."""
    html = Text()
    ensure(library.kxjs_documentation(standalone, examples, html))
    return html.value


def documentation_pages() -> dict[str, str]:
    """The help as one page of HTML for each function, by its name."""
    names, pages = Texts(), Texts()
    ensure(library.kxjs_documentation_pages(names, pages))
    return dict(zip(names.values(), pages.values()))


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
