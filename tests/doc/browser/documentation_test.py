"""Opens what `kxjs docs` writes in a real browser and checks what a person sees there.

    documentation_test.py PATH-OF-KXJS

Ends with status 77, for "skipped", where there is no Chromium.
"""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import chromium

SKIPPED = 77
ENTITY = re.compile(r"&\w+;|&#\d+;")


def read_signatures():
    """Heading -> list of (name, [parameter...]), from signatures.txt."""
    headings = {}
    for line in (Path(__file__).parent / "signatures.txt").read_text().splitlines():
        if line.startswith(" "):
            name, parameters = re.fullmatch(r" +(\w+)\((.*)\)", line).groups()
            functions.append((name, parameters.split(", ") if parameters else []))
        else:
            functions = headings[line] = []
    return headings


HEADINGS = read_signatures()
FUNCTIONS = [function for functions in HEADINGS.values() for function in functions]


class BrowserTest(unittest.TestCase):
    browser = chromium.Browser()  # one for all tests: its start takes longer than they do

    @classmethod
    def setUpClass(cls):
        cls.files = tempfile.TemporaryDirectory(prefix="kxjs docs \u00e9 ")
        cls.addClassCleanup(cls.files.cleanup)
        cls.directory = Path(cls.files.name)

    @classmethod
    def docs(cls, *arguments):
        subprocess.run([KXJS, "docs", *map(str, arguments)], check=True)

    def tearDown(self):
        self.assertEqual(self.browser.complaints(), [])

    def visible_text(self, selector="body"):
        """The text as it is shown: entities decoded, hidden elements left out."""
        return self.browser.evaluate(f'document.querySelector("{selector}").innerText')

    def visible_texts(self, selector):
        return self.browser.evaluate(
            f'[...document.querySelectorAll("{selector}")]'
            ".filter(e => e.checkVisibility() && e.getBoundingClientRect().height > 0)"
            ".map(e => e.innerText)"
        )

    def style(self, selector, name):
        return self.browser.evaluate(
            f'getComputedStyle(document.querySelector("{selector}")).getPropertyValue("{name}")'
        )

    def assert_reads_well(self):
        self.assertEqual(self.browser.evaluate("document.characterSet"), "UTF-8")
        self.assertEqual(self.browser.evaluate("document.compatMode"), "CSS1Compat")
        text = self.visible_text()
        self.assertIsNone(ENTITY.search(text))
        self.assertNotIn("\ufeff", text)
        self.assertNotIn("\ufffd", text)

    def assert_lists_all_functions(self):
        """Headings and functions' blocks stand side by side, none inside another."""
        self.assertEqual(
            self.browser.evaluate("[...document.body.children].map(e => e.localName + e.id)"),
            [
                element
                for functions in HEADINGS.values()
                for element in ["h1", *("div" + name for name, _ in functions)]
            ],
        )
        self.assertEqual(self.visible_texts("body > h1"), list(HEADINGS))
        self.assertEqual(
            self.visible_texts("body > div > b:first-child"),
            [f"{name}({', '.join(parameters)})" for name, parameters in FUNCTIONS],
        )


class OnePageTest(BrowserTest):
    def test_with_examples(self):
        path = self.directory / "all.html"
        self.docs("--examples", "-o", path)
        self.browser.open(path)
        self.assert_reads_well()
        self.assert_lists_all_functions()
        self.assertEqual(
            self.browser.evaluate("document.title"), "Documentation for KxJSParser functions"
        )
        self.assertEqual(
            self.visible_text("#ROUND").splitlines(),
            [
                "ROUND(num, dec)",
                "Rounds a float",
                "\u2192 Parameter num = The value to round",
                "\u2192 Parameter dec = The number of decimal digits to round to.",
                "\u2190 Return The rounded value",
                "Example :",
                "ROUND(10.523, 2) \u2192 10.52",
                "ROUND(10.526, 2) \u2192 10.53",
                "ROUND(2.34567, 4) \u2192 2.3457",
            ],
        )
        self.assertIn("Return n1 if n2<n1<n3 , n2 if n1<n2 , n3 if n1>n3", self.visible_text("#BUMP"))
        self.assertIn(
            "ISASCII('\u00c2\u00b5abc') \u2192 false (char code for \u00c2\u00b5 is 181)",
            self.visible_text("#ISASCII"),
        )
        self.assertEqual(self.style("#ROUND span:nth-of-type(1)", "color"), "rgb(128, 0, 128)")
        self.assertEqual(self.style("#ROUND span:nth-of-type(3)", "color"), "rgb(0, 128, 0)")

    def test_every_function_shows_its_parameters_and_result(self):
        path = self.directory / "arrows.html"
        self.docs("-o", path)
        self.browser.open(path)
        self.assert_reads_well()
        self.assert_lists_all_functions()
        for name, parameters in FUNCTIONS:
            with self.subTest(name):
                lines = self.visible_text("#" + name).splitlines()
                self.assertEqual(
                    [line.split(" = ")[0] for line in lines if line.startswith("\u2192")],
                    [f"\u2192 Parameter {parameter}" for parameter in parameters],
                )
                self.assertEqual(sum(line.startswith("\u2190 Return ") for line in lines), 1)
                self.assertNotIn("Example :", lines)

    def test_embedded_in_a_page_of_the_application(self):
        part = self.directory / "part.html"
        self.docs("--fragment", "--examples", "-o", part)
        page = self.directory / "application.html"
        page.write_text(
            "<!doctype html><meta charset='utf-8'><title>Help</title>"
            + part.read_text(encoding="utf-8"),
            encoding="utf-8",
        )
        self.browser.open(page)
        self.assert_reads_well()
        self.assert_lists_all_functions()


