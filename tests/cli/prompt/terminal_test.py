#!/usr/bin/env python3
"""kxjs repl at a terminal, which tmux emulates.

usage: terminal_test.py KXJS
"""
import os
import shutil
import stat
import subprocess
import sys
import tempfile
import time
import unittest

KXJS = ""
SKIPPED = 77
PATIENCE = 20  # seconds; a loaded machine is slow


class Terminal:
    """A terminal of 70 columns in which kxjs repl runs."""

    def __init__(self, state, command="{} repl"):
        self.socket = os.path.join(tempfile.mkdtemp(dir=state), "tmux")
        self.environment = dict(os.environ, XDG_STATE_HOME=state, TERM="screen-256color")
        self.environment.pop("COLUMNS", None)
        self.tmux("-f", "/dev/null", "new-session", "-d", "-x", "70", "-y", "50",
                  command.format(f"'{KXJS}'") + "; echo status $?; sleep 60")

    def tmux(self, *arguments):
        return subprocess.run(["tmux", "-u", "-S", self.socket, *arguments], check=True,
                              env=self.environment, capture_output=True, text=True).stdout

    def type(self, text):
        self.tmux("send-keys", "-l", "--", text[:-1] + "\\;" if text.endswith(";") else text)

    def press(self, *keys):
        self.tmux("send-keys", *keys)

    def screen(self):
        lines = self.tmux("capture-pane", "-p").split("\n")
        return "\n".join(line.rstrip() for line in lines).rstrip("\n")

    def close(self):
        subprocess.run(["tmux", "-S", self.socket, "kill-server"], check=False,
                       capture_output=True)


