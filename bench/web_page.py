#!/usr/bin/python3
"""Measures the game in a browser beside a peer, the page of another game: web_page.py PEER_PAGE, after ./web --build."""
import gzip
import pathlib
import statistics
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests" / "web"))
from browser import Browser, awaited, serve

ROUNDS = 15
PAGE, PEER = pathlib.Path("build/web/page"), pathlib.Path(sys.argv[1])
# A canvas is painted when the frame in which something was drawn on it is on its way to the screen.
PAINTED = """
for (const name of ["putImageData", "drawImage"]) {
    const draw = CanvasRenderingContext2D.prototype[name];
    CanvasRenderingContext2D.prototype[name] = function (...all) {
        draw.apply(this, all);
        requestAnimationFrame(() => setTimeout(() => (window.painted ??= {})[this.canvas.id] ??= performance.now()));
    };
}"""
DRAG = """
const [done] = arguments, records = {};
const note = form => form.controls.forEach(control => records[control.id] = [form.record, control.record]);
globalThis.Page = new Proxy({ show: note }, { get: (page, name) => page[name] || (() => {}) });
const script = document.createElement("script");
script.src = "../engine/engine.js";
script.onload = async () => {
    const game = await Engine(), bytes = text => new TextEncoder().encode(text);
    const room = (place, content) => game.HEAPU8.set(content, place(content.length));
    for (const [name, content] of [["QUILLET.qui", await (await fetch("QUILLET.qui")).text()], ["Quillets.cfg", "QUILLET.qui\\r\\n0,0,0,0"]]) {
        room(game._RoomForLetter, bytes(name));
        room(game._RoomForFile, bytes(content));
    }
    room(game._RoomForLetter, []);
    game._Start();
    const board = records["FormMain.Picture1"], times = [];
    game._Mouse(...board, 0, 1, 0, 180, 110);
    for (let round = 0; round < 40; ++round) {
        const start = performance.now();
        for (let step = 0; step < 1000; ++step) game._Mouse(...board, 1, 0, 0, 140 + step % 80, 110 + step % 80);
        times.push(performance.now() - start);
    }
    done(times);
};
document.body.append(script);"""


def painted(browser, address, *canvases):
    """Milliseconds from the navigation until all the canvases are painted; nothing comes from a cache."""
    browser.driver.get(address)
    times = awaited("the canvases", lambda: browser.run(
        "return arguments[0].every(id => window.painted?.[id]) && arguments[0].map(id => painted[id])", canvases), 60)
    return max(times)


def main():
    ours, theirs = (f"http://localhost:{serve(folder).server_port}/" for folder in (PAGE, PEER.parent))
    browser = Browser(ours, None, PAINTED)
    fetched = {"index.html"} | {name.split("/")[-1] for name in browser.run(
        "return performance.getEntriesByType('resource').filter(e => e.startTime < Math.max(...Object.values(painted))).map(e => e.name)")}
    sizes = {name: len(gzip.compress((PAGE / name).read_bytes(), 9)) for name in fetched if (PAGE / name).is_file()}
    print("Bytes before the first picture, by gzip -9:", sum(sizes.values()), sizes)
    browser.tool("Network.enable")
    browser.tool("Network.setCacheDisabled", cacheDisabled=True)
    browser.tool("Network.setBypassServiceWorker", bypass=True)
    rounds = [(painted(browser, ours, "FormMain.Picture1", "Form1.TargetQui_1"), painted(browser, theirs + PEER.name, "puzzlecanvas"))
              for _ in range(ROUNDS)]
    for name, times in zip(["Both panes painted", "The peer's picture painted"], zip(*rounds)):
        print(f"{name}: {statistics.median(times):.0f} ms, {min(times):.0f} to {max(times):.0f}")
    print(f"Ratio, median of rounds: {statistics.median(a / b for a, b in rounds):.2f}")
    browser.driver.get(f"http://localhost:{serve(PAGE.parent).server_port}/page/quillets.htm")
    times = browser.driver.execute_async_script(DRAG)
    print(f"A step of a drag: {statistics.median(times):.1f} µs, at best {min(times):.1f}")
    browser.driver.quit()


main()
