"""One formula over all records of a table: NumPy arrays, or a frame of pandas."""

from __future__ import annotations

import ctypes
import sys
from collections.abc import Callable, Mapping
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Union

import numpy

from . import _border
from ._arrays import Values, values_of
from ._border import Handle, Text, Texts, ensure, utf16
from ._library import library
from .errors import FormulaError, Kind, KxJsError

if TYPE_CHECKING:
    import pandas

    from .host import Host

Table = Union["pandas.DataFrame", Mapping[str, Any]]
Progress = Callable[[int, int], object]

_NOT_A_NUMBER = "Not A Number"
_PROGRESS = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_size_t)


class _FailureStruct(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("record", ctypes.c_size_t),
        ("line", ctypes.c_int32),
        ("column", ctypes.c_int32),
        ("end_column", ctypes.c_int32),
        ("reserved", ctypes.c_int32),
    ]


@dataclass(frozen=True)
class RecordFailure:
    """A record for which the formula failed, or whose text as result contains "NaN"."""

    record: int
    """The position in the table, from 0."""
    text: str
    """The error text."""
    message: str
    """The exception's own text."""
    line: int
    column: int
    end_column: int


class Column:
    """A formula that gives a column; :meth:`Host.compile_column` makes it."""

    def __init__(self, host: Host, source: str) -> None:
        self.source = source
        """The JavaScript."""
        self._host = host
        self._columns: Handle | None = None
        self._names: list[str] | None = None
        self._resets = 0
        self._error = Text()

    def __call__(
        self,
        table: Table,
        *,
        dtype: type = float,
        progress: Progress | None = None,
        failures: list[RecordFailure] | None = None,
        out: Any = None,
    ) -> Any:
        """Evaluates the formula for each record, with its columns as variables.

        ``table`` is a frame of pandas, which gives a series, or a mapping of names to arrays, which
        gives an array. Arrays of float64, int32 and bool that are contiguous are read where they
        are; other numbers and texts are copied. ``dtype`` is float, bool or str.

        Records that fail are appended to ``failures``, and have NaN, False or "" as their result.
        Without ``failures``, the first of them raises :class:`FormulaError` after all records. With
        ``dtype=str``, texts that contain "NaN" are appended too, and do not raise.

        ``out`` is an array for numbers or truth values, contiguous and of ``dtype``, in place of a
        new one.

        ``progress`` is called about every hundredth of a second with the number of records that are
        done and that there are. What it raises ends the evaluation, and so does Ctrl-C.

        Afterwards the columns that the formula names are variables of the host, with the values of
        the last record.
        """
        if dtype not in (float, bool, str):
            raise TypeError(f"dtype is float, bool or str, not {dtype!r}")
        values = {
            name: values_of(name, table[name])
            for name in table
            if isinstance(name, str) and name in self.source
        }
        count = _record_count(table)
        for name, column in values.items():
            if len(column.array) != count:
                raise ValueError(f"the column {name} has {len(column.array)} records, not {count}")
        if out is not None:
            _check_out(out, dtype, count)
        columns = self._bind(values)
        result = self._evaluate(columns, count, dtype, progress, out)
        self._report(columns, failures)
        pandas = sys.modules.get("pandas")
        if pandas is not None and isinstance(table, pandas.DataFrame):
            return pandas.Series(result, index=table.index)
        return result

    def _bind(self, values: dict[str, Values]) -> Handle:
        names = list(values)
        is_new = self._columns is None or names != self._names
        if is_new:
            self._columns = Handle("columns", self._host)
        assert self._columns is not None
        for name, column in values.items():
            bind = getattr(library, f"kxjs_columns_bind_{column.kind}_utf16")
            ensure(
                bind(self._columns, *utf16(name), column.array.ctypes.data, len(column.array))
            )
        if is_new or self._resets != self._host._resets:
            self._names = None
            status = library.kxjs_columns_compile_utf16(
                self._columns, *utf16(self.source), self._error
            )
            if status == _border.FORMULA_FAILED:
                raise self._host._failure(self._error.value, self.source)
            ensure(status)
            self._names, self._resets = names, self._host._resets
        return self._columns

    def _evaluate(
        self, columns: Handle, count: int, dtype: type, progress: Progress | None, out: Any
    ) -> Any:
        raised: list[BaseException] = []

        # Python sees Ctrl-C here too.
        def step(_: object, done: int) -> int:
            try:
                if progress is not None:
                    progress(done, count)
            except BaseException as error:  # none may pass through C
                raised.append(error)
                return 0
            return 1

        callback = _PROGRESS(step)
        ensure(library.kxjs_columns_set_progress(columns, callback, None))
        if dtype is str:
            texts = Texts()
            status = library.kxjs_columns_evaluate_texts(columns, texts, count, None, self._error)
        else:
            result = numpy.empty(count, dtype=dtype) if out is None else out
            name = "double" if dtype is float else "bool"
            evaluate = getattr(library, f"kxjs_columns_evaluate_{name}")
            status = evaluate(columns, result.ctypes.data, count, None, self._error)
        if raised:
            raise raised[0]
        if status == _border.ENDED:
            text = self._error.value
            raise FormulaError(text, Kind.LIMIT, message=text, source=self.source)
        ensure(status)
        if dtype is str:
            result = numpy.empty(count, dtype=object)
            result[:] = texts.values()
        return result

    def _report(self, columns: Handle, failures: list[RecordFailure] | None) -> None:
        count = ctypes.c_size_t()
        ensure(library.kxjs_columns_failure_count(columns, ctypes.byref(count)))
        place, error, message = _FailureStruct(ctypes.sizeof(_FailureStruct)), Text(), Text()
        for index in range(count.value):
            ensure(
                library.kxjs_columns_failure(columns, index, ctypes.byref(place), error, message)
            )
            failure = RecordFailure(
                place.record, error.value, message.value, place.line, place.column, place.end_column
            )
            if failures is not None:
                failures.append(failure)
            elif failure.text != _NOT_A_NUMBER:
                raise FormulaError(
                    failure.text,
                    Kind.RUN,
                    failure.line,
                    failure.column,
                    failure.end_column,
                    failure.message,
                    self.source,
                    failure.record,
                )


def _check_out(out: Any, dtype: type, count: int) -> None:
    fits = (
        isinstance(out, numpy.ndarray)
        and dtype is not str
        and out.dtype == numpy.dtype(dtype)
        and out.shape == (count,)
        and out.flags.c_contiguous
        and out.flags.writeable
    )
    if not fits:
        raise ValueError(f"out is no contiguous array of {count} times {dtype.__name__}")


def _record_count(table: Table) -> int:
    index = getattr(table, "index", None)
    if index is not None:
        return len(index)
    for name in table:
        return len(table[name])
    raise ValueError("the table has no columns, so the number of its records is not known")