class PromptTest(unittest.TestCase):
    def setUp(self):
        self.state = tempfile.mkdtemp(prefix="kx")
        self.addCleanup(shutil.rmtree, self.state, True)
        self.start()

    def start(self, command="{} repl"):
        self.terminal = Terminal(self.state, command)
        self.addCleanup(self.terminal.close)
        self.expect_end("kxjs>")

    def expect_end(self, end):
        """Waits until the screen ends with `end`."""
        self.expect(lambda screen: screen.endswith(end), end)

    def expect(self, condition, what):
        limit = time.monotonic() + PATIENCE
        while not condition(self.terminal.screen()):
            if time.monotonic() > limit:
                self.fail(f"expected:\n{what}\n\non the screen:\n{self.terminal.screen()}")
            time.sleep(0.02)

    def enter(self, line, *answer):
        """Types a line and waits for its answer and the next prompt."""
        self.terminal.type(line)
        self.expect_end(line.rstrip())
        self.terminal.press("Enter")
        self.expect_end("\n".join(("kxjs> " + line, *answer, "kxjs>")))

    def test_formula(self):
        self.enter("IIF(1<>2 .AND. 3>2,'OK','KO')", "OK")

    def test_variables(self):
        self.enter("A = 5", "A = 5 (long)")
        self.enter("B = A+0.5", "B = 5.5 (double)")
        self.enter("A+B", "10.5")
        self.enter(":vars", "A = 5 (long)", "B = 5.5 (double)")
        self.enter(":reset")
        self.enter(":vars")

    def test_caret_below_the_typed_line(self):
        self.enter("A = 5", "A = 5 (long)")
        self.enter("A<>2 .AND. PRICE",
                   "                 ^^^^^", "ReferenceError: PRICE is not defined")

    def test_caret_below_an_assigned_formula(self):
        self.enter("A = 1+PRICE", "            ^^^^^", "ReferenceError: PRICE is not defined")

    def test_caret_below_wide_characters(self):
        self.enter("'\u6f22e\u0301\U0001f600'+PRICE",
                   "              ^^^^^", "ReferenceError: PRICE is not defined")

    def test_caret_of_a_line_that_is_wrapped(self):
        line = "'" + "x" * 80 + "'+PRICE"
        self.terminal.type(line)
        self.terminal.press("Enter")
        self.expect(lambda screen: "Error in line: 1\nReferenceError: PRICE" in screen,
                    "the whole report")

    def test_editing_of_characters_beyond_ascii(self):
        self.terminal.type("'Gr\u00fc\u00dfx\u6f22\U0001f600'")
        self.terminal.press("Left", "Left", "BSpace")
        self.terminal.type("\u00e9")
        self.terminal.press("Enter")
        self.expect_end("\nGr\u00fc\u00dfx\u00e9\U0001f600\nkxjs>")

    def test_completion(self):
        self.terminal.type("1+up")
        self.terminal.press("Tab")
        self.expect_end("kxjs> 1+UPPERCASE(")

    def test_completion_of_several(self):
        self.terminal.type("RA")
        self.terminal.press("Tab")
        self.expect_end("kxjs> RA\nRADIANS(  RAT(  RATC(\nkxjs> RA")
        self.terminal.type("D")
        self.terminal.press("Tab")
        self.expect_end("kxjs> RADIANS(")

    def test_completion_of_variables_and_commands(self):
        self.enter("price = 5", "price = 5 (long)")
        self.terminal.type("2*pri")
        self.terminal.press("Tab", "Enter")
        self.expect_end("kxjs> 2*price\n10\nkxjs>")
        self.terminal.type(":he")
        self.terminal.press("Tab")
        self.terminal.type(" roun")
        self.terminal.press("Tab")
        self.expect_end("kxjs> :help ROUND")

    def test_help(self):
        self.terminal.type(":help round")
        self.terminal.press("Enter")
        self.expect(lambda screen: "\nROUND(num, dec)\n  Rounds a float\n" in screen, "the texts")

    def test_history_across_sessions(self):
        self.enter("1+1", "2")
        self.enter("'\u00e9\U0001f600'", "\u00e9\U0001f600")
        self.terminal.press("C-d")
        self.expect_end("status 0")
        self.terminal.close()
        self.start()
        self.terminal.press("Up")
        self.expect_end("kxjs> '\u00e9\U0001f600'")
        self.terminal.press("Up")
        self.expect_end("kxjs> 1+1")
        file = os.path.join(self.state, "kxjs", "history")
        self.assertEqual(stat.S_IMODE(os.stat(file).st_mode), 0o600)

    def test_history_is_bounded(self):
        self.terminal.close()
        file = os.path.join(self.state, "kxjs", "history")
        with open(file, "w", encoding="utf-8") as lines:
            lines.writelines(f"{number}\n" for number in range(3000))
        self.start()
        with open(file, encoding="utf-8") as lines:
            self.assertEqual(lines.read(), "".join(f"{number}\n" for number in range(2000, 3000)))

    def test_interrupt_ends_the_formula_only(self):
        self.enter("A = 5", "A = 5 (long)")
        self.terminal.type("while(true){}")
        self.terminal.press("Enter")
        self.expect_end("kxjs> while(true){}")
        time.sleep(0.3)
        self.terminal.press("C-c")
        self.expect_end("The script was ended: it was terminated\nkxjs>")
        self.enter("A+1", "6")

    def test_interrupt_empties_the_line(self):
        self.terminal.type("1+'unfinished")
        self.terminal.press("Left", "C-c")
        self.expect_end("kxjs>")
        self.enter("1+1", "2")

    def test_end_of_input(self):
        self.terminal.press("C-d")
        self.expect_end("status 0")

    def test_quit_after_an_error(self):
        self.enter("PRICE", "      ^^^^^", "ReferenceError: PRICE is not defined")
        self.terminal.type(":quit")
        self.terminal.press("Enter")
        self.expect_end("status 0")

    def test_works_where_history_cannot_be_kept(self):
        self.terminal.close()
        self.start("XDG_STATE_HOME=/dev/null {} repl")
        self.assertIn("lines are not kept for the next session", self.terminal.screen())
        self.enter("1+1", "2")


if __name__ == "__main__":
    KXJS = sys.argv.pop(1)
    if shutil.which("tmux") is None:
        print("skipped: there is no tmux here (scripts/setup --with terminal)")
        sys.exit(SKIPPED)
    unittest.main()
