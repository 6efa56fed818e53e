"""Drives a headless Chromium over its DevTools pipe, with Python's own library only."""

import fcntl
import json
import os
import select
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

OPTIONS = [
    "--headless",
    "--remote-debugging-pipe",
    "--no-sandbox",  # the sandbox refuses to work for root, as in most containers
    "--disable-gpu",
    "--disable-dev-shm-usage",  # containers give /dev/shm too little room
    # A test opens files and nothing else: no start page, no look at the network.
    "--no-first-run",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-default-apps",
    "--disable-sync",
    "--disable-quic",
    "--host-resolver-rules=MAP * ~NOTFOUND",
]


def executable():
    """The browser's path, or None where there is no browser."""
    return shutil.which("chromium") or shutil.which("chromium-browser")


class Browser:
    """One browser with one empty profile and one tab. Use it in a with statement."""

    TIMEOUT = 60  # seconds for one answer; far above what a slow machine takes

    def __enter__(self):
        self._profile = tempfile.mkdtemp(prefix="kxjs-browser-")
        self._received = b""
        self._events = []
        self._last_id = 0
        self._session = None
        # The browser reads commands from descriptor 3 and writes answers to descriptor 4.
        # Anything below 10 might be one of the two, so the shell gets its ends from above.
        browser_in, self._out = os.pipe()
        self._in, browser_out = os.pipe()
        ends = [_moved_up(browser_in), _moved_up(browser_out)]
        redirect = 'exec 3<&"$1" 4>&"$2"; shift 2; exec "$@"'
        command = [executable(), *OPTIONS, f"--user-data-dir={self._profile}", "about:blank"]
        self._process = subprocess.Popen(
            ["bash", "-c", redirect, "bash", *map(str, ends), *command],
            pass_fds=ends,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            start_new_session=True,
        )
        for end in ends:
            os.close(end)
        try:
            self._open_tab()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        try:
            os.killpg(self._process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self._process.wait()
        os.close(self._in)
        os.close(self._out)
        # Its last processes may still write for a moment.
        for _ in range(50):
            shutil.rmtree(self._profile, ignore_errors=True)
            if not os.path.exists(self._profile):
                break
            time.sleep(0.1)

    def open(self, path):
        """Opens the file and waits until it is loaded. Complaints are collected from here on."""
        self._events.clear()
        self._call("Page.navigate", url=Path(path).resolve().as_uri())
        self._wait_for("Page.loadEventFired")

    def click(self, selector):
        """Clicks where the element is on the screen and waits for the page that this opens."""
        x, y = self.evaluate(
            f"(() => {{ const e = document.querySelector({json.dumps(selector)});"
            " e.scrollIntoView(); const r = e.getClientRects()[0];"
            " return [r.x + r.width / 2, r.y + r.height / 2]; })()"
        )
        self._events.clear()
        for kind in ("mousePressed", "mouseReleased"):
            self._call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)
        self._wait_for("Page.loadEventFired")

    def evaluate(self, expression):
        """The value of a JavaScript expression in the page, as JSON carries it."""
        answer = self._call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(answer["exceptionDetails"])
        return answer["result"].get("value")

    def complaints(self):
        """What the browser's console holds against the page: errors, warnings, failed loads."""
        self.evaluate("0")  # everything that was reported before this answer has arrived
        return [
            event
            for event in self._events
            if event["method"] in ("Runtime.exceptionThrown", "Network.loadingFailed")
            or event["method"] == "Log.entryAdded"
            and event["params"]["entry"]["level"] in ("error", "warning")
            or event["method"] == "Runtime.consoleAPICalled"
            and event["params"]["type"] in ("error", "warning", "assert")
        ]

    def _open_tab(self):
        target = self._call("Target.createTarget", url="about:blank")["targetId"]
        attached = self._call("Target.attachToTarget", targetId=target, flatten=True)
        self._session = attached["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self._call(domain + ".enable")

    def _call(self, method, **parameters):
        self._last_id += 1
        message = {"id": self._last_id, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._out, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._receive()
            if answer.get("id") != self._last_id:
                self._events.append(answer)
            elif "error" in answer:
                raise RuntimeError(f"{method}: {answer['error']}")
            else:
                return answer["result"]

    def _wait_for(self, method):
        while not any(event["method"] == method for event in self._events):
            self._events.append(self._receive())

    def _receive(self):
        deadline = time.monotonic() + self.TIMEOUT
        while b"\0" not in self._received:
            readable, _, _ = select.select([self._in], [], [], max(0, deadline - time.monotonic()))
            if not readable:
                raise TimeoutError(f"no word from the browser for {self.TIMEOUT} s")
            chunk = os.read(self._in, 1 << 16)
            if not chunk:
                raise RuntimeError("the browser has ended")
            self._received += chunk
        message, self._received = self._received.split(b"\0", 1)
        return json.loads(message)


def _moved_up(descriptor):
    moved = fcntl.fcntl(descriptor, fcntl.F_DUPFD_CLOEXEC, 10)
    os.close(descriptor)
    return moved
