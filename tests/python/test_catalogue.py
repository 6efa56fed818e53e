"""The built-in functions."""

from kxjsparser import functions


def test_all_functions_have_their_texts():
    found = functions()
    assert len(found) == 63
    assert len({function.name for function in found}) == 63
    for function in found:
        assert function.category
        assert function.description
        assert function.return_description
        assert function.examples
        assert function.javascript.startswith(f"function {function.name}(")
        assert f"id='{function.name}'" in function.html


def test_one_function():
    (function,) = (function for function in functions() if function.name == "ROUND")
    assert function.category == "mathematical functions"
    assert function.description == "Rounds a float"
    assert function.parameters == [
        ("num", "The value to round"),
        ("dec", "The number of decimal digits to round to."),
    ]
    assert function.examples[0] == "ROUND(10.523, 2) &rarr; 10.52"
