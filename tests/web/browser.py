"""Chromium without a display, a web server for the page, and the player's hand."""
import base64
import functools
import hashlib
import http.server
import os
import pathlib
import signal
import threading
import time

from selenium import webdriver
from selenium.webdriver import ActionChains
from selenium.webdriver.common.by import By

BUTTONS = {1: "left", 2: "right"}


def serve(folder, port=0):
    class Quiet(http.server.SimpleHTTPRequestHandler):
        def log_message(self, *_):
            pass
    server = http.server.ThreadingHTTPServer(("127.0.0.1", port), functools.partial(Quiet, directory=folder))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server


def stop(server):
    server.shutdown()
    server.server_close()


def awaited(what, condition, seconds=10):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if answer := condition():
            return answer
        time.sleep(0.01)
    raise AssertionError(f"waited in vain for {what}")


class Browser:
    def __init__(self, address, profile=None, prepare=None):
        options = webdriver.ChromeOptions()
        for argument in ["--headless=new", "--no-sandbox", "--disable-gpu", "--window-size=1300,900"]:
            options.add_argument(argument)
        if profile:
            options.add_argument(f"--user-data-dir={profile}")
        options.add_experimental_option("prefs", {"download.default_directory": str(profile)})
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(options=options)
        self.address = address
        if prepare:
            self.tool("Page.addScriptToEvaluateOnNewDocument", source=prepare)
        self.open()

    def open(self):
        self.driver.get(self.address)
        awaited("the board", lambda: self.run("return !!document.getElementById('FormMain.Picture1')?.width"))

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def tool(self, command, **arguments):
        return self.driver.execute_cdp_cmd(command, arguments)

    def element(self, name):
        return self.driver.find_element(By.ID, name)

    def press(self, *names):
        for name in names:
            self.element(name).click()

    def texts(self, selector):
        return [element.text for element in self.driver.find_elements(By.CSS_SELECTOR, selector)]

    def box(self):
        """The text of the box that stands; empty without one."""
        return " ".join(self.texts("dialog.question .message"))

    def answer(self, button):
        """Answers the box that stands; its text."""
        text = awaited("a box", self.box)
        next(b for b in self.driver.find_elements(By.CSS_SELECTOR, "dialog.question .answers button") if b.text == button).click()
        return text

    def caption(self):
        return self.element("Form1.TarQui").text

    def ratio(self, ratio, width=1280, height=800, mobile=False):
        self.tool("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=ratio, mobile=mobile)
        self.tool("Emulation.setTouchEmulationEnabled", enabled=mobile)
        # A browser that nobody sees draws nothing, and hears of its new size when it does.
        self.tool("Page.captureScreenshot")

    def corner(self, name):
        return self.run("const r = document.getElementById(arguments[0]).getBoundingClientRect(); return [r.left, r.top]", name)

    def mouse(self, kind, x, y, button=0, clicks=1):
        self.tool("Input.dispatchMouseEvent", type=kind, x=x, y=y, button=BUTTONS.get(button, "none"), clickCount=clicks,
                  buttons=0 if kind == "mouseReleased" else button)

    def click(self, name, x, y, button=1):
        left, top = self.corner(name)
        self.mouse("mouseMoved", left + x + .5, top + y + .5)
        self.mouse("mousePressed", left + x + .5, top + y + .5, button)
        self.mouse("mouseReleased", left + x + .5, top + y + .5, button)

    def drag(self, name, x, y, to_x, to_y):
        left, top = (at + .5 for at in self.corner(name))
        self.mouse("mouseMoved", left + x, top + y)
        self.mouse("mousePressed", left + x, top + y, 1)
        # The grip is taken at the first move, as in the story.
        for at_x, at_y in [(x + 1, y), ((x + to_x) // 2, (y + to_y) // 2), (to_x, to_y)]:
            self.mouse("mouseMoved", left + at_x, top + at_y, 1)
        self.mouse("mouseReleased", left + to_x, top + to_y, 1)

    def touch(self, kind, *points):
        self.tool("Input.dispatchTouchEvent", type=kind, touchPoints=[dict(x=x, y=y, id=i) for i, (x, y) in enumerate(points)])

    def finger_drag(self, name, x, y, to_x, to_y):
        left, top = (at + .5 for at in self.corner(name))
        self.touch("touchStart", (left + x, top + y))
        for part in (1, 2, 3, 4):
            self.touch("touchMove", (left + x + (to_x - x) * part / 4, top + y + (to_y - y) * part / 4))
        self.touch("touchEnd")

    def finger_turn(self, name, x, y, held=False):
        """A second finger beside the first, or a finger that stays for a while."""
        left, top = (at + .5 for at in self.corner(name))
        self.touch("touchStart", (left + x, top + y))
        if held:
            time.sleep(0.6)
        else:
            self.touch("touchStart", (left + x, top + y), (left + x + 40, top + y + 40))
        self.touch("touchEnd")

    def key(self, code, shift=0):
        key = {9: "Tab", 27: "Escape", 37: "ArrowLeft", 39: "ArrowRight", 40: "ArrowDown", 104: "8"}.get(code, "x")
        modifiers = (8 if shift & 1 else 0) + (2 if shift & 2 else 0)
        for kind in ["rawKeyDown", "keyUp"]:
            self.tool("Input.dispatchKeyEvent", type=kind, windowsVirtualKeyCode=code, key=key, modifiers=modifiers)

    def picture(self, name):
        """The bytes of a canvas."""
        return base64.b64decode(self.run("""
            const canvas = document.getElementById(arguments[0]);
            const { data } = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
            let text = "";
            for (let i = 0; i < data.length; i += 8192) text += String.fromCharCode(...data.subarray(i, i + 8192));
            return btoa(text);""", name))

    def screenshot(self, path):
        pathlib.Path(path).write_bytes(base64.b64decode(self.tool("Page.captureScreenshot", format="png")["data"]))

    def kill(self):
        """Ends the browser without a warning, the driver too."""
        processes = [self.driver.service.process.pid]
        for process in processes:
            for task in pathlib.Path(f"/proc/{process}/task").glob("*/children"):
                processes += map(int, task.read_text().split())
        for process in processes[1:]:
            try:
                os.kill(process, signal.SIGKILL)
            except ProcessLookupError:
                pass
        self.driver.service.process.kill()
        self.driver.service.process.wait()

    def end(self):
        """Whatever the browser had to complain of in the whole run."""
        faults = [entry["message"] for entry in self.driver.get_log("browser") if entry["level"] == "SEVERE"]
        self.driver.quit()
        assert not faults, faults


def sum_of(content):
    return hashlib.sha256(content).hexdigest()
