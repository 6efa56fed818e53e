"""Formulas over frames of Dask, on one machine or many.

Each worker thread has a host of its own for a formula and compiles it once; partitions are evaluated
as columns. Dask does everything else. Workers need this package and the library.

>>> import kxjsparser.dask
>>> frame.assign(TOTAL=kxjsparser.dask.column("PRICE*QTY", frame)).compute()
   PRICE  QTY  TOTAL
0    1.5    1    1.5
1    2.0    2    4.0
"""

from __future__ import annotations

import functools
import threading
from collections.abc import Callable, Mapping
from typing import Any

import numpy
import pandas

from .columns import Column, RecordFailure
from .host import Host

_TYPES = {float: numpy.dtype(float), bool: numpy.dtype(bool), str: numpy.dtype(object)}

# Formulas that a thread keeps compiled.
_KEPT = 32

_of_thread = threading.local()


def column(
    formula: str,
    frame: Any,
    *,
    js: bool = False,
    dtype: type = float,
    variables: Mapping[str, int | float | bool | str] | None = None,
    **settings: Any,
) -> Any:
    """A series of Dask: the formula for each record of ``frame``, as :meth:`Host.column` gives it.

    A record that fails raises :class:`FormulaError` when the series is computed; :func:`results`
    does not. ``variables`` are bound beside the columns, and ``settings`` are those of
    :class:`Host`.
    """
    work = _Work(formula, js, dtype, variables, settings)
    return frame.map_partitions(work.column, meta=(None, _TYPES[dtype]))


def results(
    formula: str,
    frame: Any,
    *,
    js: bool = False,
    dtype: type = float,
    variables: Mapping[str, int | float | bool | str] | None = None,
    **settings: Any,
) -> Any:
    """A frame of Dask with the index of ``frame`` and the columns VALUE and ERROR.

    ERROR is the error text of a record that failed, which has NaN, False or "" as its VALUE, and
    None for others.

    >>> found = kxjsparser.dask.results("QTY==2 ? nosuch : PRICE", frame, js=True)
    >>> found[found.ERROR.notnull()].index.compute().tolist()
    [1]
    """
    work = _Work(formula, js, dtype, variables, settings)
    meta = pandas.DataFrame(
        {"VALUE": pandas.Series(dtype=_TYPES[dtype]), "ERROR": pandas.Series(dtype=object)}
    )
    return frame.map_partitions(work.results, meta=meta)


class _Work:
    """What is sent to the workers."""

    def __init__(
        self,
        formula: str,
        js: bool,
        dtype: type,
        variables: Mapping[str, int | float | bool | str] | None,
        settings: Mapping[str, Any],
    ) -> None:
        if dtype not in _TYPES:
            raise TypeError(f"dtype is float, bool or str, not {dtype!r}")
        self.formula, self.js, self.dtype = formula, js, dtype
        self.variables = tuple(sorted((variables or {}).items()))
        self.settings = tuple(sorted(settings.items()))

    def column(self, partition: pandas.DataFrame) -> Any:
        return self._compiled(partition)(partition, dtype=self.dtype)

    def results(self, partition: pandas.DataFrame) -> pandas.DataFrame:
        failures: list[RecordFailure] = []
        values = self._compiled(partition)(partition, dtype=self.dtype, failures=failures)
        errors = numpy.full(len(partition), None, dtype=object)
        for failure in failures:
            errors[failure.record] = failure.text
        return pandas.DataFrame({"VALUE": values, "ERROR": errors}, index=partition.index)

    def _compiled(self, partition: pandas.DataFrame) -> Column:
        """The formula in its host of this thread. Columns are variables of the host afterwards, so
        that formulas share none: one could see a column of another."""
        compile_formula: Callable[..., Column] | None
        compile_formula = getattr(_of_thread, "compile_formula", None)
        if compile_formula is None:
            compile_formula = functools.lru_cache(_KEPT, typed=True)(_compile)
            _of_thread.compile_formula = compile_formula
        names = tuple(map(str, partition.columns))
        return compile_formula(self.formula, self.js, names, self.variables, self.settings)


def _compile(
    formula: str,
    js: bool,
    names: tuple[str, ...],
    variables: tuple[tuple[str, int | float | bool | str], ...],
    settings: tuple[tuple[str, Any], ...],
) -> Column:
    host = Host(**dict(settings))
    for name, value in variables:
        host[name] = value
    return host.compile_column(formula, js=js)
