"""Plays the page in Chromium: play.py PAGE STORY AXE. Each tale is one function; it fails by what it waits for or finds."""
import json
import pathlib
import re
import sys
import tempfile
import time

from browser import Browser, awaited, serve, stop

PAGE, STORY, AXE = map(pathlib.Path, sys.argv[1:4])
ONLY = sys.argv[4:]
BOARD = "FormMain.Picture1"
RATIOS = (1, 1.5, 2)
# A collection has 65 lines before its figures.
COUNT = (PAGE / "QUILLET.qui").read_bytes().count(b"\n") - 65


def see(browser, name):
    """At every ratio, byte for byte; and the screen shows the canvas as it is."""
    for ratio in RATIOS:
        browser.ratio(ratio)
        expected = (STORY / f"{name}.{ratio:g}").read_bytes()
        assert browser.picture(BOARD) == expected, f"the board of '{name}' at ratio {ratio}"
    browser.ratio(1)


def play_the_story(browser):
    """A figure by the mouse and one by fingers, to the applause; keys and levels between."""
    steps = json.loads((STORY / "story.json").read_text())
    turn, drag = (lambda x, y: browser.click(BOARD, x, y, 2)), browser.drag
    for deed, *rest in steps:
        if deed == "press":
            browser.press(*rest)
        elif deed == "key":
            browser.key(*rest)
        elif deed == "turn":
            turn(*rest)
        elif deed == "drag":
            drag(BOARD, *rest)
        elif deed == "see":
            see(browser, *rest)
        elif deed == "won":
            assert browser.answer("OK") == "You got it - congratulations"
        elif deed == "touch":
            browser.ratio(3, 360, 640, True)
            drag, held = browser.finger_drag, iter([True])
            turn = lambda x, y: browser.finger_turn(BOARD, x, y, next(held, False))
    assert browser.caption() == f"Quillet (3 of {COUNT})", browser.caption()
    browser.ratio(1)


def stands_sharp(browser):
    """The screen shows the canvas pixel by pixel, wherever the pane stands."""
    for ratio in (1, 1.25, 1.5, 3):
        browser.ratio(ratio, 801, 603)
        place = browser.run("""
            const { left, top, width } = document.getElementById(arguments[0]).getBoundingClientRect();
            return [left, top, width].map(at => at * devicePixelRatio)""", BOARD)
        assert all(abs(at - round(at)) < 0.1 for at in place), (ratio, place)
    browser.ratio(1)


def boxes_hold_their_handler(browser):
    """A form inside the handler, a question inside the form's handler, a page to print behind it."""
    browser.press("Form1.quisx", "Form1.px", "PrintShapes.Printy", "PrintShapes.ShowSolx")
    hidden = "const c = document.querySelector('#PrintShapes .client'); return c.scrollWidth - c.clientWidth + c.scrollHeight - c.clientHeight"
    assert browser.run(hidden) == 0, "the whole page is in sight"
    browser.press("PrintShapes.Printy", "PrintShapes.Printx")
    assert browser.run("return document.activeElement.textContent") == "Yes"
    assert browser.answer("Yes") == "Print this page?"
    pdf = browser.tool("Page.printToPDF", preferCSSPageSize=True, printBackground=True)["data"]
    import base64
    content = base64.b64decode(pdf)
    pathlib.Path(STORY / "page.pdf").write_bytes(content)
    pages = re.findall(rb"/MediaBox \[0 0 ([\d.]+) ([\d.]+)\]", content)
    assert len(pages) == 1, pages
    assert abs(float(pages[0][0]) / 72 - 7.72) < 0.01 and abs(float(pages[0][1]) / 72 - 6.03) < 0.01, pages
    browser.key(27)
    awaited("the print window to close", lambda: not browser.element("PrintShapes").is_displayed())
    browser.click("Form1.TargetQui_1", 20, 20, 2)
    browser.click("AllShapes", 30, 150)
    assert re.fullmatch(rf"Quillet \(\d+ of {COUNT}\)", browser.caption()) and browser.caption() != f"Quillet (3 of {COUNT})"
    browser.key(27)
    browser.press("Form1.quisx", "Form1.Helpx")
    browser.driver.switch_to.frame(browser.driver.find_element("css selector", "#HelpForm iframe"))
    awaited("the help page", lambda: browser.texts("h1") == ["Quillets"])
    browser.driver.find_element("css selector", "a[href='#levels']").click()
    browser.driver.switch_to.default_content()
    scrolled = "return document.querySelector('#HelpForm iframe').contentWindow.scrollY"
    awaited("the jump", lambda: browser.run(scrolled) > 500)
    browser.press("HelpForm.Command1")
    assert browser.run(scrolled) == 0
    browser.press("HelpForm.Command2")
    assert browser.run(scrolled) == 0, "Forward acts only after a jump"
    browser.press("HelpForm.Command3", "Form1.quisx", "Form1.Aboutx", "AboutForm.AboutText")


