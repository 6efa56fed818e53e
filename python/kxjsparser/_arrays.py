"""What NumPy and pandas hold, as the columns of the C interface."""

from __future__ import annotations

from typing import Any, NamedTuple, cast

import numpy

Array = numpy.ndarray[Any, Any]


class Values(NamedTuple):
    """A column as C reads it."""

    kind: str
    """The middle of the C function's name: kxjs_columns_bind_KIND."""
    array: Array
    keep: object = None
    """What the array points to."""


def values_of(name: str, given: Any) -> Values:
    """The values of a column, without a copy where they are as C reads them."""
    array = _array(given)
    if array.ndim != 1:
        raise ValueError(f"the column {name} has {array.ndim} dimensions, not 1")
    kind, size = array.dtype.kind, array.dtype.itemsize
    if kind == "b":
        return Values("bool", numpy.ascontiguousarray(array))
    if kind == "i" and size <= 4 or kind == "u" and size < 4:
        return Values("int32", numpy.ascontiguousarray(array, dtype=numpy.int32))
    if kind in "iu":
        return Values("double", _doubles(name, array))
    if kind == "f" and size <= 8:
        return Values("double", numpy.ascontiguousarray(array, dtype=numpy.float64))
    if kind in "OU":
        return _spans(name, array.tolist())
    raise TypeError(f"the column {name} has {array.dtype}, not numbers, truth values or texts")


def _array(given: Any) -> Array:
    dtype = getattr(given, "dtype", None)
    # The types of pandas that know missing values.
    if dtype is not None and not isinstance(dtype, numpy.dtype):
        if getattr(dtype, "kind", "") in "iuf":
            return cast(Array, given.to_numpy(dtype=numpy.float64, na_value=numpy.nan))
        if dtype.kind == "b":
            return cast(Array, given.to_numpy(dtype=numpy.bool_))
    return numpy.asarray(given)


def _doubles(name: str, array: Array) -> Array:
    if len(array) and (array.max() > 2**53 or array.min() < -(2**53)):
        raise OverflowError(f"the column {name} has numbers beyond 2^53, which JavaScript has not")
    return array.astype(numpy.float64)


def _spans(name: str, texts: list[Any]) -> Values:
    """Texts as UTF-16, one behind the other, and the span of each."""
    try:
        joined = "".join(texts)
    except TypeError:
        record = next(i for i, text in enumerate(texts) if not isinstance(text, str))
        kind = type(texts[record]).__name__
        raise TypeError(f"record {record} of the column {name} is a {kind}, not a str") from None
    data = joined.encode("utf-16-le", "surrogatepass")
    lengths = numpy.fromiter(map(len, texts), dtype=numpy.uintp, count=len(texts))
    if len(data) != 2 * len(joined):
        units = (len(text.encode("utf-16-le", "surrogatepass")) // 2 for text in texts)
        lengths = numpy.fromiter(units, dtype=numpy.uintp, count=len(texts))
    buffer = numpy.frombuffer(data, dtype=numpy.uint16)
    spans = numpy.empty((len(texts), 2), dtype=numpy.uintp)
    spans[:, 1] = lengths
    spans[:, 0] = buffer.ctypes.data + 2 * (numpy.cumsum(lengths) - lengths)
    return Values("spans", spans, buffer)
