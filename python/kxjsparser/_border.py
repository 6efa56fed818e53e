"""What crosses the border to C: texts, handles, status codes."""

from __future__ import annotations

import ctypes
import math
import operator
from typing import Any, NoReturn

from ._library import library
from .errors import KxJsError, WrongThreadError

OK = 0
RESULT_NAN = 1
FORMULA_FAILED = 2
ENDED = 3
NOT_FOUND = 4
REFUSED = 5
_NULL_ARGUMENT = 16
_WRONG_THREAD = 19
_NO_MEMORY = 32


def ensure(status: int) -> None:
    """Raises what a status stands for; KXJS_OK stands for nothing."""
    if status == OK:
        return
    if status == _NO_MEMORY:
        raise MemoryError
    # The package passes no null but for what was freed.
    if status == _NULL_ARGUMENT:
        raise KxJsError("the host is closed")
    text = library.kxjs_status_text(status).decode()
    if status == REFUSED:
        raise ValueError(text)
    raise (WrongThreadError if status == _WRONG_THREAD else KxJsError)(text)


def utf16(text: str) -> tuple[bytes, int]:
    """A text as the two arguments that C takes. Lone surrogates pass both ways."""
    if not isinstance(text, str):
        raise TypeError(f"a text is a str, not {type(text).__name__}")
    data = text.encode("utf-16-le", "surrogatepass")
    return data, len(data) // 2


def whole(name: str, value: Any, bits: int, *, is_signed: bool = True) -> int:
    """A whole number as C takes it. ctypes would cut one that does not fit."""
    number = operator.index(value)
    least = -(2 ** (bits - 1)) if is_signed else 0
    if not least <= number < least + 2**bits:
        raise ValueError(f"{name} is from {least} to {least + 2**bits - 1}, not {number}")
    return number


def milliseconds(name: str, seconds: float | None) -> int:
    """A time limit as C takes it, rounded up; None is none."""
    return whole(name, math.ceil((seconds or 0) * 1000), 64)


def code_points(text: str, units: int) -> int:
    """A position in UTF-16 code units as one in ``text``, as Python counts."""
    data, length = utf16(text)
    if length == len(text):
        return units
    return len(data[: 2 * units].decode("utf-16-le", "surrogatepass"))


class Handle:
    """An object of the library, freed with its Python object: on any thread, as C allows."""

    def __init__(self, kind: str, *arguments: Any) -> None:
        # What ctypes passes to C for this object.
        self._as_parameter_ = ctypes.c_void_p()
        # At the end of the process, the module's own names may be gone first.
        self._release = getattr(library, f"kxjs_{kind}_free")
        ensure(getattr(library, f"kxjs_{kind}_create")(*arguments, self.address()))

    def address(self) -> Any:
        """Where C stores the handle."""
        return ctypes.byref(self._as_parameter_)

    def __reduce_ex__(self, _: Any) -> NoReturn:
        # A copy would free the same handle.
        raise TypeError(f"a {type(self).__name__} can neither be copied nor pickled")

    def free(self) -> None:
        handle, self._as_parameter_ = self._as_parameter_, ctypes.c_void_p()
        self._release(handle)

    def __del__(self) -> None:
        if getattr(self, "_as_parameter_", None):
            self.free()


class Text(Handle):
    """A text that C fills."""

    def __init__(self) -> None:
        super().__init__("text")
        self._data = ctypes.c_void_p()
        self._length = ctypes.c_size_t()
        self._out = ctypes.byref(self._data), ctypes.byref(self._length)

    @property
    def value(self) -> str:
        ensure(library.kxjs_text_utf16(self, *self._out))
        data = ctypes.string_at(self._data.value or 0, 2 * self._length.value)
        return _decode(data)


class Texts(Handle):
    """A list of texts that C fills."""

    def __init__(self) -> None:
        super().__init__("texts")

    def values(self) -> list[str]:
        data, length = ctypes.c_void_p(), ctypes.c_size_t()
        status = library.kxjs_texts_separated_utf16(
            self, 0, ctypes.byref(data), ctypes.byref(length)
        )
        # Splitting takes half the time of cutting, but a text may have a zero itself. No units are
        # no text or an empty one.
        if status == REFUSED or length.value == 0:
            return self._cut()
        ensure(status)
        return _decode(ctypes.string_at(data.value or 0, 2 * length.value)).split("\0")

    def _cut(self) -> list[str]:
        data, offsets, count = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_size_t()
        ensure(
            library.kxjs_texts_utf16(
                self, ctypes.byref(data), ctypes.byref(offsets), ctypes.byref(count)
            )
        )
        places = (ctypes.c_size_t * (count.value + 1)).from_address(offsets.value or 0)[:]
        units = ctypes.string_at(data.value or 0, 2 * places[-1])
        return [_decode(units[2 * begin : 2 * end]) for begin, end in zip(places, places[1:])]


def _decode(units: bytes) -> str:
    return units.decode("utf-16-le", "surrogatepass")