def speaks_and_has_keys(browser):
    browser.press("Form1.MenuButx_8")
    assert browser.run("return document.activeElement.id") == BOARD
    words = browser.run("return document.getElementById('words').textContent")
    assert re.match(rf"Quillet \(\d+ of {COUNT}\), Play difficulty: NORMAL, piece last handled: ", words), words
    before = browser.picture(BOARD)
    browser.key(9)
    assert browser.picture(BOARD) != before, "Tab turns"
    spoken = browser.run("return document.getElementById('words').textContent")
    assert spoken.strip("\u00a0") == words.strip("\u00a0") and spoken != words, "the same words are spoken again"
    browser.key(27)
    browser.key(9)
    assert browser.run("return document.activeElement.id") != BOARD, "Escape, then Tab, leaves"


def faults_of(browser, where):
    browser.run(AXE.read_text())
    found = browser.driver.execute_async_script("axe.run().then(arguments[0])")["violations"]
    assert not found, (where, [(fault["id"], [node["html"] for node in fault["nodes"]]) for fault in found])


def everybody_can_use_it(browser):
    faults_of(browser, "the windows")
    for item, close in [("px", 27), ("Openx", 27), ("Saveasx", 27), ("Helpx", None), ("Aboutx", None)]:
        browser.press("Form1.quisx", f"Form1.{item}")
        faults_of(browser, item)
        browser.key(close) if close else browser.press("HelpForm.Command3" if item == "Helpx" else "AboutForm.AboutOk")
    browser.press("Form1.MenuButx_0")
    faults_of(browser, "View All")
    browser.driver.find_element("css selector", "#AllShapes .close").click()
    browser.press("Form1.MenuButx_2")
    faults_of(browser, "a box")
    browser.answer("No")


def keeps_collections(browser, folder):
    """Append, Remove, Save as and Open; a reload and an end lose nothing."""
    browser.press("Form1.MenuButx_6", "Form1.MenuButx_5", "Form1.MenuButx_3")
    assert browser.answer("OK") == "Append this Quillet to file:\nQuillets/QUILLET.qui ?"
    awaited("the new figure", lambda: browser.caption() == f"Quillet ({COUNT + 1} of {COUNT + 1})")
    browser.press("Form1.MenuButx_6", "Form1.MenuButx_2")
    assert browser.answer("Yes") == "Remove this Quillet ( 1) ?"
    awaited("one figure less", lambda: browser.caption() == f"Quillet (1 of {COUNT})")
    browser.press("Form1.quisx", "Form1.Saveasx")
    browser.run("document.activeElement.value = 'own <b>.txt'")
    browser.driver.find_element("css selector", ".answers button").click()
    assert browser.answer("OK") == "Quillets/QUILLET.qui\ncopied as:\nQuillets/own <b>.qui"
    awaited("the download", lambda: any(folder.glob("own*.qui")))
    browser.press("Form1.quisx", "Form1.Openx")
    assert browser.texts("select option") == ["QUILLET.qui", "own <b>.qui"]
    five = folder / "five.qui"
    five.write_bytes(b"\n".join((PAGE / "QUILLET.qui").read_bytes().split(b"\n")[:70]) + b"\n")
    browser.driver.find_element("css selector", "input[type=file]").send_keys(str(five))
    awaited("the file of the computer", lambda: browser.caption().endswith("of 5)"))
    assert browser.texts("#FormMain h2") == ["File: Quillets/five.qui"]
    browser.run("""
        const files = new DataTransfer();
        files.items.add(new File(["no collection"], "bad.qui"));
        document.body.dispatchEvent(new DragEvent("drop", { bubbles: true, dataTransfer: files }));""")
    assert "bad.qui" in browser.answer("OK")
    left, top = browser.corner("Form1")
    browser.drag("Form1", 60, 10, 20, 110)
    browser.press("Form1.quisx", "Form1.Exitx")
    awaited("the end", lambda: browser.texts(".notice .message") == ["The game has ended."])
    browser.driver.find_element("css selector", ".notice .answers button").click()
    awaited("the same collection", lambda: browser.texts("#FormMain h2") == ["File: Quillets/five.qui"])
    assert browser.corner("Form1") == [left - 40, top + 100], "the panel stands where it was left"


