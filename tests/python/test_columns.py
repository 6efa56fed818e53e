"""Formulas over arrays of NumPy."""

import threading

import kxjsparser
import numpy
import pytest
from kxjsparser import FormulaError, Host, Kind, KxJsError
from kxjsparser._arrays import values_of

NUMBERS = [1.5, -2.0, 3.25]


@pytest.mark.parametrize(
    "dtype",
    "float64 float32 int8 int16 int32 int64 uint8 uint16 uint32 uint64".split(),
)
def test_all_numbers_are_taken(host, dtype):
    values = numpy.array([1, 2, 100], dtype=dtype)
    result = host.column("A*2", {"A": values})
    assert result.dtype == numpy.float64
    assert result.tolist() == [2, 4, 200]


@pytest.mark.parametrize("dtype", ["float64", "int32", "bool"])
def test_arrays_as_c_has_them_are_not_copied(dtype):
    values = numpy.zeros(8, dtype=dtype)
    assert numpy.shares_memory(values_of("A", values).array, values)


@pytest.mark.parametrize("dtype", ["float64", "int32", "bool"])
def test_other_strides_and_byte_orders(host, dtype):
    values = numpy.arange(10).astype(dtype)
    for other in (values[::3], values[::-1], values.astype(values.dtype.newbyteorder())):
        assert host.column("+A", {"A": other}, js=True).tolist() == other.tolist()


def test_read_only_arrays(host):
    values = numpy.array(NUMBERS)
    values.flags.writeable = False
    assert host.column("A", {"A": values}).tolist() == NUMBERS


@pytest.mark.parametrize(
    "texts",
    [
        numpy.array(["a", "Jörg", ""]),
        numpy.array(["a", "😀b", "\ud83d"], dtype=object),
        numpy.array(["a", "😀b", "\ud83d"]),
        numpy.array(["a", "bc", "", "x" * 300])[::2],
        numpy.array(["ä", "bc"]).astype(">U2"),
        numpy.array(["", "", ""]),
        numpy.array([""], dtype=object),
        numpy.array([], dtype="U3"),
        numpy.array([], dtype=object),
        ["x" * 300, "", "z"],
    ],
)
def test_texts(host, texts):
    result = host.column("T+'!'", {"T": texts}, dtype=str)
    assert result.tolist() == [text[:255] + "!" for text in texts]


@pytest.mark.parametrize("dtype", ["U", object])
def test_texts_end_at_their_first_zero(host, dtype):
    texts = numpy.array(["a\0b", "\0", "c", "d"], dtype=dtype)
    assert host.column("T", {"T": texts}, dtype=str).tolist() == ["a", "", "c", "d"]
    assert host.column("T.length", {"T": texts}, js=True).tolist() == [1, 0, 1, 1]


def test_truth_values(host):
    flags = numpy.array([True, False, True])
    assert host.column("!F", {"F": flags}, dtype=bool, js=True).tolist() == [False, True, False]
    assert host.column("F", {"F": flags}, dtype=str).tolist() == ["true", "false", "true"]


def test_results_are_those_of_single_runs(host):
    a, b = numpy.linspace(-3, 3, 101), numpy.arange(101, dtype=numpy.int32)
    names = [f"name {i}" for i in range(101)]
    for formula in ("A*1.2+B/3", "IIF(A>B,A,B)", "ROUND(A,2)", "UPPER(N)+B", "A^2"):
        together = host.column(formula, {"A": a, "B": b, "N": names}, dtype=str)
        host["A"], host["B"], host["N"] = 0.0, 0, ""
        single = host.compile(formula)
        for i in range(101):
            host["A"], host["B"], host["N"] = a[i], b[i], names[i]
            assert single() == together[i]


def test_records_that_fail(host):
    failures = []
    result = host.column(
        "A == 2 ? nosuch : A/A", {"A": numpy.array([1, 2, 0])}, js=True, failures=failures
    )
    assert result[0] == 1
    assert numpy.isnan(result[1:]).all()
    assert [failure.record for failure in failures] == [1]
    assert failures[0].message == "ReferenceError: nosuch is not defined"
    assert (failures[0].line, failures[0].column, failures[0].end_column) == (1, 10, 16)


def test_texts_that_are_not_a_number_are_told_and_not_raised(host):
    failures = []
    table = {"A": numpy.array([1, 0])}
    assert host.column("A/A", table, dtype=str, failures=failures).tolist() == ["1", "NaN"]
    assert [(failure.record, failure.text) for failure in failures] == [(1, "Not A Number")]
    assert host.column("A/A", table, dtype=str).tolist() == ["1", "NaN"]


def test_the_first_exception_is_raised_where_no_list_takes_it(host):
    with pytest.raises(FormulaError) as caught:
        host.column("A == 2 ? nosuch : A/A", {"A": numpy.array([0, 2, 2])}, js=True)
    assert caught.value.record == 1
    assert caught.value.column == 10
    assert str(caught.value).startswith("record 1: ")
    assert numpy.isnan(host.column("A/A", {"A": numpy.zeros(3)})).all()


def test_one_formula_over_many_tables(host):
    column = host.compile_column("A+B")
    for dtype in ("float64", "int32", "bool", "float64"):
        for count in (3, 0, 5):
            a, b = numpy.ones(count, dtype=dtype), numpy.arange(count)
            assert column({"A": a, "B": b}).tolist() == [n + 1 for n in range(count)]
    assert column({"B": ["x"], "A": ["y"]}, dtype=str).tolist() == ["yx"]
    host.reset()
    assert column({"A": numpy.ones(1), "B": numpy.ones(1)}).tolist() == [2]


