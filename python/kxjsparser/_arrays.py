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
    if isinstance(given, numpy.ma.MaskedArray) and given.mask.any():
        raise TypeError(f"the column {name} has masked values")
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
    if kind == "O":
        return _texts(name, array.tolist())
    if kind == "U":
        return _fixed_width(name, array)
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


def _texts(name: str, texts: list[Any]) -> Values:
    """Texts as UTF-16 one behind the other, and where each lies."""
    try:
        joined = "\0".join(texts)
    except TypeError:
        record = next(i for i, text in enumerate(texts) if not isinstance(text, str))
        kind = type(texts[record]).__name__
        raise TypeError(f"record {record} of the column {name} is a {kind}, not a str") from None
    units = numpy.frombuffer(joined.encode("utf-16-le", "surrogatepass"), dtype=numpy.uint16)
    ends = numpy.empty(len(texts), dtype=numpy.intp)
    zeros = numpy.flatnonzero(units == 0)
    if len(zeros) == len(texts) - 1:
        ends[:-1] = zeros
        ends[-1:] = len(units)
    else:  # a text has a zero itself
        lengths = [len(text.encode("utf-16-le", "surrogatepass")) // 2 + 1 for text in texts]
        ends[:] = numpy.cumsum(lengths) - 1
    begins = numpy.zeros(len(texts), dtype=numpy.intp)
    begins[1:] = ends[:-1] + 1
    return _spans(units, begins, ends - begins)


def _fixed_width(name: str, array: Array) -> Values:
    """Texts of NumPy, which all have the same space and end in zeros there."""
    width = array.dtype.itemsize // 4
    points = numpy.ascontiguousarray(array, dtype=f"=U{width}").view(numpy.uint32)
    if points.size == 0 or points.max() > 0xFFFF:
        return _texts(name, array.tolist())
    units = points.astype(numpy.uint16).reshape(len(array), width)
    is_used = units[:, ::-1] != 0
    lengths = numpy.where(is_used.any(axis=1), width - is_used.argmax(axis=1), 0)
    return _spans(units, numpy.arange(len(array), dtype=numpy.intp) * width, lengths)


def _spans(units: Array, begins: Array, lengths: Array) -> Values:
    """Parts of ``units`` as C reads them."""
    spans = numpy.empty((len(begins), 2), dtype=numpy.uintp)
    spans[:, 0] = 2 * begins
    spans[:, 0] += units.ctypes.data
    spans[:, 1] = lengths
    return Values("spans", spans, units)
