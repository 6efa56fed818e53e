"""Formulas that fail."""

import copy
import pickle
import threading

import pytest
from kxjsparser import FormulaError, Host, Kind


@pytest.mark.parametrize(
    ("formula", "kind", "line", "column", "end_column", "message"),
    [
        ("1 +* 2", Kind.COMPILE, 1, 4, 5, "SyntaxError: Unexpected token '*'"),
        ("1 +\nNOSUCH", Kind.RUN, 2, 1, 7, "ReferenceError: NOSUCH is not defined"),
    ],
)
def test_the_place_of_a_failure(host, formula, kind, line, column, end_column, message):
    host["A"] = 1
    with pytest.raises(FormulaError) as caught:
        host.evaluate(formula, js=True)
    error = caught.value
    assert (error.kind, error.line, error.column, error.end_column, error.message) == (
        kind,
        line,
        column,
        end_column,
        message,
    )
    assert message in str(error)
    assert error.source == formula
    assert error.record is None


def test_compile_fails_at_once(host):
    with pytest.raises(FormulaError) as caught:
        host.compile("IIF(1,")
    assert caught.value.kind is Kind.COMPILE


def test_a_formula_that_failed_runs_again(host):
    host["A"] = 1
    formula = host.compile("if (A == 1) throw 'one'; A", js=True)
    with pytest.raises(FormulaError, match="one"):
        formula()
    host["A"] = 2
    assert formula() == "2"


def test_time_limit():
    with Host(timeout=0.05) as host:
        with pytest.raises(FormulaError) as caught:
            host.evaluate("for (;;);", js=True)
        assert caught.value.kind is Kind.LIMIT
        assert "50" in caught.value.text
        assert host.evaluate("1+1") == "2"


def test_memory_limit():
    with Host(memory_limit=64 * 2**20) as host:
        with pytest.raises(FormulaError) as caught:
            host.evaluate("var a = []; for (;;) a.push({b: a.length});", js=True)
        assert caught.value.kind is Kind.LIMIT
        assert host.evaluate("1+1") == "2"


def test_terminate_from_another_thread():
    with Host() as host:
        timer = threading.Timer(0.05, host.terminate)
        timer.start()
        with pytest.raises(FormulaError) as caught:
            host.evaluate("for (;;);", js=True)
        timer.join()
        assert caught.value.kind is Kind.LIMIT
        assert host.evaluate("1+1") == "2"


def test_errors_can_be_sent_to_other_processes():
    error = FormulaError("text", Kind.LIMIT, 1, 2, 3, "message", "source", 4)
    for other in (pickle.loads(pickle.dumps(error)), copy.copy(error)):
        assert vars(other) == vars(error)
        assert str(other) == "record 4: text"
