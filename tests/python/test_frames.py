"""Formulas over frames of pandas."""

import numpy
import pandas
import pytest
from kxjsparser import FormulaError


@pytest.fixture
def frame():
    return pandas.DataFrame(
        {"PRICE": [1.5, 2, 3], "QTY": [1, 2, 3], "NAME": ["a", "b", "c"]}, index=[10, 30, 20]
    )


def test_a_column_is_assigned(host, frame):
    result = frame.assign(TOTAL=host.column("PRICE*QTY", frame))
    assert result["TOTAL"].to_dict() == {10: 1.5, 30: 4.0, 20: 9.0}


def test_types_of_results(host, frame):
    texts = host.column("UPPER(NAME)+QTY", frame, dtype=str)
    flags = host.column("QTY>1 .AND. NAME<>'c'", frame, dtype=bool)
    assert texts.to_dict() == {10: "A1", 30: "B2", 20: "C3"}
    assert flags.to_dict() == {10: False, 30: True, 20: False}
    assert flags.dtype == bool
    assert frame[flags].index.tolist() == [30]


@pytest.mark.parametrize(
    ("values", "results"),
    [
        (pandas.array([1, None, 3], dtype="Int64"), [2, numpy.nan, 6]),
        (pandas.array([0.5, None, 3], dtype="Float64"), [1, numpy.nan, 6]),
        (pandas.array([True, False, True], dtype="boolean"), [2, 0, 2]),
        (pandas.array(["1", "2", "3"], dtype="string"), [2, 4, 6]),
        (pandas.Categorical([1.5, 2, 1.5]), [3, 4, 3]),
        (pandas.Categorical(["1", "2", "1"]), [2, 4, 2]),
    ],
)
def test_the_types_of_pandas(host, values, results):
    result = host.column("A*2", pandas.DataFrame({"A": values}))
    numpy.testing.assert_array_equal(result, results)


@pytest.mark.parametrize(
    "values",
    [
        pandas.array([True, None], dtype="boolean"),
        pandas.array(["x", None], dtype="string"),
        pandas.Series(["x", None]),
        pandas.to_datetime(["2026-01-01", "2026-01-02"]),
    ],
)
def test_missing_texts_and_dates_are_refused(host, values):
    with pytest.raises((TypeError, ValueError)):
        host.column("A", pandas.DataFrame({"A": values}))


def test_a_name_that_occurs_twice(host):
    frame = pandas.DataFrame([[1, 2]], columns=["A", "A"])
    with pytest.raises(ValueError, match="A has 2 dimensions"):
        host.column("A", frame)


def test_failures_count_records_not_labels(host, frame):
    failures = []
    result = host.column("IIF(QTY==2,QTY,NOSUCH)", frame, failures=failures)
    assert result.isna().all()
    assert [failure.record for failure in failures] == [0, 1, 2]
    with pytest.raises(FormulaError):
        host.column("IIF(QTY==2,QTY,NOSUCH)", frame)


def test_a_frame_without_records(host, frame):
    result = host.column("PRICE*QTY", frame.iloc[:0])
    assert result.empty
    assert result.dtype == float


def test_a_formula_without_columns(host, frame):
    assert host.column("1+1", frame).tolist() == [2, 2, 2]
    assert host.column("1+1", pandas.DataFrame(index=[1, 2])).tolist() == [2, 2]
