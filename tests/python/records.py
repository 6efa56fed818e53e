"""Records that every process makes alike, and a digest of what a formula gives for them."""

import zlib

import numpy
import pandas

# Fails for about one record in ten thousand.
JAVASCRIPT = "QTY==CODE ? PRICE.toFixed(200) : PRICE*QTY*RATE+CODE/3"
VARIABLES = {"RATE": 1.19}


def partition(number, count):
    """The records of a partition, from its number as the seed."""
    random = numpy.random.default_rng(number)
    first = number * count
    return pandas.DataFrame(
        {
            "PRICE": random.uniform(0, 100, count),
            "QTY": random.integers(0, 10000, count, dtype=numpy.int32),
            "CODE": random.integers(0, 10000, count, dtype=numpy.int32),
        },
        index=pandas.RangeIndex(first, first + count),
    )


def digest(results):
    """A checksum of all values, and the labels and error texts of the records that failed."""
    failing = results[results.ERROR.notnull()]
    return pandas.DataFrame(
        {
            "checksum": [zlib.crc32(results.VALUE.to_numpy())],
            "failing": [list(failing.ERROR.items())],
        }
    )