def one_tab_plays(browser):
    first = browser.driver.current_window_handle
    browser.driver.switch_to.new_window("tab")
    browser.driver.get(browser.address)
    message = awaited("the notice", lambda: browser.texts(".notice .message"))
    assert message[0].startswith("Quillets is open in another tab."), message
    browser.driver.find_element("css selector", ".notice button").click()
    awaited("the game", lambda: browser.texts("#FormMain h2"))
    second = browser.driver.current_window_handle
    browser.driver.switch_to.window(first)
    assert browser.texts(".notice .message") and not browser.texts("#FormMain h2")
    browser.driver.switch_to.window(second)
    browser.driver.close()
    browser.driver.switch_to.window(first)
    awaited("the game again", lambda: browser.texts("#FormMain h2"))


def plays_offline(browser, server):
    awaited("the service worker", lambda: browser.driver.execute_async_script(
        "navigator.serviceWorker.ready.then(r => arguments[0](!!r.active))"))
    stop(server)
    browser.open()
    browser.press("Form1.quisx", "Form1.Helpx")
    browser.driver.switch_to.frame(browser.driver.find_element("css selector", "#HelpForm iframe"))
    awaited("the help page", lambda: browser.texts("h1") == ["Quillets"])
    browser.driver.switch_to.default_content()


def is_still_at_rest(browser):
    browser.run("""
        window.frames_asked = 0;
        for (const name of ["requestAnimationFrame", "setTimeout", "setInterval"])
            window[name] = () => ++window.frames_asked;""")
    time.sleep(1)
    assert browser.run("return frames_asked") == 0
    assert browser.run("return document.getAnimations().length") == 0


def killed_at_append(address, folder):
    """A browser killed at any moment of an Append leaves the old collection or the new one; what was shown is kept."""
    count = COUNT
    for delay in (0, 0.002, 0.005, 0.01, 0.03):
        browser = Browser(address, folder)
        assert browser.caption().endswith(f"of {count})"), (browser.caption(), count)
        browser.press("Form1.MenuButx_6", "Form1.MenuButx_5", "Form1.MenuButx_3")
        awaited("the question", browser.box)
        browser.run("setTimeout(() => document.querySelector('.question button').click())")
        time.sleep(delay)
        shown = delay > 0.02 and awaited("the figure", lambda: browser.caption() == f"Quillet ({count + 1} of {count + 1})")
        browser.kill()
        browser = Browser(address, folder)
        after = int(re.search(r"of (\d+)", browser.caption())[1])
        assert after == count + 1 if shown else after in (count, count + 1), (after, count)
        count = after
        browser.end()


def storage_fails(address):
    for prepare, quota, reason in [("indexedDB.open = () => { throw new DOMException('', 'SecurityError') }", None, "stores nothing"),
                                   (None, 1, "is full")]:
        browser = Browser(address, None, f"Object.defineProperty(self, 'never', {{}}); {(prepare or '').replace('indexedDB.open', 'IDBFactory.prototype.open')}")
        if quota:
            browser.tool("Storage.overrideQuotaForOrigin", origin=address.rstrip("/"), quotaSize=quota)
        else:
            assert reason in browser.answer("OK")
        browser.press("Form1.MenuButx_6", "Form1.MenuButx_5", "Form1.MenuButx_3")
        browser.answer("OK")
        message = awaited("the failure", lambda: "not appended" in browser.box() and browser.box())
        assert reason in message, message
        browser.answer("OK")
        assert browser.caption() == f"Quillet (1 of {COUNT})"
        browser.end()


def main():
    server = serve(PAGE)
    address = f"http://localhost:{server.server_port}/"
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        browser = Browser(address, folder / "player")
        tales = [(play_the_story,), (stands_sharp,), (boxes_hold_their_handler,), (speaks_and_has_keys,), (everybody_can_use_it,),
                 (is_still_at_rest,), (keeps_collections, folder / "player"), (one_tab_plays,), (plays_offline, server)]
        for tale, *more in tales:
            tell(tale, browser, *more)
        browser.end()
        stop(server)
        server = serve(PAGE, server.server_port)
        tell(killed_at_append, address, folder / "killed")
        tell(storage_fails, address)


def tell(tale, *arguments):
    if ONLY and tale.__name__ not in ONLY:
        return
    start = time.monotonic()
    tale(*arguments)
    print(f"{tale.__name__.replace('_', ' ')}: {time.monotonic() - start:.1f} s", flush=True)


main()
