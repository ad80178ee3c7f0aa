"""Drives Chromium through its debugging pipe: what one needs to look at a page as its reader does."""

import base64
import json
import os
import select
import subprocess
import tempfile
import time


class Browser:
    """A Chromium of its own without a window, with a profile of its own. Use it in a with statement."""

    DEADLINE_SECONDS = 60

    def __init__(self):
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        to_browser, self.output = os.pipe()
        self.input, from_browser = os.pipe()
        # The browser reads from 3 and writes to 4.
        command = ["sh", "-c", f'exec 3<&{to_browser} 4>&{from_browser} "$@"', "sh", "chromium", "--headless=new",
                   "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
                   "--disable-background-networking", "--disable-component-update", "--hide-scrollbars",
                   f"--user-data-dir={self.profile.name}", "--remote-debugging-pipe", "about:blank"]
        # sh redirects no descriptor above 9.
        if max(to_browser, from_browser) > 9:
            raise RuntimeError("too many open files")
        self.process = subprocess.Popen(command, pass_fds=(to_browser, from_browser), stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self.rest = b""
        self.last = 0
        self.session = None
        self.events = []

    def __enter__(self):
        targets = self.call("Target.getTargets")["targetInfos"]
        page = next(target for target in targets if target["type"] == "page")
        self.session = self.call("Target.attachToTarget", targetId=page["targetId"], flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(domain + ".enable")
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        os.close(self.output)
        os.close(self.input)
        self.profile.cleanup()

    def _read(self, deadline):
        while b"\0" not in self.rest:
            if not select.select([self.input], [], [], max(deadline - time.monotonic(), 0))[0]:
                raise TimeoutError("the browser does not answer")
            chunk = os.read(self.input, 1 << 20)
            if not chunk:
                raise RuntimeError("the browser has ended")
            self.rest += chunk
        message, self.rest = self.rest.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.last += 1
        message = {"id": self.last, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        data = json.dumps(message).encode() + b"\0"
        while data:
            data = data[os.write(self.output, data):]
        deadline = time.monotonic() + self.DEADLINE_SECONDS
        while True:
            answer = self._read(deadline)
            if answer.get("id") == self.last:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]
            if "method" in answer:
                self.events.append(answer)

    def open(self, path):
        """Loads a file and waits until all of it is there."""
        self.events = []
        self.call("Page.navigate", url="file://" + os.path.realpath(path))
        deadline = time.monotonic() + self.DEADLINE_SECONDS
        while not any(event["method"] == "Page.loadEventFired" for event in self.events):
            self.events.append(self._read(deadline))

    def evaluate(self, expression):
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(str(answer["exceptionDetails"]))
        return answer["result"].get("value")

    def complaints(self):
        """What the page has told the console: errors and warnings."""
        found = []
        for event in self.events:
            if event["method"] == "Runtime.exceptionThrown":
                found.append(event["params"]["exceptionDetails"])
            if event["method"] == "Runtime.consoleAPICalled" and event["params"]["type"] in ("error", "warning"):
                found.append(event["params"]["args"])
            if event["method"] == "Log.entryAdded":
                found.append(event["params"]["entry"]["text"])
        return found

    def requests(self):
        return [event["params"]["request"]["url"] for event in self.events
                if event["method"] == "Network.requestWillBeSent"]

    def show(self, width, height=900, dark=False, media=""):
        """The size of the window, and what the reader prefers."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.call("Emulation.setEmulatedMedia", media=media,
                  features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])
        # Two frames later the layout is that of the new size.
        self.evaluate("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))")

    def take_picture(self, path):
        answer = self.call("Page.captureScreenshot", format="png", captureBeyondViewport=True)
        with open(path, "wb") as file:
            file.write(base64.b64decode(answer["data"]))

    def print_page(self, path):
        answer = self.call("Page.printToPDF", printBackground=False, paperWidth=8.27, paperHeight=11.69)
        with open(path, "wb") as file:
            file.write(base64.b64decode(answer["data"]))
