"""Lays out the page: lay_page.py ROOT ENGINE PAGE. All files are copied; the script gets the engine's before it, so that
there is one request less, index.html the icons, and the service worker the list of what belongs to this version."""
import hashlib
import json
import pathlib
import re
import shutil
import sys

root, engine, page = map(pathlib.Path, sys.argv[1:])
data, sources = root / "data", root / "platform_web" / "page"


def symbol(icon):
    """The drawing of an icon, to be used by its name."""
    text = re.sub(r"<!--.*?-->", "", icon.read_text(), flags=re.S)
    box, drawing = re.search(r'<svg[^>]*(viewBox="[^"]*")[^>]*>(.*)</svg>', text, re.S).groups()
    return f'<symbol id="icon.{icon.stem}" {box}>' + re.sub(r"\s*\n\s*", "", drawing) + "</symbol>"


def lay(file, folder="."):
    (page / folder).mkdir(parents=True, exist_ok=True)
    shutil.copyfile(file, page / folder / file.name)


shutil.rmtree(page, ignore_errors=True)
for file in [*sources.iterdir(), engine / "engine.wasm", *data.glob("*.wav"), data / "QUILLET.qui",
             data / "quillets.htm"]:
    lay(file)
for file in data.glob("help/*"):
    lay(file, "help")
lay(data / "icons" / "quillets.svg", "icons")

script = page / "quillets.js"
script.write_text((engine / "engine.js").read_text() + script.read_text())

icons = "".join(symbol(icon) for icon in sorted(data.glob("icons/*.svg")))
index = page / "index.html"
index.write_text(index.read_text().replace("<!-- icons -->", icons))

worker = page / "service_worker.js"
sums = {file.relative_to(page).as_posix(): hashlib.sha256(file.read_bytes()).hexdigest()
        for file in sorted(page.rglob("*")) if file.is_file() and file != worker}
text = "const Files = " + json.dumps(sums) + ";\n" + worker.read_text()
version = hashlib.sha256(text.encode()).hexdigest()[:16]
worker.write_text(f'const Version = "{version}";\n{text}')
