"""Hosts belong to threads."""

import os
import threading

import kxjsparser
import pytest
from kxjsparser import Host, WrongThreadError


def on_another_thread(function):
    """What the function raises there, or returns."""
    outcome = []

    def run():
        try:
            outcome.append(function())
        except Exception as error:
            outcome.append(error)

    thread = threading.Thread(target=run)
    thread.start()
    thread.join()
    return outcome[0]


@pytest.mark.parametrize(
    "use",
    [
        lambda host, formula: formula(),
        lambda host, formula: host.evaluate("1"),
        lambda host, formula: host.compile("1"),
        lambda host, formula: host.__setitem__("A", 2),
        lambda host, formula: "A" in host,
        lambda host, formula: host.reset(),
        lambda host, formula: host.close(),
    ],
)
def test_a_host_is_used_on_its_thread(use):
    with Host() as host:
        host["A"] = 1
        formula = host.compile("A")
        assert isinstance(on_another_thread(lambda: use(host, formula)), WrongThreadError)
        host["A"] = 3
        assert formula() == "3"


def test_a_thread_has_its_own_hosts():
    def work(number):
        with Host() as host:
            host["A"] = number
            formula = host.compile("A*2")
            return {formula() for _ in range(200)}

    results = []
    threads = [
        threading.Thread(target=lambda n=n: results.append((n, work(n)))) for n in range(8)
    ]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert sorted(results) == [(n, {str(2 * n)}) for n in range(8)]


def test_hosts_are_freed_on_any_thread():
    hosts = [on_another_thread(Host) for _ in range(4)]
    hosts.append(Host())
    on_another_thread(hosts.clear)
    with Host() as host:
        assert host.evaluate("1") == "1"


def test_functions_without_a_host_work_everywhere():
    assert on_another_thread(lambda: kxjsparser.convert("A<>1")) == "A!=1"
    assert on_another_thread(lambda: kxjsparser.extract("A<>1")) == ["A"]


def test_a_forked_process_is_told():
    with Host() as host:
        child = os.fork()
        if child == 0:
            try:
                host.evaluate("1")
            except WrongThreadError:
                os._exit(7)
            finally:
                os._exit(1)
        assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 7
        assert host.evaluate("1") == "1"