class ManyPagesTest(BrowserTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.docs("--pages", cls.directory)

    def open_page(self, name):
        self.browser.open(self.directory / (name + ".html"))

    def test_every_page_has_its_blocks(self):
        categories = {
            "Mathematical functions": "Mathematical Functions",
            "String functions": "String Functions",
            "Miscellaneous functions": "Miscellaneous Functions",
        }
        for heading, functions in HEADINGS.items():
            for name, parameters in functions:
                with self.subTest(name):
                    self.open_page(name)
                    self.assert_reads_well()
                    self.assertEqual(self.browser.evaluate("document.title"), name)
                    self.assertEqual(self.visible_texts("h1"), [name])
                    self.assertEqual(
                        self.visible_texts("h3"),
                        # The style sheet writes the category in capitals.
                        [
                            categories[heading],
                            "Description",
                            "Parameters",
                            "Return Values",
                            "Examples",
                        ],
                    )
                    self.assertEqual(
                        self.visible_texts(".whiteBlock"),
                        [" ".join([name, "(", " , ".join(parameters), ")"]).replace("  ", " ")],
                    )
                    self.assertEqual(self.visible_texts("dt"), parameters)
                    self.assertEqual(len(self.visible_texts("dd")), len(parameters))
                    self.assertEqual(self.browser.complaints(), [])

    def test_a_page_in_full(self):
        self.open_page("ROUND")
        self.assertEqual(
            [line for line in self.visible_text().splitlines() if line],
            [
                "Mathematical Functions",
                "ROUND",
                "ROUND \u2014 Rounds a float",
                "Description",
                "ROUND ( num , dec )",
                "Rounds a float",
                "Parameters",
                "num",
                "The value to round",
                "dec",
                "The number of decimal digits to round to.",
                "Return Values",
                "The rounded value",
                "Examples",
                "ROUND(10.523, 2) \u2192 10.52",
                "ROUND(10.526, 2) \u2192 10.53",
                "ROUND(2.34567, 4) \u2192 2.3457",
            ],
        )
        self.assertEqual(self.style(".divSection", "background-color"), "rgb(238, 238, 255)")
        self.assertEqual(self.style("h1", "color"), "rgb(0, 0, 102)")
        self.assertEqual(self.style(".exampleBlock", "background-color"), "rgb(255, 255, 255)")

    def test_examples_keep_their_blanks_and_characters(self):
        self.open_page("STR")
        self.assertEqual(self.visible_texts("pre")[0], "STR(10.523) \u2192 '        10'")
        self.open_page("ISASCII")
        self.assertEqual(
            self.visible_texts("pre")[-1],
            "ISASCII('\u00c2\u00b5abc') \u2192 false (char code for \u00c2\u00b5 is 181)",
        )

    def test_the_index_leads_to_every_page(self):
        self.open_page("index")
        self.assert_reads_well()
        self.assertEqual(
            self.browser.evaluate("[...document.links].map(a => a.href.split('/').pop())"),
            [name + ".html" for name, _ in FUNCTIONS],
        )
        self.assertEqual(len(self.visible_texts("a")), len(FUNCTIONS))
        for name in ("ROUND", "CHRTRAN", "LISTFUNCT"):
            self.open_page("index")
            self.browser.click(f"a[href='{name}.html']")
            self.assertEqual(self.visible_texts("h1"), [name])


class HarnessTest(BrowserTest):
    """The checks above are worth what they can see go wrong."""

    def tearDown(self):
        pass

    def open_html(self, html):
        path = self.directory / "harness.html"
        path.write_bytes(html)
        self.browser.open(path)

    def test_sees_what_the_console_reports(self):
        for html in (
            b"<script>throw Error('x')</script>",
            b"<script>console.error('x')</script>",
            b"<img src='missing.png'>",
            b"<script src='http://example.invalid/x.js'></script>",
        ):
            with self.subTest(html):
                self.open_html(b"<!doctype html>" + html)
                self.assertNotEqual(self.browser.complaints(), [])

    def test_sees_what_is_shown_and_nothing_else(self):
        self.open_html(b"<!doctype html><b>&amp;rarr;</b><b style='display:none'>x</b>")
        self.assertEqual(self.visible_texts("b"), ["&rarr;"])
        with self.assertRaises(AssertionError):
            self.assert_reads_well()

    def test_sees_a_wrong_character_set(self):
        self.open_html("<!doctype html>\u00b5".encode("latin-1"))
        with self.assertRaises(AssertionError):
            self.assert_reads_well()


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    KXJS = sys.argv.pop(1)
    if chromium.executable() is None:
        print("SKIPPED: no Chromium here, so nobody has looked at the documentation in a browser")
        sys.exit(SKIPPED)
    with BrowserTest.browser:
        unittest.main(verbosity=2)
