"""Hosts in a process of their own."""

import gc
import os

import numpy
import pytest
from kxjsparser import FormulaError, Host, Isolation, Kind, KxJsError, Sandbox


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


def test_a_worker_whose_path_has_a_zero():
    with pytest.raises(KxJsError):
        Host(isolated=Isolation(worker=b"\0"))


def test_a_worker_that_is_not_there():
    with pytest.raises(KxJsError, match="/nowhere/kxjs-worker"):
        Host(isolated=Isolation(worker="/nowhere/kxjs-worker"))


def test_the_sandbox_is_told(host):
    assert Sandbox.NO_NEW_PRIVILEGES in host.sandbox
    worker = os.environ["KXJS_TEST_WORKER"]
    with Host(isolated=Isolation(worker=worker, required_sandbox=host.sandbox)) as other:
        assert other.sandbox == host.sandbox
    with Host() as in_process:
        assert in_process.sandbox is None


def test_columns_in_shared_memory():
    worker = os.environ["KXJS_TEST_WORKER"]
    count = 1000
    host = Host(isolated=Isolation(worker=worker, shared_memory=2**20))
    numbers = numpy.frombuffer(host.shared_memory, dtype=float)
    assert len(host.shared_memory) == 2**20
    assert not numbers.any()
    prices, totals = numbers[:count], numbers[count : 2 * count]
    prices[:] = numpy.arange(count)
    assert host.column("PRICE*2", {"PRICE": prices}, js=True).tolist() == list(range(0, 2000, 2))
    column = host.compile_column("PRICE*3", js=True)
    assert column({"PRICE": prices}, out=totals) is totals
    assert totals.tolist() == list(range(0, 3000, 3))
    host.close()
    del host, column
    gc.collect()
    # The memory stays as long as the arrays.
    totals[:] = 1
    assert prices[-1] == count - 1


def test_hosts_without_shared_memory(host):
    assert len(host.shared_memory) == 0
    with Host() as in_process:
        assert len(in_process.shared_memory) == 0


@pytest.mark.parametrize(
    "settings",
    [
        {"memory_limit": -1},
        {"memory_limit": 2**64},
        {"grace": 1e300},
        {"required_sandbox": 2**32},
        {"shared_memory": -1},
        {"shared_memory": 2**64},
    ],
)
def test_settings_beyond_their_range(settings):
    with pytest.raises(ValueError, match=next(iter(settings))):
        Host(isolated=Isolation(**settings))
