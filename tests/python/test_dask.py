"""Formulas over frames of Dask."""

import doctest
import os
import threading

import cluster
import dask.dataframe
import kxjsparser.dask
import pandas
import pytest
from kxjsparser import FormulaError, Kind, dask as formulas


@pytest.fixture
def table():
    return pandas.DataFrame(
        {"PRICE": [1.5, 2, 3, 4], "QTY": [1, 2, 3, 4], "NAME": ["a", "b", "c", "d"]},
        index=[10, 20, 30, 40],
    )


@pytest.fixture
def frame(table):
    return dask.dataframe.from_pandas(table, npartitions=2)


def test_a_column_is_assigned(frame, table, host):
    result = frame.assign(TOTAL=formulas.column("PRICE*QTY", frame)).compute()
    pandas.testing.assert_frame_equal(
        result, table.assign(TOTAL=host.column("PRICE*QTY", table))
    )


@pytest.mark.parametrize(
    ("formula", "dtype", "results"),
    [
        ("PRICE+QTY", float, [2.5, 4, 6, 8]),
        ("QTY>2", bool, [False, False, True, True]),
        ("UPPER(NAME)+QTY", str, ["A1", "B2", "C3", "D4"]),
    ],
)
def test_types_of_results(frame, formula, dtype, results):
    column = formulas.column(formula, frame, dtype=dtype)
    assert column.compute().to_dict() == dict(zip([10, 20, 30, 40], results))
    assert column.dtype == column.compute().dtype


def test_records_that_fail(frame):
    found = formulas.results("QTY % 2 ? PRICE : nosuch", frame, js=True).compute()
    assert found.VALUE.dropna().to_dict() == {10: 1.5, 30: 3.0}
    errors = found.ERROR.dropna()
    assert errors.index.tolist() == [20, 40]
    assert errors.str.contains("nosuch is not defined").all()
    with pytest.raises(FormulaError, match="record 1: .*\n?.*nosuch"):
        formulas.column("QTY % 2 ? PRICE : nosuch", frame, js=True).compute()


def test_variables_and_settings(frame):
    assert formulas.column("QTY*RATE", frame, variables={"RATE": 2}).sum().compute() == 20
    assert formulas.column("QTY*RATE", frame, variables={"RATE": 2.5}).sum().compute() == 25
    endless = formulas.column("for (;;);", frame, js=True, timeout=0.05)
    with pytest.raises(FormulaError) as caught:
        endless.compute()
    assert caught.value.kind is Kind.LIMIT


def test_formulas_share_no_variables(frame):
    with dask.config.set(scheduler="synchronous"):
        assert formulas.column("QTY+RATE", frame, variables={"RATE": 1}).sum().compute() == 14
        for other in (frame[["PRICE"]], frame[["PRICE", "QTY"]]):
            with pytest.raises(FormulaError, match="is not defined"):
                formulas.column("QTY+RATE", other).compute()


def test_wrong_arguments(frame):
    with pytest.raises(TypeError, match="dtype"):
        formulas.column("QTY", frame, dtype=int)
    with pytest.raises(TypeError):
        formulas.column("QTY", frame, nosuch=1).compute()


def test_a_thread_compiles_a_formula_once(frame, monkeypatch):
    compiled = []
    compile_formula = formulas._compile

    def note(*arguments):
        compiled.append(threading.get_ident())
        return compile_formula(*arguments)

    monkeypatch.setattr(formulas, "_compile", note)
    many = dask.dataframe.from_pandas(frame.compute(), npartitions=4)
    column = formulas.column("QTY+4711", many)
    with dask.config.set(scheduler="threads", num_workers=2):
        for _ in range(4):
            assert column.sum().compute() == 4 * 4711 + 10
    assert compiled
    assert len(set(compiled)) == len(compiled)


def test_examples(table):
    table = pandas.DataFrame({"PRICE": [1.5, 2], "QTY": [1, 2]})
    names = {"kxjsparser": kxjsparser, "frame": dask.dataframe.from_pandas(table, npartitions=1)}
    result = doctest.testmod(formulas, extraglobs=names)
    assert result.attempted > 3
    assert result.failed == 0


def test_a_cluster_that_loses_a_worker():
    print(cluster.compare(int(os.environ.get("KXJS_TEST_RECORDS", "10000000"))))
