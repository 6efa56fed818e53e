"""Hosts, variables and formulas."""

import copy
import gc
import pickle

import kxjsparser
import pytest
from kxjsparser import Host, KxJsError


@pytest.mark.parametrize(
    ("value", "result"),
    [
        (3, "3"),
        (-(2**31), "-2147483648"),
        (2**31, "2147483648"),
        (2**53, "9007199254740992"),
        (12.5, "12.5"),
        (float("nan"), "NaN"),
        (float("-inf"), "-Infinity"),
        (True, "true"),
        (False, "false"),
        ("", ""),
        ("Jörg 😀", "Jörg 😀"),
        ("lone \ud83d", "lone \ud83d"),
        ("with\0zero", "with"),
        ("x" * 300, "x" * 255),
    ],
)
def test_values_of_variables(host, value, result):
    host["A"] = value
    assert host.evaluate("A") == result


def test_numbers_of_numpy():
    numpy = pytest.importorskip("numpy")
    with Host() as host:
        host["A"] = numpy.int64(3)
        host["B"] = numpy.float32(0.5)
        host["C"] = numpy.bool_(True)
        assert host.evaluate("A+B+' '+C") == "3.5 true"


@pytest.mark.parametrize(
    ("name", "value", "exception"),
    [
        ("A", None, TypeError),
        ("A", [1], TypeError),
        ("A", b"text", TypeError),
        ("A", 2**53 + 1, OverflowError),
        ("ouraccessor", 1, ValueError),
        (" ", 1, ValueError),
        ("", 1, ValueError),
    ],
)
def test_refused_variables(host, name, value, exception):
    with pytest.raises(exception):
        host[name] = value
    assert name not in host


def test_bound_names(host):
    assert "A" not in host
    host["A"] = 1
    assert "A" in host
    assert "a" not in host
    assert 1 not in host


def test_a_formula_sees_the_values_at_each_run(host):
    host["QTY"] = 2
    total = host.compile("QTY*12.5")
    assert total() == "25"
    host["QTY"] = 4
    assert total() == "50"
    host["QTY"] = "4"
    assert total() == "50"


def test_formulas_are_converted_unless_they_are_javascript(host):
    host["A"] = 5
    assert host.evaluate("IIF(A>2 .AND. A<>7,'OK','KO')") == "OK"
    assert host.evaluate("[1,2].map(x => x*A).join()", js=True) == "5,10"
    assert host.compile("A<>5").source == "A!=5"
    assert host.compile("A!==5", js=True).source == "A!==5"


def test_not_a_number_is_a_result(host):
    assert host.evaluate("0/0") == "NaN"
    assert host.compile("'NaNcy'")() == "NaNcy"


def test_reset_forgets_variables_and_formulas(host):
    host["A"] = 1
    formula = host.compile("A")
    host.reset()
    assert "A" not in host
    host["B"] = 2
    other = host.compile("B")
    with pytest.raises(KxJsError, match="reset"):
        formula()
    assert other() == "2"
    assert host.evaluate("ROUND(1.26,1)") == "1.3"


def test_hosts_do_not_share_variables(host):
    host["A"] = 1
    with Host() as other:
        other["A"] = 2
        assert host.evaluate("A") == "1"
        assert other.evaluate("A") == "2"


def test_a_closed_host_is_an_error():
    host = Host()
    formula = host.compile("1")
    with host:
        pass
    for use in (
        formula,
        host.reset,
        host.terminate,
        lambda: host.evaluate("1"),
        lambda: host.compile("1"),
        lambda: host.__setitem__("A", 1),
        lambda: "A" in host,
    ):
        with pytest.raises(KxJsError, match="closed"):
            use()
    host.close()


def test_a_formula_keeps_its_host():
    formula = Host().compile("1+1")
    gc.collect()
    assert formula() == "2"


def test_hosts_are_neither_copied_nor_pickled(host):
    formula = host.compile("1+1")
    for use in (
        lambda: copy.copy(host),
        lambda: copy.deepcopy(host),
        lambda: pickle.dumps(host),
        lambda: copy.deepcopy(formula),
        lambda: pickle.dumps(formula),
    ):
        with pytest.raises(TypeError, match="a Host can neither be copied nor pickled"):
            use()
    assert host.evaluate("1+1") == "2"


@pytest.mark.parametrize("text", [1, None, b"1"])
def test_formulas_and_names_are_str(host, text):
    for use in (host.evaluate, host.compile, kxjsparser.check, lambda it: host.__setitem__(it, 1)):
        with pytest.raises(TypeError, match="a text is a str, not"):
            use(text)


@pytest.mark.parametrize("text", ["A" * 100000, "\ud800", "\0", "'\0'"])
def test_any_text_is_taken(host, text):
    try:
        host.evaluate(text)
    except kxjsparser.FormulaError as error:
        assert error.text


def test_settings_of_wrong_types():
    isolation = kxjsparser.Isolation(memory_limit="1")
    for settings in ({"timeout": "1"}, {"memory_limit": "1"}, {"isolated": isolation}):
        with pytest.raises(TypeError):
            Host(**settings)


@pytest.mark.parametrize(
    "settings",
    [{"timeout": -1}, {"timeout": float("nan")}, {"timeout": 1e300}, {"memory_limit": -1}],
)
def test_settings_outside_of_what_is_allowed(settings):
    with pytest.raises((KxJsError, ValueError)):
        Host(**settings)
