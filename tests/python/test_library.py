"""The package against the C headers and the loaded library."""

import ctypes.util
import os
import pathlib
import re
import subprocess
import sys

import kxjsparser
import pytest
from kxjsparser import _border, _library, catalogue, errors, translation

SOURCE = pathlib.Path(__file__).parents[2]
HEADERS = re.sub(
    r"//.*", "", "".join(file.read_text() for file in sorted((SOURCE / "src/c").glob("kxjs_*.h")))
)
CONSTANTS = {
    name: int(value) for name, value in re.findall(r"\b(KXJS_\w+) = (\d+)", HEADERS)
}
LETTERS = {"size_t": "n", "int32_t": "i", "kxjs_status": "i", "int64_t": "l"}


def letter(parameter):
    """What stands for a parameter of a header in the package's table."""
    if "*" in parameter or parameter.startswith("kxjs_progress"):
        return "p"
    return {**LETTERS, "uint64_t": "u", "uint16_t": "h", "double": "d"}[parameter.split()[0]]


def test_signatures_are_those_of_the_headers():
    declared = {
        name: "" if parameters == "void" else "".join(map(letter, parameters.split(", ")))
        for name, parameters in re.findall(
            r"\b(kxjs_\w+)\(([^)]*)\)", re.sub(r"\s+", " ", HEADERS)
        )
    }
    assert _library.SIGNATURES
    for name, signature in _library.SIGNATURES.items():
        assert declared[name] == signature, name


@pytest.mark.parametrize(
    ("prefix", "values"),
    [
        ("KXJS_FAILURE_", {kind.name: kind.value for kind in errors.Kind}),
        ("KXJS_VERDICT_", {verdict.name: verdict.value for verdict in translation.Verdict}),
        (
            "KXJS_",
            {
                name.strip("_"): getattr(_border, name)
                for name in (
                    "OK",
                    "RESULT_NAN",
                    "FORMULA_FAILED",
                    "ENDED",
                    "NOT_FOUND",
                    "REFUSED",
                    "_NULL_ARGUMENT",
                    "_WRONG_THREAD",
                    "_NO_MEMORY",
                )
            },
        ),
        (
            "KXJS_FUNCTION_",
            {
                "NAME": catalogue._NAME,
                "CATEGORY": catalogue._CATEGORY,
                "DESCRIPTION": catalogue._DESCRIPTION,
                "RETURN_DESCRIPTION": catalogue._RETURNS,
                "JAVASCRIPT": catalogue._JAVASCRIPT,
                "HTML_EXAMPLES": catalogue._HTML,
            },
        ),
    ],
)
def test_constants_are_those_of_the_headers(prefix, values):
    for name, value in values.items():
        assert CONSTANTS[prefix + name] == value


def test_version_is_that_of_the_library():
    number = _library.library.kxjs_version()
    version = (number // 1000000, number // 1000 % 1000, number % 1000)
    assert kxjsparser.__version__ == ".".join(map(str, version))


def test_the_library_is_asked_for_by_its_soname():
    dump = subprocess.run(
        ["readelf", "-d", os.environ["KXJSPARSER_LIBRARY"]],
        check=True,
        capture_output=True,
        text=True,
    ).stdout
    assert f"Library soname: [{_library._SONAME}]" in dump


@pytest.mark.parametrize("library", ["/nowhere/libKxJsParser.so.0", ctypes.util.find_library("c")])
def test_another_library_is_an_import_error(library):
    result = subprocess.run(
        [sys.executable, "-c", "import kxjsparser"],
        env={**os.environ, "KXJSPARSER_LIBRARY": library},
        capture_output=True,
        text=True,
    )
    assert result.returncode == 1
    assert "ImportError: kxjsparser" in result.stderr
    assert library in result.stderr


def test_arrays_and_frames_are_imported_only_when_needed():
    code = "import kxjsparser, sys; print([m for m in ('numpy', 'pandas') if m in sys.modules])"
    result = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True)
    assert result.stdout == "[]\n", result.stderr
