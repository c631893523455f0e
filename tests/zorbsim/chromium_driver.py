"""Headless Chromium driven through its DevTools pipe: open a page, evaluate script in it, take a
screenshot. No network and no packages beyond Python's own: Chromium reads commands on descriptor 3
and writes answers on descriptor 4, each a JSON text ended by a NUL byte."""

import base64
import json
import os
import select
import shutil
import subprocess
import tempfile

# Without the background-networking flags Chromium reaches out at start, which a closed network
# refuses; a profile of its own keeps runs apart.
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--remote-debugging-pipe"]


class BrowserError(Exception):
    pass


class Chromium:
    def __init__(self, program, width, height, timeout=90):
        self.timeout = timeout
        self.profile = tempfile.mkdtemp(prefix="zorbsim-chromium-")
        commands_read, commands_write = os.pipe()
        answers_read, answers_write = os.pipe()

        def place_pipes():
            os.dup2(commands_read, 3)
            os.dup2(answers_write, 4)

        self.process = subprocess.Popen(
            [program, *FLAGS, "--user-data-dir=" + self.profile, f"--window-size={width},{height}", "about:blank"],
            preexec_fn=place_pipes, pass_fds=(3, 4), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(commands_read)
        os.close(answers_write)
        self.commands = commands_write
        self.answers = answers_read
        self.received = b""
        self.events = []
        self.last_id = 0
        target = self.send("Target.createTarget", {"url": "about:blank"})["targetId"]
        self.session = self.send("Target.attachToTarget", {"targetId": target, "flatten": True})["sessionId"]
        for domain in ("Page", "Runtime"):
            self.send(domain + ".enable", session=self.session)
        self.send("Emulation.setDeviceMetricsOverride",
                  {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}, self.session)

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        try:
            self.send("Browser.close")
            self.process.wait(timeout=30)
        except (BrowserError, OSError, subprocess.TimeoutExpired):
            self.process.kill()
            self.process.wait()
        os.close(self.commands)
        os.close(self.answers)
        shutil.rmtree(self.profile, ignore_errors=True)

    def _read(self):
        while b"\0" not in self.received:
            ready, _, _ = select.select([self.answers], [], [], self.timeout)
            if not ready:
                raise BrowserError(f"Chromium did not answer within {self.timeout} s")
            chunk = os.read(self.answers, 1 << 16)
            if not chunk:
                raise BrowserError(f"Chromium ended (exit code {self.process.poll()})")
            self.received += chunk
        message, self.received = self.received.split(b"\0", 1)
        return json.loads(message)

    def send(self, method, params=None, session=None):
        self.last_id += 1
        message = {"id": self.last_id, "method": method, "params": params or {}}
        if session:
            message["sessionId"] = session
        os.write(self.commands, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._read()
            if answer.get("id") == self.last_id:
                if "error" in answer:
                    raise BrowserError(f"{method}: {answer['error'].get('message')}")
                return answer["result"]
            self.events.append(answer)

    def _wait_for(self, method):
        while True:
            for event in self.events:
                if event.get("method") == method and event.get("sessionId") == self.session:
                    self.events.remove(event)
                    return event
            event = self._read()
            # A dialog holds the page until someone answers it: a page that opens one has failed.
            if event.get("method") == "Page.javascriptDialogOpening":
                raise BrowserError("the page opened a dialog: " + event["params"].get("message", ""))
            self.events.append(event)

    def open(self, url):
        """Loads `url` afresh (also when only its fragment differs) and waits for its load event."""
        self.send("Page.navigate", {"url": "about:blank"}, self.session)
        self._wait_for("Page.loadEventFired")
        self.send("Page.navigate", {"url": url}, self.session)
        self._wait_for("Page.loadEventFired")

    def evaluate(self, expression):
        """The value of a script expression in the page, as JSON gives it back."""
        answer = self.send("Runtime.evaluate", {"expression": expression, "returnByValue": True}, self.session)
        if "exceptionDetails" in answer:
            raise BrowserError(f"script failed: {answer['exceptionDetails'].get('text')}: {expression[:200]}")
        return answer["result"].get("value")

    def screenshot(self, path):
        data = self.send("Page.captureScreenshot", {"format": "png"}, self.session)["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def script_errors(self):
        """The errors the pages' scripts raised so far."""
        errors = []
        for event in self.events:
            if event.get("method") == "Runtime.exceptionThrown":
                details = event["params"]["exceptionDetails"]
                errors.append(details.get("exception", {}).get("description") or details.get("text", ""))
        return errors
