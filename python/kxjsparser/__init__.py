"""Formulas of an older upper-case language, or JavaScript, evaluated by the KxJsParser library.

>>> import kxjsparser
>>> with kxjsparser.Host() as host:
...     host["PRICE"] = 12.5
...     total = host.compile("ROUND(PRICE*1.19,2)")
...     print(total())
14.88

Whole tables are evaluated by :meth:`Host.column`, on several machines by :mod:`kxjsparser.dask`.
The package needs the installed library, and NumPy for tables.
"""

from ._library import __version__
from .catalogue import (
    Function,
    documentation,
    documentation_pages,
    functions,
    make_function,
)
from .errors import FormulaError, Kind, KxJsError, TranslationError, WrongThreadError
from .host import Formula, Host
from .isolation import Isolation, Sandbox
from .translation import (
    Check,
    Finding,
    Translation,
    Translator,
    Verdict,
    check,
    convert,
    extract,
    run_time_part,
    translate,
)

__all__ = [
    "Check",
    "Finding",
    "Formula",
    "FormulaError",
    "Function",
    "Host",
    "Isolation",
    "Kind",
    "KxJsError",
    "Sandbox",
    "Translation",
    "TranslationError",
    "Translator",
    "Verdict",
    "WrongThreadError",
    "__version__",
    "check",
    "convert",
    "documentation",
    "documentation_pages",
    "extract",
    "functions",
    "make_function",
    "run_time_part",
    "translate",
]
