"""Script hosts and compiled formulas."""

from __future__ import annotations

import ctypes
import threading
from typing import TYPE_CHECKING, Any

from . import _border
from ._border import Handle, Text, ensure, milliseconds, utf16, whole
from ._library import library
from .errors import FormulaError, Kind, KxJsError, WrongThreadError
from .isolation import Isolation, Sandbox
from .translation import convert

if TYPE_CHECKING:
    from .columns import Column, Progress, RecordFailure, Table


class _Failure(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_size_t),
        ("kind", ctypes.c_int32),
        ("line", ctypes.c_int32),
        ("column", ctypes.c_int32),
        ("end_column", ctypes.c_int32),
        ("is_in_call", ctypes.c_int32),
        ("frame_count", ctypes.c_int32),
    ]


class Host(Handle):
    """A script host: variables, compiled formulas, and one JavaScript context for them.

    Formulas are of the older upper-case language and are converted, unless ``js`` is true: then
    they are JavaScript.

    >>> with Host(timeout=1) as host:
    ...     host["PRICE"] = 12.5
    ...     host.evaluate("IIF(PRICE>10 .AND. PRICE<>99,'dear','cheap')")
    'dear'

    ``timeout`` ends each run, in seconds, and ``memory_limit`` ends it in bytes, for all hosts of
    the thread; both with :class:`FormulaError`, and the host works on. ``isolated`` runs the
    formulas in a process of their own, whatever they do: True, or an :class:`Isolation`.

    Use a host on the thread that made it, or :class:`WrongThreadError` is raised;
    :meth:`terminate` may be called on any.
    """

    def __init__(
        self,
        *,
        timeout: float | None = None,
        memory_limit: int | None = None,
        isolated: bool | Isolation = False,
    ) -> None:
        self._result, self._error = Text(), Text()
        self._thread = threading.get_ident()
        self._closing = threading.Lock()
        self._resets = 0
        self._keys: dict[str, tuple[bytes, int]] = {}
        if isolated:
            self._create_isolated(isolated if isinstance(isolated, Isolation) else Isolation())
        else:
            super().__init__("host")
        self._ensure_whole(library.kxjs_host_initialize(self))
        if timeout is not None:
            ensure(library.kxjs_host_set_time_limit(self, milliseconds("timeout", timeout)))
        if memory_limit is not None:
            limit = whole("memory_limit", memory_limit, 64, is_signed=False)
            ensure(library.kxjs_host_set_memory_limit(self, limit))

    def _create_isolated(self, isolation: Isolation) -> None:
        structure = isolation._structure()
        self._as_parameter_ = ctypes.c_void_p()
        self._release = library.kxjs_host_free
        status = library.kxjs_host_create_isolated(
            ctypes.byref(structure), self.address(), self._error
        )
        if status != _border.OK and self._error.value:
            raise KxJsError(self._error.value)
        ensure(status)

    def __enter__(self) -> Host:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Frees the host now; otherwise that happens with the last reference to it.

        On the host's thread only: on another, a formula might be running.
        """
        if threading.get_ident() != self._thread:
            raise WrongThreadError("a host is closed on the thread that made it")
        with self._closing:
            self.free()

    def terminate(self) -> None:
        """Ends the formula that is running in the host, if any. May be called on any thread."""
        with self._closing:
            ensure(library.kxjs_host_terminate(self))

    def reset(self) -> None:
        """Forgets all variables and compiled formulas; the built-in functions stay."""
        status = library.kxjs_host_reset(self)
        if status in (_border.OK, _border.FORMULA_FAILED):
            self._resets += 1
        self._ensure_whole(status)

    @property
    def sandbox(self) -> Sandbox | None:
        """Which pieces of the sandbox the worker of an isolated host is in; None for others."""
        pieces = ctypes.c_uint32()
        status = library.kxjs_host_sandbox(self, ctypes.byref(pieces))
        if status == _border.NOT_FOUND:
            return None
        ensure(status)
        return Sandbox(pieces.value)

    @property
    def shared_memory(self) -> memoryview:
        """Memory that an isolated host has in common with its worker; empty where there is none.

        :class:`Isolation` says how much. Columns of float64 and int32 that lie there, and results
        of numbers, are not copied. The worker can write there at any time. The memory lives as long
        as something refers to it::

            prices = numpy.frombuffer(host.shared_memory, dtype=float, count=1000)
        """
        memory, length = ctypes.c_void_p(), ctypes.c_size_t()
        status = library.kxjs_host_shared_memory(self, ctypes.byref(memory), ctypes.byref(length))
        if status == _border.NOT_FOUND:
            return memoryview(bytearray())
        ensure(status)
        shared = (ctypes.c_ubyte * length.value).from_address(memory.value or 0)
        # Columns keep the host of C, and so the memory, when this host is closed.
        shared._columns = Handle("columns", self)  # type: ignore[attr-defined]
        return memoryview(shared).cast("B")

    def __setitem__(self, name: str, value: int | float | bool | str) -> None:
        """Binds a variable; a formula sees those that were bound before it was compiled.

        Whole numbers beyond 2^53 are refused with OverflowError, since no number of JavaScript
        holds them. Of texts, formulas see the first 255 UTF-16 code units.
        """
        key = self._keys.get(name)
        if key is None:
            key = self._keys[name] = utf16(name)
        # Numbers of NumPy have it.
        value = getattr(value, "item", lambda: value)()
        if isinstance(value, bool):
            status = library.kxjs_host_set_bool_utf16(self, *key, value)
        elif isinstance(value, float):
            status = library.kxjs_host_set_double_utf16(self, *key, value)
        elif isinstance(value, int):
            if -(2**31) <= value < 2**31:
                status = library.kxjs_host_set_int32_utf16(self, *key, value)
            elif abs(value) <= 2**53:
                status = library.kxjs_host_set_double_utf16(self, *key, float(value))
            else:
                raise OverflowError(f"{name}: JavaScript has no such number: {value}")
        elif isinstance(value, str):
            status = library.kxjs_host_set_text_utf16(self, *key, *utf16(value))
        else:
            kind = type(value).__name__
            raise TypeError(f"{name} is an int, float, bool or str, not {kind}")
        if status == _border.REFUSED:
            raise ValueError(f"a variable cannot have the name {name!r}")
        ensure(status)

    def __contains__(self, name: object) -> bool:
        """Whether a variable of this name is bound."""
        if not isinstance(name, str):
            return False
        kind = ctypes.c_int32()
        status = library.kxjs_host_variable_type_utf16(self, *utf16(name), ctypes.byref(kind))
        if status == _border.NOT_FOUND:
            return False
        ensure(status)
        return True

    def compile(self, formula: str, *, js: bool = False) -> Formula:
        """Compiles a formula, to be run as often as wanted. It is kept until :meth:`reset`."""
        return Formula(self, formula, js)

    def evaluate(self, formula: str, *, js: bool = False) -> str:
        """Runs a formula once and returns its result as text, as :meth:`Formula.__call__` does."""
        source = formula if js else convert(formula)
        return self._finish(
            library.kxjs_host_evaluate_utf16(self, *utf16(source), self._result, self._error),
            source,
        )

    def column(
        self,
        formula: str,
        table: Table,
        *,
        js: bool = False,
        dtype: type = float,
        progress: Progress | None = None,
        failures: list[RecordFailure] | None = None,
    ) -> Any:
        """Evaluates a formula for each record of a table; see :meth:`Column.__call__`.

        >>> frame.assign(TOTAL=host.column("PRICE*QTY", frame))
           PRICE  QTY  TOTAL
        0    1.5    1    1.5
        1    2.0    2    4.0
        """
        column = self.compile_column(formula, js=js)
        return column(table, dtype=dtype, progress=progress, failures=failures)

    def compile_column(self, formula: str, *, js: bool = False) -> Column:
        """Prepares a formula for many tables: it is compiled at the first."""
        from .columns import Column

        return Column(self, formula if js else convert(formula))

    def _ensure_whole(self, status: int) -> None:
        """Raises what a call without a formula came to."""
        if status == _border.FORMULA_FAILED:
            raise self._failure("", "")
        ensure(status)

    def _finish(self, status: int, source: str) -> str:
        # "NaN" is a result: the error text beside it is for those who look at no result.
        if status in (_border.OK, _border.RESULT_NAN):
            return self._result.value
        if status == _border.FORMULA_FAILED:
            raise self._failure(self._error.value, source)
        ensure(status)
        raise AssertionError(status)

    def _failure(self, text: str, source: str) -> FormulaError:
        """The last failure of the host; with its own text, where ``text`` is empty."""
        failure, message = _Failure(ctypes.sizeof(_Failure)), Text()
        status = library.kxjs_host_failure(self, ctypes.byref(failure), message, None)
        if status == _border.NOT_FOUND:
            return FormulaError(text, source=source)
        ensure(status)
        return FormulaError(
            text or message.value,
            Kind(failure.kind),
            failure.line,
            failure.column,
            failure.end_column,
            message.value,
            source,
        )


class Formula:
    """A compiled formula of a host; :meth:`Host.compile` makes it.

    >>> host["QTY"] = 2
    >>> total = host.compile("QTY*12.5")
    >>> host["QTY"] = 4
    >>> total()
    '50'
    """

    def __init__(self, host: Host, formula: str, js: bool) -> None:
        self.source = formula if js else convert(formula)
        """The JavaScript."""
        self._host = host
        self._resets = host._resets
        self._script = ctypes.c_int32()
        status = library.kxjs_host_parse_utf16(
            host, *utf16(self.source), ctypes.byref(self._script), host._error
        )
        if status == _border.FORMULA_FAILED:
            raise host._failure(host._error.value, self.source)
        ensure(status)

    def __call__(self) -> str:
        """Runs the formula with the variables as they are now, and returns the result as text.

        Raises :class:`FormulaError` where it fails. A result of "NaN" is no failure.
        """
        host = self._host
        # Another formula may have this number by now.
        if self._resets != host._resets:
            raise KxJsError("the host was reset since the formula was compiled")
        return host._finish(
            library.kxjs_host_execute(host, self._script, host._result, host._error), self.source
        )
