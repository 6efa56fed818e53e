"""The built-in functions."""

import pytest
from kxjsparser import documentation, documentation_pages, functions, make_function


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


def test_functions_of_translations():
    found = functions(translated=True)
    assert "ADDBS" in [function.name for function in found]
    assert "ADDBS" not in [function.name for function in functions()]
    assert all(function.description for function in found)


def test_a_function_of_the_application(host):
    vat = make_function(
        "VAT",
        "return ROUND(price*rate,2);",
        description="The tax of a price",
        parameters=[("price", "Net"), ("rate", "Such as 0.19")],
        return_description="The tax",
        examples=["VAT(100, 0.19) &rarr; 19"],
        category="prices",
    )
    assert vat.parameters == [("price", "Net"), ("rate", "Such as 0.19")]
    assert (vat.category, vat.examples) == ("prices", ["VAT(100, 0.19) &rarr; 19"])
    assert "The tax of a price" in vat.html
    host.evaluate(vat.javascript, js=True)
    assert host.evaluate("VAT(100, 0.19)") == "19.00"


@pytest.mark.parametrize(
    ("arguments", "part"),
    [
        ({"name": "vat"}, "name"),
        ({"name": ""}, "name"),
        ({"body": "{"}, "body"),
        ({"description": "a{b"}, "description"),
        ({"parameters": [("", "x")]}, "parameter ''"),
        ({"examples": [""]}, "example"),
    ],
)
def test_functions_that_are_refused(arguments, part):
    with pytest.raises(ValueError, match=part):
        make_function(**{"name": "VAT", "body": "return 1;", **arguments})


def test_documentation():
    names = [function.name for function in functions()]
    pages = documentation_pages()
    assert list(pages) == names
    document = documentation()
    assert all(f"id='{name}'" in document for name in names)
    assert "<body" in document and "<body" not in documentation(standalone=False)
    assert len(documentation(examples=False)) < len(document)
