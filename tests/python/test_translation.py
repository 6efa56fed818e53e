"""Conversion, translation, check, free variables."""

import pytest
from kxjsparser import (
    FormulaError,
    TranslationError,
    Translator,
    Verdict,
    check,
    convert,
    extract,
    run_time_part,
    translate,
)


@pytest.mark.parametrize(
    ("formula", "javascript"),
    [
        ("", ""),
        ("IIF(A>2 .AND. B<>0, 'OK', 'KO')", " IIF(A>2 && B!=0, 'OK', 'KO')"),
        ("'Jörg 😀'+\ud83d", "'Jörg 😀'+\ud83d"),
    ],
)
def test_convert(formula, javascript):
    assert convert(formula) == javascript


def test_a_translation_runs_after_its_run_time_part(host):
    translation = translate("IIF(NAME='Jo' .AND. 2^3=8,UPPER(NAME),'')")
    assert translation.variables == ["NAME"]
    host.evaluate(run_time_part(), js=True)
    host["NAME"] = "John"
    assert host.evaluate(translation.javascript, js=True) == "JOHN"


def test_translations_follow_the_settings():
    def translated(formula, **settings):
        return Translator(**settings).translate(formula).javascript

    assert translated("price=2", variables={"Price": float}) == "(Price===2)"
    assert translated("A=B") != translated("A=B", exact=True)
    assert translated("A=2", variables={"A": None}) == translated("A=2")
    dates = "CTOD('01.02.03')"
    assert translated(dates, date_format="DD.MM.YY") != translated(dates)
    epochs = [translated(dates, date_format="DD.MM.YY", epoch=year) for year in (1900, 2000)]
    assert epochs[0] != epochs[1]
    with pytest.raises(TranslationError):
        translated("A+1", strict=True)
    with pytest.raises(TranslationError):
        translated("OWN(1)")
    assert "OWN" in translated("OWN(1)", functions=["OWN"])


@pytest.mark.parametrize(
    ("settings", "exception"),
    [
        ({"date_format": "nonsense"}, ValueError),
        ({"variables": {"A": list}}, TypeError),
        ({"functions": "OWN"}, TypeError),
        ({"epoch": "1900"}, TypeError),
        ({"epoch": 2**31}, ValueError),
        ({"epoch": -(2**31) - 1}, ValueError),
    ],
)
def test_wrong_settings(settings, exception):
    with pytest.raises(exception):
        Translator(**settings)


def test_findings_have_places_as_python_counts():
    formula = "'😀'+B+)"
    with pytest.raises(TranslationError) as caught:
        translate(formula)
    (finding,) = caught.value.findings
    assert finding.code == "SYNTAX"
    assert formula[finding.position : finding.position + finding.length] == ")"
    assert finding.text in str(caught.value)


def test_check():
    formula = "'😀'+IIF(B=2,'x','y')"
    found = check(formula)
    assert found.verdict is Verdict.CHANGED
    assert found.javascript == convert(formula)
    assert found.rewrite == "'😀'+IIF(B==2,'x','y')"
    (finding,) = found.findings
    begin, length = finding.rewrite_position, finding.rewrite_length
    assert (finding.code, finding.rewrite) == ("EQUALS_ASSIGNS", "B==2")
    assert formula[begin : begin + length] == "B=2"
    assert formula[finding.position : finding.position + finding.length] == "="


def test_a_formula_that_keeps_its_meaning():
    found = check("A+1")
    assert (found.verdict, found.rewrite, found.findings) == (Verdict.SAME, "", [])


def test_extract():
    assert extract("IIF(PRICE>10,QTY*2,0)") == ["PRICE", "QTY"]
    assert extract("a => a + b", js=True) == []
    assert extract("x + Math.PI", js=True) == ["x"]
    with pytest.raises(FormulaError):
        extract("A +* B")
    with pytest.raises(FormulaError, match="50"):
        extract("for (;;);", js=True, timeout=0.05)
