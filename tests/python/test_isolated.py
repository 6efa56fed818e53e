"""Hosts in a process of their own."""

import os

import numpy
import pytest
from kxjsparser import FormulaError, Host, Isolation, Kind, KxJsError


@pytest.fixture
def host():
    with Host(timeout=5, isolated=Isolation(worker=os.environ["KXJS_TEST_WORKER"])) as host:
        yield host


def test_formulas_and_columns(host):
    host["A"] = 5
    formula = host.compile("IIF(A>2,'OK','KO')")
    assert formula() == "OK"
    assert host.column("B*2", {"B": numpy.arange(1000)}).tolist() == list(range(0, 2000, 2))


def test_a_worker_that_ends_is_replaced(host):
    host["A"] = 5
    formula = host.compile("A+1")
    with pytest.raises(FormulaError) as caught:
        # A single call that asks the engine for more than it can have.
        host.evaluate("'x'.repeat(2**28).split('')", js=True)
    assert caught.value.kind in (Kind.WORKER_ENDED, Kind.LIMIT)
    assert formula() == "6"


def test_settings():
    worker = os.environ["KXJS_TEST_WORKER"]
    with Host(isolated=Isolation(memory_limit=2**30, grace=0.5, worker=worker)) as host:
        assert host.evaluate("1+1") == "2"


def test_a_worker_that_is_not_there():
    with pytest.raises(KxJsError, match="/nowhere/kxjs-worker"):
        Host(isolated=Isolation(worker="/nowhere/kxjs-worker"))
