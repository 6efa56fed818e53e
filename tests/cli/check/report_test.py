"""Opens the page that `kxjs check --html` writes in a real browser, looks at it and filters it.

    report_test.py PATH-OF-KXJS DIRECTORY-OF-CHROMIUM.PY

Ends with status 77, for "skipped", where there is no Chromium.
"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, sys.argv[2])
import chromium  # noqa: E402

SKIPPED = 77
FORMULAS = [
    "A==6",
    "IIF(A=6,'<b>','\U0001f600')",
    'S<>"HE"',
    "A>=6 .AND. B=2",
    "LEN(",
    "&macro",
    "'</script><script>document.title=1</script>'=S",
] + [f"A=={number}" for number in range(300)]


class ReportTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.files = tempfile.TemporaryDirectory(prefix="kxjs report ")
        cls.addClassCleanup(cls.files.cleanup)
        cls.page = Path(cls.files.name) / "report.html"
        source = Path(cls.files.name) / "formulas.txt"
        source.write_text("\n".join(FORMULAS) + "\n", encoding="utf-8")
        subprocess.run(
            [KXJS, "check", "-i", source, "--html", cls.page], stdout=subprocess.DEVNULL, check=False
        )
        cls.browser = chromium.Browser()
        cls.browser.__enter__()
        cls.addClassCleanup(cls.browser.__exit__)

    def setUp(self):
        self.browser.open(self.page)

    def tearDown(self):
        self.assertEqual(self.browser.complaints(), [])

    def texts(self, selector):
        return self.browser.evaluate(
            f'[...document.querySelectorAll("{selector}")].map((each) => each.innerText)'
        )

    def press(self, selector, name):
        self.browser.evaluate(
            f'[...document.querySelectorAll("{selector}")]'
            f'.find((each) => each.querySelector(".name").textContent === "{name}").click()'
        )

    def shown(self):
        return self.browser.evaluate('document.getElementById("shown").textContent')

    def test_counts_are_bars(self):
        self.assertEqual(
            self.texts("#verdicts .name"),
            ["same", "differs", "changed", "fails", "not a formula"],
        )
        self.assertEqual(self.texts("#verdicts .count"), ["301", "1", "1", "3", "1"])
        widths = self.browser.evaluate(
            '[...document.querySelectorAll("#verdicts .bar")].map((each) => each.offsetWidth)'
        )
        self.assertGreater(widths[0], 10 * max(widths[1:]))
        self.assertGreater(min(widths), 0)

    def test_formulas_are_text_with_their_findings_marked(self):
        formulas = self.texts(".formula")
        self.assertEqual(formulas[1], FORMULAS[1])
        self.assertEqual(formulas[6], FORMULAS[6])
        self.assertEqual(self.texts("article:nth-of-type(2) mark"), ["="])
        self.assertEqual(self.texts("article:nth-of-type(4) mark"), [">=", "="])
        self.assertEqual(
            self.texts("article:nth-of-type(3) .rewrite code"), ['LEFT(S,2)<>"HE"']
        )
        self.assertNotEqual(self.browser.evaluate("document.title"), "1")

    def test_verdicts_codes_and_texts_filter(self):
        self.press("#verdicts button", "changed")
        self.assertEqual(self.texts(".formula"), [FORMULAS[1]])
        self.assertEqual(
            self.browser.evaluate('document.querySelectorAll("[aria-pressed=true]").length'), 1
        )
        self.press("#verdicts button", "changed")
        self.press("#codes button", "GE_ARROW")
        self.assertEqual(self.texts(".formula"), [FORMULAS[3]])
        self.press("#codes button", "GE_ARROW")
        self.browser.evaluate(
            'const field = document.getElementById("search"); field.value = "MACRO";'
            'field.dispatchEvent(new Event("input"))'
        )
        self.assertEqual(self.texts(".formula"), ["&macro"])

    def test_long_lists_come_in_parts(self):
        self.assertEqual(self.shown(), "307 formulas, 200 shown")
        self.browser.evaluate('document.getElementById("more").click()')
        self.assertEqual(self.shown(), "307 formulas, 307 shown")
        self.assertTrue(self.browser.evaluate('document.getElementById("more").hidden'))


if __name__ == "__main__":
    KXJS = sys.argv[1]
    if chromium.executable() is None:
        print("there is no Chromium")
        sys.exit(SKIPPED)
    unittest.main(argv=sys.argv[:1])
