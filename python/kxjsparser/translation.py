"""From the older language to JavaScript: conversion, translation, check, free variables."""

from __future__ import annotations

import ctypes
import enum
from collections.abc import Iterable, Mapping
from dataclasses import dataclass

from . import _border
from ._border import Handle, Text, Texts, code_points, ensure, milliseconds, utf16, whole
from ._library import library
from .errors import FormulaError, TranslationError


class Verdict(enum.Enum):
    """What the conversion does to a formula, from best to worst."""

    SAME = 0
    """It keeps its meaning."""
    DIFFERS = 1
    """A function or a comparison of texts means another thing."""
    UNKNOWN = 2
    """It fails when it runs: something is not defined."""
    CHANGED = 3
    """It compiles to something else."""
    FAILS = 4
    """It does not compile."""
    NOT_A_FORMULA = 5
    """It is none of the older language."""


@dataclass(frozen=True)
class Finding:
    """What stands against a translation, or what the conversion does to a part of a formula."""

    code: str
    """A name such as "SYNTAX" or "EQUALS_ASSIGNS"."""
    text: str
    """What is wrong, in English."""
    position: int
    """The part begins at ``formula[position]``."""
    length: int
    javascript: str = ""
    """What the conversion makes of the part; of a check only."""
    rewrite: str = ""
    """What to write instead; of a check only."""
    rewrite_position: int = 0
    """Where the part begins that the rewriting replaces."""
    rewrite_length: int = 0


@dataclass(frozen=True)
class Translation:
    """A formula as JavaScript that means the same."""

    javascript: str
    variables: list[str]
    """The formula's variables, as the JavaScript has them."""


@dataclass(frozen=True)
class Check:
    """What the conversion does to a formula."""

    verdict: Verdict
    javascript: str
    """What the conversion makes of it."""
    rewrite: str
    """The formula as it may be written for the conversion; empty where none is needed or known."""
    findings: list[Finding]


class _FindingStruct(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("position", ctypes.c_size_t),
        ("length", ctypes.c_size_t),
        ("rewrite_position", ctypes.c_size_t),
        ("rewrite_length", ctypes.c_size_t),
    ]


_KINDS: dict[type | None, int] = {None: 0, str: 1, float: 2, int: 2, bool: 3}


class Translator:
    """Translates formulas by their grammar, and checks what :func:`convert` does to them.

    ``variables`` are the names that the application binds, in their own case, each with the type of
    its values: str, float, bool, or None where it is not known. ``functions`` are those that the
    application has defined. ``date_format`` has YYYY or YY, MM and DD; years of two digits lie in
    the hundred years from ``epoch`` on. ``exact`` compares texts in full, and ``strict`` makes
    unknown names findings.

    Any number of threads may use a translator.

    >>> Translator(variables={"Price": float}).translate("PRICE=2").javascript
    '(Price===2)'
    """

    def __init__(
        self,
        *,
        variables: Mapping[str, type | None] | None = None,
        functions: Iterable[str] = (),
        date_format: str | None = None,
        epoch: int | None = None,
        exact: bool = False,
        strict: bool = False,
    ) -> None:
        handle = self._handle = Handle("translator")
        if isinstance(functions, str):
            raise TypeError("functions are names, not one str")
        for name, kind in (variables or {}).items():
            if kind not in _KINDS:
                raise TypeError(f"the type of {name} is str, float, bool or None, not {kind!r}")
            ensure(
                library.kxjs_translator_add_variable_utf16(handle, *utf16(name), _KINDS[kind])
            )
        for name in functions:
            ensure(library.kxjs_translator_add_function_utf16(handle, *utf16(name)))
        if date_format is not None:
            ensure(library.kxjs_translator_set_date_format_utf16(handle, *utf16(date_format)))
        if epoch is not None:
            ensure(library.kxjs_translator_set_epoch(handle, whole("epoch", epoch, 32)))
        ensure(library.kxjs_translator_set_exact(handle, exact))
        ensure(library.kxjs_translator_set_strict(handle, strict))

    def translate(self, formula: str) -> Translation:
        """Translates a formula; it runs in hosts that have evaluated :func:`run_time_part`.

        Raises :class:`TranslationError` where there is no translation.
        """
        javascript, variables, findings = Text(), Texts(), Handle("findings")
        status = library.kxjs_translator_translate_utf16(
            self._handle, *utf16(formula), javascript, findings, variables
        )
        if status == _border.FORMULA_FAILED:
            raise TranslationError(_findings(findings, formula))
        ensure(status)
        return Translation(javascript.value, variables.values())

    def check(self, formula: str) -> Check:
        """Says whether :func:`convert` keeps what a formula means. Nothing runs."""
        verdict, javascript, rewrite = ctypes.c_int32(), Text(), Text()
        findings = Handle("findings")
        ensure(
            library.kxjs_translator_check_utf16(
                self._handle,
                *utf16(formula),
                ctypes.byref(verdict),
                javascript,
                rewrite,
                findings,
            )
        )
        return Check(
            Verdict(verdict.value), javascript.value, rewrite.value, _findings(findings, formula)
        )


def _findings(findings: Handle, formula: str) -> list[Finding]:
    count = ctypes.c_size_t()
    ensure(library.kxjs_findings_count(findings, ctypes.byref(count)))
    place = _FindingStruct(ctypes.sizeof(_FindingStruct))
    texts = [Text() for _ in range(4)]
    found = []
    for index in range(count.value):
        ensure(library.kxjs_findings_get(findings, index, ctypes.byref(place), *texts))
        code, text, javascript, rewrite = (each.value for each in texts)
        begin, end, rewrite_begin, rewrite_end = (
            code_points(formula, units)
            for units in (
                place.position,
                place.position + place.length,
                place.rewrite_position,
                place.rewrite_position + place.rewrite_length,
            )
        )
        found.append(
            Finding(
                code,
                text,
                begin,
                end - begin,
                javascript,
                rewrite,
                rewrite_begin,
                rewrite_end - rewrite_begin,
            )
        )
    return found


def convert(formula: str) -> str:
    """Converts a formula of the older language by the rules that formulas in use depend on.

    >>> convert("IIF(A>2 .AND. B<>0, 'OK', 'KO')")
    " IIF(A>2 && B!=0, 'OK', 'KO')"
    """
    javascript = Text()
    ensure(library.kxjs_convert_utf16(*utf16(formula), javascript))
    return javascript.value


def translate(formula: str) -> Translation:
    """:meth:`Translator.translate` with the default settings."""
    return Translator().translate(formula)


def check(formula: str) -> Check:
    """:meth:`Translator.check` with the default settings.

    >>> check("IIF(B=2,'x','y')").rewrite
    "IIF(B==2,'x','y')"
    """
    return Translator().check(formula)


def run_time_part() -> str:
    """The script that makes translations run, to be evaluated once in each host, with ``js``."""
    javascript = Text()
    ensure(library.kxjs_run_time_part(javascript))
    return javascript.value


def extract(formula: str, *, js: bool = False, timeout: float | None = None) -> list[str]:
    """The names that a formula uses and nothing defines. It runs, in a host of its own.

    ``timeout`` is in seconds; a formula that makes up names at run time ends by it only.

    >>> extract("IIF(PRICE>10,QTY*2,0)")
    ['PRICE', 'QTY']
    """
    source = formula if js else convert(formula)
    names, error = Texts(), Text()
    status = library.kxjs_extract_utf16(
        *utf16(source), milliseconds("timeout", timeout), None, names, error
    )
    if status == _border.FORMULA_FAILED:
        raise FormulaError(error.value, source=source)
    ensure(status)
    return names.values()
