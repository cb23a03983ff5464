"""A headless Chromium that does what a person would do with a page, over its DevTools protocol, which it speaks on two pipes."""
import base64
import fcntl
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

KEYS = {
    "Enter": (13, "\r"),
    "Escape": (27, None),
    "ArrowLeft": (37, None),
    "ArrowUp": (38, None),
    "ArrowRight": (39, None),
    "ArrowDown": (40, None),
    "Home": (36, None),
    "End": (35, None),
    "/": (191, "/"),
}


class Failed(Exception):
    """The browser, or a script in its page, has failed."""


class Browser:
    """One process; pages are opened in it."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="gattr-browser-")
        to_read, to_write = os.pipe(), os.pipe()
        # away from the numbers 3 and 4, which the child gets
        child = [fcntl.fcntl(fd, fcntl.F_DUPFD_CLOEXEC, 10) for fd in (to_read[0], to_write[1])]
        self.sending, self.receiving = (fcntl.fcntl(fd, fcntl.F_DUPFD_CLOEXEC, 10) for fd in (to_read[1], to_write[0]))
        for fd in (*to_read, *to_write):
            os.close(fd)

        def take_pipes():
            os.dup2(child[0], 3)
            os.dup2(child[1], 4)

        arguments = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
                     "--disable-component-update", "--disable-sync", "--disable-dev-shm-usage", "--hide-scrollbars",
                     "--remote-debugging-pipe", f"--user-data-dir={self.folder}", "about:blank"]
        self.process = subprocess.Popen([os.environ.get("CHROMIUM", "chromium"), *arguments], pass_fds=(3, 4), preexec_fn=take_pipes,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for fd in child:
            os.close(fd)
        self.pending, self.number, self.events = b"", 0, []

    def close(self):
        try:
            self.call("Browser.close")
        except Failed:
            pass
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        os.close(self.sending)
        os.close(self.receiving)
        shutil.rmtree(self.folder, ignore_errors=True)

    def receive(self, until):
        """The next message, or None where none comes by then."""
        while b"\0" not in self.pending:
            if not select.select([self.receiving], [], [], max(0.0, until - time.monotonic()))[0]:
                return None
            piece = os.read(self.receiving, 1 << 20)
            if not piece:
                raise Failed("the browser has ended")
            self.pending += piece
        message, self.pending = self.pending.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, session=None, seconds=60, **parameters):
        """Runs a command of the protocol; what is told meanwhile is kept in `events`."""
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if session:
            message["sessionId"] = session
        rest = json.dumps(message).encode() + b"\0"
        try:
            while rest:
                rest = rest[os.write(self.sending, rest):]
        except BrokenPipeError:
            raise Failed("the browser has ended") from None
        until = time.monotonic() + seconds
        while answer := self.receive(until):
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise Failed(f"{method}: {answer['error']['message']}")
                return answer["result"]
            if "method" in answer:
                self.events.append(answer)
        raise Failed(f"{method}: no answer within {seconds} s")


class Page:
    """One page. Requests, errors and violations of its policy are kept from before it is opened."""

    def __init__(self, browser, path=None, *, width=1400, height=900, script=True, dark=False):
        self.browser = browser
        browser.events.clear()
        target = browser.call("Target.createTarget", url="about:blank")["targetId"]
        self.target = target
        self.session = browser.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log", "Audits"):
            self.call(f"{domain}.enable")
        self.resize(width, height)
        if not script:
            self.call("Emulation.setScriptExecutionDisabled", value=True)
        if dark:
            self.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])
        self.call("Page.addScriptToEvaluateOnNewDocument",
                  source="window.violations = []; addEventListener('securitypolicyviolation', e => violations.push(e.violatedDirective))")
        if path is not None:
            self.open(path)

    def call(self, method, **parameters):
        return self.browser.call(method, self.session, **parameters)

    def open(self, path):
        self.call("Page.navigate", url="file://" + os.path.abspath(path))
        self.wait_for("Page.loadEventFired")

    def wait_for(self, method, seconds=60):
        until = time.monotonic() + seconds
        while True:
            for event in self.browser.events:
                if event["method"] == method and event.get("sessionId") == self.session:
                    return event["params"]
            message = self.browser.receive(until)
            if message is None:
                raise Failed(f"no {method} within {seconds} s")
            if "method" in message:
                self.browser.events.append(message)

    def told(self, method):
        return [event["params"] for event in self.browser.events if event["method"] == method and event.get("sessionId") == self.session]

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def run(self, expression):
        """The value of a JavaScript expression, awaited where it is a promise."""
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            details = result["exceptionDetails"]
            raise Failed(details.get("exception", {}).get("description", details["text"]))
        return result["result"].get("value")

    def settle(self):
        """Waits until what was done is drawn."""
        self.run("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))")

    def press(self, *keys):
        for key in keys:
            code, text = KEYS.get(key, (ord(key[0].upper()), key))
            event = {"key": key, "windowsVirtualKeyCode": code}
            self.call("Input.dispatchKeyEvent", type="keyDown", **event, **({"text": text} if text else {}))
            self.call("Input.dispatchKeyEvent", type="keyUp", **event)
        self.settle()

    def type(self, text):
        self.call("Input.insertText", text=text)
        self.settle()

    def click(self, selector):
        """A click of the mouse in the middle of the first element that fits."""
        place = self.run(f"(() => {{ const e = document.querySelector({json.dumps(selector)}); if (!e) return null; e.scrollIntoView({{block: 'nearest'}});"
                         " const b = e.getBoundingClientRect(); return [b.x + b.width / 2, b.y + b.height / 2]; })()")
        if place is None:
            raise Failed(f"nothing fits {selector}")
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=place[0], y=place[1], button="left", clickCount=1)
        self.settle()

    def screenshot(self, path):
        with open(path, "wb") as out:
            out.write(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))

    def close(self):
        self.browser.call("Target.closeTarget", targetId=self.target)