def test_a_column_that_is_missing_is_an_error(host):
    column = host.compile_column("A+B")
    assert column({"A": [1], "B": [2]}).tolist() == [3]
    with Host() as other, pytest.raises(FormulaError, match="B is not defined"):
        other.column("A+B", {"A": [1]})


@pytest.mark.parametrize(
    ("table", "exception", "text"),
    [
        ({"A": [1, 2], "B": [1]}, ValueError, "B has 1 records, not 2"),
        ({"A": numpy.zeros((2, 2)), "B": [1, 2]}, ValueError, "A has 2 dimensions"),
        ({"A": [1, 2], "B": ["x", None]}, TypeError, "record 1 of the column B is a NoneType"),
        ({"A": [1, 2], "B": numpy.array([1j, 2])}, TypeError, "B has complex128"),
        ({"A": numpy.zeros(1, dtype="M8[s]"), "B": [1]}, TypeError, "A has datetime64"),
        ({"A": numpy.zeros(1, dtype=numpy.longdouble), "B": [1]}, TypeError, "A has"),
        ({"A": [2**53 + 1], "B": [1]}, OverflowError, "A has numbers beyond"),
        ({"A": numpy.ma.array([1, 2], mask=[False, True]), "B": [1, 2]}, TypeError, "A has masked"),
        ({}, ValueError, "no columns"),
    ],
)
def test_tables_that_are_refused(host, table, exception, text):
    with pytest.raises(exception, match=text):
        host.column("A+B", table)
    assert host.column("A+B", {"A": [1], "B": [2]}).tolist() == [3]


def test_a_column_that_no_formula_names_is_not_looked_at(host):
    table = {"A": [1.0], "WHEN": numpy.zeros(1, dtype="M8[s]"), 5: []}
    assert host.column("A", table).tolist() == [1]


def test_wrong_types_of_results(host):
    with pytest.raises(TypeError, match="dtype"):
        host.column("A", {"A": [1]}, dtype=int)


def test_a_formula_that_does_not_compile(host):
    column = host.compile_column("1 +")
    for _ in range(2):
        with pytest.raises(FormulaError) as caught:
            column({"A": [1]})
        assert caught.value.kind is Kind.COMPILE


@pytest.mark.parametrize("dtype", [float, bool])
def test_results_in_a_given_array(host, dtype):
    out = numpy.zeros(3, dtype=dtype)
    assert host.compile_column("A")({"A": [1, 2, 0]}, dtype=dtype, out=out) is out
    assert out.tolist() == numpy.array([1, 2, 0]).astype(dtype).tolist()


@pytest.mark.parametrize(
    ("out", "dtype"),
    [
        (numpy.zeros(2), float),
        (numpy.zeros(4), float),
        (numpy.zeros((3, 1)), float),
        (numpy.zeros(6)[::2], float),
        (numpy.zeros(3, dtype=">f8"), float),
        (numpy.zeros(3, dtype="float32"), float),
        (numpy.zeros(3), bool),
        (numpy.broadcast_to(0.0, 3), float),
        (numpy.zeros(3, dtype=object), str),
        ([0.0, 0.0, 0.0], float),
    ],
)
def test_arrays_for_results_that_do_not_fit(host, out, dtype):
    with pytest.raises(ValueError, match="out is no contiguous array of 3 times"):
        host.compile_column("A")({"A": [1, 2, 3]}, dtype=dtype, out=out)


def slow_table(records=3000000):
    return {"A": numpy.arange(float(records))}


def test_progress(host):
    calls = []
    host.column("A+1", slow_table(), progress=lambda done, total: calls.append((done, total)))
    assert calls
    assert calls == sorted(calls)
    assert {total for _, total in calls} == {3000000}


def test_an_exception_of_the_progress_function_ends_the_evaluation(host):
    def stop(done, total):
        raise KeyboardInterrupt

    with pytest.raises(KeyboardInterrupt):
        host.column("A+1", slow_table(), progress=stop)
    assert host.column("A", {"A": [1]}).tolist() == [1]


def test_the_progress_function_may_use_the_host_and_not_the_column(host):
    column = host.compile_column("A+1")
    seen = []

    def use(done, total):
        if seen:
            return
        seen.append(host.evaluate("6*7"))
        with pytest.raises(KxJsError, match="uses"):
            column({"A": [1]})

    column(slow_table(), progress=use)
    assert seen == ["42"]


def test_limits_end_an_evaluation():
    with Host(timeout=0.02) as host:
        with pytest.raises(FormulaError) as caught:
            host.column("for (var i = 0; i < 1e6; ++i); A", slow_table(10000), js=True)
        assert caught.value.kind is Kind.LIMIT
        assert "20" in str(caught.value)
        assert host.column("A", {"A": [1]}).tolist() == [1]


def test_columns_belong_to_a_thread():
    from test_threads import on_another_thread

    with Host() as host:
        column = host.compile_column("A")
        outcome = on_another_thread(lambda: column({"A": [1]}))
        assert isinstance(outcome, kxjsparser.WrongThreadError)
        assert column({"A": [1]}).tolist() == [1]
        outcome = on_another_thread(lambda: column({"A": [1]}))
        assert isinstance(outcome, kxjsparser.WrongThreadError)


def test_a_column_outlives_the_closed_host():
    with Host() as host:
        column = host.compile_column("A")
    with pytest.raises(KxJsError, match="closed"):
        column({"A": [1]})


def test_columns_may_end_on_another_thread(host):
    columns = [host.compile_column("A*3") for _ in range(50)]
    for column in columns:
        assert column({"A": [2]}).tolist() == [6]
    thread = threading.Thread(target=columns.clear)
    del column
    thread.start()
    for _ in range(50):
        assert host.column("A*4", {"A": [2]}).tolist() == [8]
    thread.join()
    assert columns == []
