"""A browser without a window, steered through its pipe: enough to open a file, look at it and print it."""
import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

TIME_LIMIT = 60


class Browser:
    """Use it in a with statement; its profile goes with it."""

    def __init__(self, program):
        self.profile = tempfile.mkdtemp(prefix="browser-")
        commands, self.to_browser = os.pipe()
        self.from_browser, answers = os.pipe()
        # The browser reads from descriptor 3 and writes to 4. Copies above them stay free of both.
        high = [os.dup2(commands, 103), os.dup2(answers, 104)]

        def place():
            os.dup2(103, 3)
            os.dup2(104, 4)

        self.process = subprocess.Popen(
            [program, "--headless=new", "--remote-debugging-pipe", "--no-sandbox", "--disable-gpu",
             "--disable-dev-shm-usage", "--no-first-run", "--disable-background-networking",
             "--disable-component-update", "--user-data-dir=" + self.profile],
            preexec_fn=place, close_fds=False, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, env=dict(os.environ, HOME=self.profile), start_new_session=True)
        for end in [commands, answers] + high:
            os.close(end)
        self.count = 0
        self.unread = b""
        self.events = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log"):
            self.call(domain + ".enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.to_browser)
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            os.killpg(self.process.pid, 9)
            self.process.wait()
        os.close(self.from_browser)
        shutil.rmtree(self.profile, ignore_errors=True)

    def read(self):
        end = time.monotonic() + TIME_LIMIT
        while b"\0" not in self.unread:
            if not select.select([self.from_browser], [], [], max(0, end - time.monotonic()))[0]:
                raise RuntimeError("the browser gives no answer")
            some = os.read(self.from_browser, 1 << 16)
            if not some:
                raise RuntimeError("the browser has ended")
            self.unread += some
        message, self.unread = self.unread.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.count += 1
        command = {"id": self.count, "method": method, "params": parameters}
        if hasattr(self, "session"):
            command["sessionId"] = self.session
        os.write(self.to_browser, json.dumps(command).encode() + b"\0")
        while True:
            message = self.read()
            if message.get("id") != self.count:
                self.events.append(message)
            elif "error" in message:
                raise RuntimeError(f"{method}: {message['error']}")
            else:
                return message["result"]

    def open(self, path):
        self.events.clear()
        failed = self.call("Page.navigate", url=path.resolve().as_uri()).get("errorText")
        if failed:
            raise RuntimeError(f"{path}: {failed}")
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            self.events.append(self.read())

    def complaints(self):
        """What a developer would see in the console."""
        found = []
        for event in self.events:
            if event.get("method") in ("Runtime.exceptionThrown", "Runtime.consoleAPICalled", "Log.entryAdded"):
                found.append(json.dumps(event["params"]))
        return found

    def value(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def look(self, width, height, scheme, is_phone=False):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                  mobile=is_phone)
        self.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])

    def picture(self, path):
        path.write_bytes(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))

    def print(self, path):
        path.write_bytes(base64.b64decode(self.call("Page.printToPDF", preferCSSPageSize=True)["data"]))
