// The page of the game. The engine describes its forms (platform_web/description.cpp); here they become panes with
// elements, and what the player does there goes back to the engine as deeds. Nothing is ever put into the page as
// markup: names and contents of files are text.
"use strict";

const byId = id => document.getElementById(id);
const isWide = matchMedia("(min-width: 640px)");
const Down = 0, Move = 1, Up = 2;

/** Makes an element with these properties and attributes, and these children. */
function make(tag, properties = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(properties)) {
        if (name in element && name !== "list") element[name] = value;
        else element.setAttribute(name, value);
    }
    element.append(...children);
    return element;
}

function icon(name, kind) {
    const space = "http://www.w3.org/2000/svg";
    const drawing = document.createElementNS(space, "svg"), use = document.createElementNS(space, "use");
    use.setAttribute("href", `#icon.${name}`);
    drawing.setAttribute("class", kind);
    drawing.setAttribute("aria-hidden", "true");
    drawing.append(use);
    return drawing;
}

// ---- The engine. It is called by one deed at a time, and while it stores a file, deeds have to wait.

let Game;
let isOver = false;
const Deeds = [];
let inEngine = false;
let isStoring = false;

function deliver(deed) {
    Deeds.push(deed);
    while (!inEngine && !isStoring && Deeds.length) callEngine(Deeds.shift());
}

function callEngine(deed) {
    if (isOver) return;
    inEngine = true;
    try {
        deed();
    } catch (fault) {
        console.error(fault);
        finish("Quillets has stopped by a fault of its own. What it has stored is safe.");
    } finally {
        inEngine = false;
    }
}

/** Gives the engine a text for its next call. */
function leaveLetter(text) {
    fill(Game._RoomForLetter, new TextEncoder().encode(text));
}

function fill(room, bytes) {
    const place = room(bytes.length);
    Game.HEAPU8.set(bytes, place);
}

// ---- The folder, in the browser's database. A file is stored in one transaction, on the disk when it ends.

const FolderId = `quillets ${new URL(".", location).pathname}`;
let Database = null;

function requested(request) {
    return new Promise((resolve, reject) => {
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error);
    });
}

async function openDatabase() {
    const opening = indexedDB.open(FolderId, 1);
    opening.onupgradeneeded = () => opening.result.createObjectStore("files");
    Database = await requested(opening);
}

async function storedFiles() {
    const files = Database.transaction("files").objectStore("files");
    const [names, contents] = await Promise.all([requested(files.getAllKeys()), requested(files.getAll())]);
    return names.map((name, i) => [name, contents[i]]);
}

/** Changes the stored files; resolves when the change is on the disk. */
function changeStored(change) {
    return new Promise((resolve, reject) => {
        if (!Database) throw new DOMException("", "NoStorage");
        const transaction = Database.transaction("files", "readwrite", { durability: "strict" });
        transaction.oncomplete = resolve;
        transaction.onabort = () => reject(transaction.error);
        change(transaction.objectStore("files"));
    });
}

function reasonOf(fault) {
    if (fault?.name === "QuotaExceededError") return "the browser's storage is full";
    return `the browser stores nothing for this page${fault?.name ? ` (${fault.name})` : ""}`;
}

async function store(name, content) {
    isStoring = true;
    let reason = "";
    try {
        await changeStored(files => files.put(content, name));
        navigator.storage?.persist?.();
    } catch (fault) {
        reason = reasonOf(fault);
    }
    leaveLetter(reason);
    isStoring = false;
    Deeds.unshift(() => Game._Stored());
    deliver(() => {});
}

function handOut(name, content) {
    const address = URL.createObjectURL(new Blob([content]));
    make("a", { href: address, download: name }).click();
    setTimeout(() => URL.revokeObjectURL(address), 60000);
}

// ---- Surfaces. A canvas has the display's own pixels, and stands on them.

const Canvases = new Map();
/** While a page is printed, its canvas has this many pixels to each of the surface's. */
const PrintedRatio = 4;
const BandOfRows = 64;

function scaleOf(element) {
    return parseFloat(getComputedStyle(element).getPropertyValue("--s")) || 1;
}

/** Gives the canvas the display's pixels; whether they have changed. */
function fit(surface) {
    const { canvas, columns, rows } = surface;
    const ratio = surface.ratio || devicePixelRatio, scale = scaleOf(canvas);
    const width = Math.max(1, Math.round(columns * scale * ratio));
    const height = Math.max(1, Math.round(rows * scale * ratio));
    canvas.style.width = `${width / ratio}px`;
    canvas.style.height = `${height / ratio}px`;
    if (canvas.width === width && canvas.height === height) return false;
    canvas.width = width;
    canvas.height = height;
    return true;
}

function align(canvas) {
    canvas.style.translate = "";
    const place = canvas.getBoundingClientRect();
    const off = at => (Math.round(at * devicePixelRatio) - at * devicePixelRatio) / devicePixelRatio;
    const [x, y] = [off(place.left + scrollX), off(place.top + scrollY)];
    if (x || y) canvas.style.translate = `${x}px ${y}px`;
}

/** Brings all canvases on display in line with its pixels. */
function fitAll() {
    for (const [record, surface] of Canvases) {
        if (!surface.canvas.getClientRects().length) continue;
        if (fit(surface)) paint(record, 0, surface.rows);
        align(surface.canvas);
    }
}

function paint(record, first, last) {
    const surface = Canvases.get(record);
    if (!surface?.canvas.getClientRects().length) return;
    // Edges go by the pixels beside them, and letters reach over rows.
    if (fit(surface) || surface.texts.length) [first, last] = [0, surface.rows];
    const { canvas, rows } = surface, scale = canvas.height / rows;
    const end = Math.min(canvas.height, Math.ceil((last + 1) * scale));
    for (let row = Math.max(0, Math.floor((first - 1) * scale)); row < end; row += BandOfRows)
        paintBand(record, canvas, row, Math.min(end, row + BandOfRows));
    for (const text of surface.texts) paintText(surface, text, scale);
}

function paintBand(record, canvas, first, last) {
    const place = Game._DisplayRows(record, canvas.width, canvas.height, first, last);
    const bytes = new Uint8ClampedArray(Game.HEAPU8.buffer, place, canvas.width * (last - first) * 4);
    canvas.getContext("2d").putImageData(new ImageData(bytes, canvas.width), 0, first);
}

function paintText({ canvas }, { text, ink, x, y }, scale) {
    const context = canvas.getContext("2d");
    context.font = `${11 * scale}px Arial, "Liberation Sans", sans-serif`;
    context.fillStyle = ink;
    context.textBaseline = "top";
    context.fillText(text, x * scale, (y + 1) * scale);
}

/** Makes or changes the canvas of a described surface. */
function showSurface(canvas, { surface, columns, rows, texts = [] }) {
    const known = Canvases.get(surface);
    const same = known && known.columns === columns && known.rows === rows;
    Canvases.set(surface, { ...known, canvas, columns, rows, texts });
    if (!same) paint(surface, 0, rows);
}

// ---- Controls. Each kind has a way to be made and a way to be brought in line with its description.

const Kinds = {
    label: {
        make: (pane, control) => watch(make("div", { className: "label" }), pane, control, "_MouseOnLabel"),
        show(element, { text, ink, ground, centred, fits, bold, points }) {
            element.textContent = text;
            element.hidden ||= fits && !text;
            element.classList.toggle("centred", centred);
            element.classList.toggle("fits", fits);
            Object.assign(element.style, { color: ink, backgroundColor: ground });
            setFont(element, bold, points);
        },
    },
    picture: {
        make: makePicture,
        show(element, control) {
            if (element.localName === "canvas" && control.visible) showSurface(element, control);
        },
    },
    tile: {
        make(pane, { record, icon: name, tip }) {
            const press = () => deliver(() => Game._PressTile(pane.record, record));
            return make("button", { className: "tile", type: "button", title: tip, ariaLabel: tip, onclick: press },
                icon(name, "icon"));
        },
        show(element, { id, latches, latched }) {
            if (latches) element.ariaPressed = String(latched);
            if (id === "Form1.MenuButx_11" && latched) loadCues();
        },
    },
    frame: {
        make: () => make("fieldset", {}, make("legend")),
        show(element, { text, controls }, pane) {
            element.firstChild.textContent = text;
            for (const control of controls) showControl(pane, element, control);
        },
    },
    bar: { make: makeBar, show: showBar },
    button: {
        make(pane, { record }) {
            const press = () => deliver(() => Game._PressButton(pane.record, record));
            return make("button", { className: "button", type: "button", onclick: press });
        },
        show(element, { text, bold, points }) {
            element.textContent = text;
            setFont(element, bold, points);
        },
    },
    text: {
        make: (pane, control) => watch(make("div", { className: "text" }), pane, control, "_MouseOnText"),
        show(element, { text, bold, points }) {
            element.textContent = text;
            setFont(element, bold, points);
        },
    },
    browser: { make: makeBrowser, show() {} },
};

function setFont(element, bold, points) {
    element.style.fontWeight = bold ? "bold" : "normal";
    element.style.fontSize = `${Math.round(points * 96 / 72)}px`;
}

function makePicture(pane, control) {
    if (control.icon) return icon(control.icon, "picture");
    const canvas = make("canvas", { ariaLabel: control.spoken, role: control.keys ? "application" : "img" });
    canvas.textContent = control.spoken;
    if (control.keys) takeKeys(canvas, pane, control);
    return control.mouse ? watch(canvas, pane, control, "_MouseOnPicture") : canvas;
}

/** Tab is a key of the game here, but for the one after Escape. */
function takeKeys(canvas, pane, { record }) {
    canvas.tabIndex = 0;
    canvas.setAttribute("aria-describedby", "words leaving");
    let isLeaving = false;
    canvas.onkeydown = event => {
        const leaves = event.key === "Tab" && isLeaving;
        if (event.key !== "Shift") isLeaving = event.key === "Escape";
        event.stopPropagation();
        if (leaves) return;
        const code = event.keyCode, shift = shiftOf(event);
        // Tab, the arrows and the number pad are the game's; other keys may be the browser's as well.
        if (code === 9 || code >= 32 && code <= 40 || code >= 96 && code <= 105) event.preventDefault();
        deliver(() => Game._KeyOnPicture(pane.record, record, code, shift));
    };
}

function shiftOf(event) {
    return (event.shiftKey ? 1 : 0) + (event.ctrlKey ? 2 : 0) + (event.altKey ? 4 : 0);
}

function makeBar(pane, { record, small, large }) {
    const bar = make("input", { className: "bar", type: "range", min: 0, ariaLabel: "Page" });
    bar.setAttribute("aria-orientation", "vertical");
    const turnTo = value => {
        bar.value = value;
        const reached = Number(bar.value);
        deliver(() => Game._Scroll(pane.record, record, reached));
    };
    bar.oninput = () => turnTo(bar.value);
    bar.onkeydown = event => {
        const steps = { ArrowUp: -bar.small, ArrowLeft: -bar.small, ArrowDown: bar.small, ArrowRight: bar.small,
            PageUp: -bar.large, PageDown: bar.large };
        if (!(event.key in steps)) return;
        event.preventDefault();
        turnTo(Number(bar.value) + steps[event.key]);
    };
    pane.element.addEventListener("wheel", event => {
        if (!bar.disabled) turnTo(Number(bar.value) + Math.sign(event.deltaY) * bar.large);
    }, { passive: true });
    return bar;
}

function showBar(bar, { value, max, small, large, enabled }) {
    bar.disabled = !enabled;
    bar.max = enabled ? max : 0;
    bar.value = value;
    Object.assign(bar, { small, large });
}

/** Links of the help page are followed by the game, which keeps the history. */
function makeBrowser(pane, { record }) {
    const frame = make("iframe", { className: "browser", title: "Help" });
    frame.onload = () => {
        jump(frame);
        frame.contentDocument.addEventListener("pointerdown", () => turnTo(pane));
        frame.contentDocument.addEventListener("click", event => {
            const link = event.target.closest?.("a[href]");
            if (!link) return;
            event.preventDefault();
            const [file, anchor] = link.getAttribute("href").split("#");
            if (file) return;
            leaveLetter(`${frame.address.replace(/#.*/, "")}#${anchor}`);
            deliver(() => Game._FollowLink(record));
        });
    };
    return frame;
}

function goTo(record, address) {
    const frame = Controls.get(record).element;
    const page = address.replace(/#.*/, "").replace(/.*\//, "");
    frame.address = address;
    if (frame.getAttribute("src") === page) jump(frame);
    else frame.src = page;
}

function jump(frame) {
    const page = frame.contentDocument, anchor = frame.address.split("#")[1];
    const target = anchor && (page.getElementsByName(anchor)[0] || page.getElementById(anchor));
    if (target) target.scrollIntoView();
    else frame.contentWindow.scrollTo(0, 0);
}

const Controls = new Map();

function showControl(pane, parent, control) {
    const { record, id, kind } = control;
    if (!Controls.has(record)) {
        const element = Kinds[kind].make(pane, control);
        element.id = id;
        element.classList.add("control");
        parent.append(element);
        Controls.set(record, { element });
    }
    const known = Controls.get(record), text = JSON.stringify(control);
    if (known.text === text) return;
    known.text = text;
    for (const side of ["x", "y", "width", "height"]) known.element.style.setProperty(`--${side}`, control[side]);
    known.element.toggleAttribute("hidden", !control.visible);
    Kinds[kind].show(known.element, control, pane);
}

// ---- The pointer on a control. A finger is the left button; held still, or joined by a second one, the right one.

const Buttons = [1, 4, 2];
const HeldFor = 500;
const StillWithin = 8;

/** Lets the control hear of the pointer by a function of the engine. */
function watch(element, pane, control, receiver) {
    if (!control.mouse) return element;
    const hand = { element, pane, control, receiver, finger: null, pressed: false, last: "" };
    element.classList.add("mouse");
    element.addEventListener("pointerdown", event => (isFinger(event) ? fingerDown : mouseDown)(hand, event));
    element.addEventListener("pointermove", event => (isFinger(event) ? fingerMove : mouseMove)(hand, event));
    element.addEventListener("pointerup", event => (isFinger(event) ? fingerUp : mouseUp)(hand, event));
    element.addEventListener("pointercancel", () => loseMouse(hand));
    element.addEventListener("lostpointercapture", () => loseMouse(hand));
    return element;
}

function isFinger(event) {
    return event.pointerType === "touch" || event.pointerType === "pen" && event.buttons !== 2 && event.button !== 2;
}

/** The pixel of the control under the pointer. */
function pixelAt({ element, control }, event) {
    const place = element.getBoundingClientRect(), scale = scaleOf(element);
    const width = element.localName === "canvas" ? control.columns : place.width / scale;
    const height = element.localName === "canvas" ? control.rows : place.height / scale;
    return { x: Math.floor((event.clientX - place.left) * width / place.width),
        y: Math.floor((event.clientY - place.top) * height / place.height), shift: shiftOf(event) };
}

function tell(hand, deed, button, { x, y, shift }) {
    hand.last = `${x} ${y}`;
    const { pane, control, receiver } = hand;
    deliver(() => receiver === "_MouseOnForm" ? Game._MouseOnForm(pane.record, deed, button, shift, x, y)
        : Game[receiver](pane.record, control.record, deed, button, shift, x, y));
}

function mouseDown(hand, event) {
    hand.element.setPointerCapture(event.pointerId);
    hand.pressed = true;
    tell(hand, Down, Buttons[event.button] || 0, pixelAt(hand, event));
}

function mouseUp(hand, event) {
    hand.pressed = event.buttons !== 0;
    tell(hand, Up, Buttons[event.button] || 0, pixelAt(hand, event));
}

/** A second button that goes down or up beside another one comes as a move. */
function mouseMove(hand, event) {
    if (event.button >= 0) return (event.buttons & 1 << event.button ? mouseDown : mouseUp)(hand, event);
    const steps = event.getCoalescedEvents?.() || [];
    for (const step of steps.length ? steps : [event]) {
        const pixel = pixelAt(hand, step);
        if (`${pixel.x} ${pixel.y}` !== hand.last) tell(hand, Move, 0, pixel);
    }
    deliver(() => Game._ShowMoves());
}

function loseMouse(hand) {
    dropFinger(hand);
    if (!hand.pressed) return;
    hand.pressed = false;
    deliver(() => Game._MouseLost());
}

function fingerDown(hand, event) {
    if (hand.finger) return pressRight(hand);
    hand.element.setPointerCapture(event.pointerId);
    hand.finger = { id: event.pointerId, start: pixelAt(hand, event), x: event.clientX, y: event.clientY,
        timer: setTimeout(() => pressRight(hand), HeldFor) };
}

/** Where the finger lies, the right button goes down and up; not in the middle of a drag. */
function pressRight(hand) {
    const { start, timer } = hand.finger;
    if (hand.pressed) return;
    clearTimeout(timer);
    hand.finger.isSpent = true;
    tell(hand, Down, 2, start);
    tell(hand, Up, 2, start);
}

function fingerMove(hand, event) {
    const { finger } = hand;
    if (finger?.id !== event.pointerId) return;
    if (!hand.pressed) {
        if (Math.hypot(event.clientX - finger.x, event.clientY - finger.y) < StillWithin) return;
        clearTimeout(finger.timer);
        hand.pressed = true;
        tell(hand, Down, 1, finger.start);
        tell(hand, Move, 0, finger.start);
    }
    mouseMove(hand, { getCoalescedEvents: () => event.getCoalescedEvents?.() || [event], button: -1 });
}

function fingerUp(hand, event) {
    const { finger } = hand;
    if (finger?.id !== event.pointerId) return;
    dropFinger(hand);
    const pixel = hand.pressed ? pixelAt(hand, event) : finger.start;
    if (!hand.pressed && finger.isSpent) return;
    if (!hand.pressed) {
        tell(hand, Move, 0, pixel);
        tell(hand, Down, 1, pixel);
    }
    hand.pressed = false;
    tell(hand, Up, 1, pixel);
}

function dropFinger(hand) {
    clearTimeout(hand.finger?.timer);
    hand.finger = null;
}

// ---- Panes. The game's two windows lie on the desk; other forms and all questions are dialogs over them.

const Panes = new Map();
let TopLayer = 1;

function show(form) {
    if (!Panes.has(form.record)) Panes.set(form.record, makePane(form));
    const pane = Panes.get(form.record), { element } = pane;
    pane.form = form;
    pane.title.textContent = form.caption;
    if (!form.visible) return hide(pane);
    const opens = !isShown(pane);
    if (opens) open(pane);
    if (form.surface) showSurface(pane.canvas, form);
    for (const control of form.controls) showControl(pane, pane.client, control);
    if (opens) placePane(pane);
    if (element.localName === "section") arrangeDesk();
}

function isShown({ element }) {
    return element.localName === "dialog" ? element.open : !element.hidden;
}

function makePane(form) {
    const title = make("h2", { id: `${form.id}.caption` });
    const client = make("div", { className: "client", tabIndex: -1 });
    const element = make(form.centred ? "dialog" : "section", { id: form.id, className: "pane", hidden: !form.centred });
    element.setAttribute("aria-labelledby", title.id);
    const pane = { record: form.record, element, title, client, form };
    element.append(makeCaption(pane), ...form.menus.map(menu => makeMenu(pane, menu)), client);
    if (form.surface) addCanvas(pane);
    element.addEventListener("pointerdown", () => turnTo(pane), true);
    element.addEventListener("focusin", () => turnTo(pane));
    element.addEventListener("keydown", event => keyOnForm(pane, event));
    element.addEventListener("cancel", event => event.preventDefault());
    if (form.sizable) new ResizeObserver(() => resized(pane)).observe(client);
    byId("desk").append(element);
    return pane;
}

function makeCaption(pane) {
    const caption = make("header", { className: "caption" }, pane.title);
    if (pane.form.closes) {
        const close = () => deliver(() => Game._Close(pane.record));
        caption.append(make("button", { className: "close", type: "button", ariaLabel: "Close", onclick: close }, "\u00d7"));
    }
    moveBy(caption, pane);
    return caption;
}

function addCanvas(pane) {
    pane.canvas = make("canvas", { className: "whole", role: "img", ariaLabel: pane.form.caption });
    watch(pane.canvas, pane, { ...pane.form }, "_MouseOnForm");
    pane.client.append(pane.canvas);
}

function keyOnForm(pane, event) {
    if (!pane.form.keys || event.target.closest("[role=menu], .bar") && event.key !== "Escape") return;
    const code = event.keyCode, shift = shiftOf(event);
    if (event.key === "Escape") event.preventDefault();
    deliver(() => Game._KeyOnForm(pane.record, code, shift));
}

function turnTo(pane) {
    raise(pane.record);
    deliver(() => Game._Activate(pane.record));
}

function open({ element, form }) {
    if (element.localName === "section") element.hidden = false;
    else if (form.modal) element.showModal();
    else element.setAttribute("open", "");
}

function hide({ element }) {
    if (element.localName === "section") element.hidden = true;
    else if (element.matches(":modal")) element.close();
    else element.removeAttribute("open");
    element.classList.remove("printed");
    if (element.contains(document.activeElement) || document.activeElement === document.body) focusBoard();
}

function focusBoard() {
    document.querySelector("canvas[tabindex='0']")?.focus();
}

function raise(record) {
    const { element } = Panes.get(record);
    if (element.style.zIndex !== String(TopLayer)) element.style.zIndex = ++TopLayer;
}

/** The game gives the keyboard to a form: to its picture that takes keys, or to the form itself. */
function focus(record) {
    const { element, client } = Panes.get(record);
    raise(record);
    (element.querySelector("canvas[tabindex='0']") || client).focus({ preventScroll: true });
}

// ---- Where panes stand.

/** On the display's own pixels. */
function snap(at) {
    return Math.round(at * devicePixelRatio) / devicePixelRatio;
}

function moveTo(pane, x, y) {
    const { element } = pane;
    pane.x = snap(Math.max(0, Math.min(x, Math.max(0, innerWidth - element.offsetWidth))));
    pane.y = snap(Math.max(0, Math.min(y, Math.max(0, innerHeight - 32))));
    Object.assign(element.style, { left: `${pane.x}px`, top: `${pane.y}px` });
}

/** A pane that opens: in the middle, as large as there is room for; keys go to it unless it is a quiet one. */
function placePane(pane) {
    const { element, form, client } = pane;
    if (element.localName === "section") return;
    if (form.sizable && !client.style.width)
        Object.assign(client.style, { width: `${form.width}px`, height: `${form.height}px` });
    scalePane(pane);
    moveTo(pane, (innerWidth - element.offsetWidth) / 2, (innerHeight - element.offsetHeight) / 2);
    fitAll();
    if (form.modal || !form.quiet) (client.querySelector("button.button") || client).focus({ preventScroll: true });
}

/** A picture that is wider or higher than its room is shown smaller, but never below the display's pixels. */
function scalePane({ element, client, form, canvas }) {
    client.style.setProperty("--width", form.width);
    client.style.setProperty("--height", form.height);
    if (!canvas) return;
    const around = element.offsetHeight - client.offsetHeight;
    const room = Math.min((innerWidth - 2) / form.width, (innerHeight - around) / form.height);
    client.style.setProperty("--s", Math.min(1, Math.max(room, 1 / devicePixelRatio)));
}

function overlap(a, b) {
    return a.x < b.x + b.element.offsetWidth && b.x < a.x + a.element.offsetWidth
        && a.y < b.y + b.element.offsetHeight && b.y < a.y + a.element.offsetHeight;
}

/** The game's two windows: where they were, or side by side; on a narrow page the style sheet sets them. */
function arrangeDesk() {
    const panes = [...Panes.values()].filter(pane => pane.element.localName === "section" && isShown(pane));
    for (const pane of panes) scalePane(pane);
    if (isWide.matches) {
        for (const pane of panes) moveTo(pane, pane.x ?? pane.form.x, pane.y ?? pane.form.y);
        if (panes.length === 2 && overlap(...panes) && !panes.some(pane => pane.isMoved)) setSideBySide(panes);
    }
    fitAll();
}

function setSideBySide(panes) {
    const [board, panel] = panes, gap = Math.min(16, innerWidth - 633);
    const left = Math.max(0, (innerWidth - panel.element.offsetWidth - gap - board.element.offsetWidth) / 2);
    const top = Math.max(0, (innerHeight - board.element.offsetHeight) / 2);
    moveTo(panel, left, top);
    moveTo(board, left + panel.element.offsetWidth + gap, top);
    for (const pane of panes) tellPlace(pane);
}

function tellPlace({ record, x, y }) {
    deliver(() => Game._Moved(record, Math.round(x), Math.round(y)));
}

/** A pane follows the pointer by its caption. */
function moveBy(caption, pane) {
    let grip = null;
    caption.onpointerdown = event => {
        const isFixed = pane.element.localName === "section" && !isWide.matches;
        if (event.button !== 0 || isFixed || event.target.localName === "button") return;
        caption.setPointerCapture(event.pointerId);
        const place = pane.element.getBoundingClientRect();
        grip = { x: event.clientX - place.left, y: event.clientY - place.top };
    };
    caption.onpointermove = event => {
        if (!grip) return;
        pane.isMoved = true;
        moveTo(pane, event.clientX - grip.x, event.clientY - grip.y);
        fitAll();
    };
    caption.onpointerup = caption.onlostpointercapture = () => {
        if (grip && pane.record) tellPlace(pane);
        grip = null;
    };
}

function resized({ record, client, form }) {
    const [width, height] = [client.clientWidth, client.clientHeight];
    if (!width || width === form.width && height === form.height) return;
    deliver(() => Game._Resized(record, width, height));
}

function layOutAnew() {
    for (const pane of Panes.values()) if (isShown(pane) && pane.element.localName === "dialog") {
        scalePane(pane);
        moveTo(pane, pane.x, pane.y);
    }
    arrangeDesk();
}

/** The ratio of pixels changes when the page is zoomed or goes to another screen. */
function followRatio() {
    matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener("change", () => {
        layOutAnew();
        followRatio();
    }, { once: true });
}

// ---- Menus.

function makeMenu(pane, { id, text, items }) {
    const list = make("div", { className: "items", role: "menu", hidden: true, ariaLabel: text });
    const head = make("button", { id, className: "menu", type: "button", role: "menuitem", ariaExpanded: "false" }, text);
    head.setAttribute("aria-haspopup", "menu");
    const openList = shown => {
        list.hidden = !shown;
        head.ariaExpanded = String(shown);
    };
    head.onclick = () => {
        openList(list.hidden);
        if (!list.hidden) list.querySelector("button").focus();
    };
    for (const item of items) list.append(makeItem(pane, item, () => {
        openList(false);
        head.focus();
    }));
    const bar = make("div", { className: "menubar", role: "menubar", ariaLabel: text }, head, list);
    bar.addEventListener("keydown", event => stepThrough(event, head, list, openList));
    bar.addEventListener("focusout", event => bar.contains(event.relatedTarget) || openList(false));
    return bar;
}

function makeItem(pane, { id, text, record }, close) {
    if (text === "-") return make("hr", { id });
    const choose = () => {
        close();
        deliver(() => Game._ChooseItem(pane.record, record));
    };
    return make("button", { id, type: "button", role: "menuitem", tabIndex: -1, onclick: choose }, text);
}

function stepThrough(event, head, list, openList) {
    const items = [...list.querySelectorAll("button")], at = items.indexOf(document.activeElement);
    const targets = { ArrowDown: items[(at + 1) % items.length], Home: items[0], End: items.at(-1),
        ArrowUp: items.at(Math.max(at, 0) - 1), Escape: list.hidden ? null : head };
    const target = targets[event.key];
    if (!target) return;
    event.preventDefault();
    event.stopPropagation();
    openList(target !== head);
    target.focus();
}

// ---- Questions: boxes and file dialogs. The answer is a button, counted from 0; the last one is no.

/** A dialog over everything; `answer` gets the number of the button. */
function askBy({ title, buttons, preset = 0, role = "dialog" }, content, answer) {
    const id = `question.${++TopLayer}`;
    const element = make("dialog", { className: "pane question", role });
    const close = button => {
        element.close();
        element.remove();
        answer(button);
    };
    const caption = make("header", { className: "caption" }, make("h2", { id }, title));
    moveBy(caption, { element, title });
    element.setAttribute("aria-labelledby", id);
    element.append(caption, content, make("div", { className: "answers" }, ...buttons.map((text, i) =>
        make("button", { className: "button", type: "button", onclick: () => close(i) }, text))));
    element.addEventListener("keydown", event => {
        if (event.key !== "Escape") return;
        event.preventDefault();
        close(buttons.length - 1);
    });
    element.addEventListener("cancel", event => event.preventDefault());
    document.body.append(element);
    element.showModal();
    moveTo({ element }, (innerWidth - element.offsetWidth) / 2, (innerHeight - element.offsetHeight) / 2);
    element.querySelectorAll(".answers button")[preset].focus();
    return { element, close };
}

function askByBox(box, answer) {
    const text = make("p", { id: `text.${TopLayer}`, className: "message" }, box.text);
    const content = make("div", { className: "content" }, ...(box.icon ? [make("span", { className: box.icon })] : []), text);
    const { element } = askBy({ ...box, role: "alertdialog" }, content, answer);
    element.setAttribute("aria-describedby", text.id);
}

const Cancelled = 0, Named = 1, Offered = 2;
/** A file of the player's own that waits for the dialog it opens. */
let Offer = null;
let TakeOffer = null;

function ask(question) {
    if (question.kind === "box") askByBox(question, answerGame);
    else if (question.kind === "open" && Offer) offer(Offer);
    else askForFile(question);
}

function answerGame(answer) {
    deliver(() => Game._Answer(answer));
}

function answerByName(name) {
    deliver(() => {
        leaveLetter(name);
        Game._Answer(Named);
    });
}

async function offer(file) {
    Offer = null;
    const content = new Uint8Array(await file.arrayBuffer());
    deliver(() => {
        fill(Game._RoomForOffer, content);
        leaveLetter(file.name);
        Game._Answer(Offered);
    });
}

function askForFile({ kind, title, names, ending }) {
    const saves = kind === "save", id = `name.${++TopLayer}`;
    const list = make("select", { size: 8, ariaLabel: "Files" }, ...names.map(name => make("option", {}, name)));
    const name = make("input", { id, type: "text", value: `*${ending}`, spellcheck: false, autocomplete: "off" });
    const computer = make("input", { type: "file", accept: ending, ariaLabel: "From this computer" });
    const content = make("form", { className: "content files" }, list, saves
        ? make("p", {}, make("label", { htmlFor: id }, "File name"), name)
        : make("p", {}, make("label", {}, "From this computer", computer)));
    const { element, close } = askBy({ title, buttons: [saves ? "Save" : "Open", "Cancel"] }, content, button => {
        TakeOffer = null;
        const chosen = (saves ? name.value : list.value).trim();
        if (button !== 0 || !chosen) answerGame(Cancelled);
        else answerByName(chosen.replace(/.*[/\\]/, ""));
    });
    wireFiles(list, name, computer, close);
    content.onsubmit = event => {
        event.preventDefault();
        close(0);
    };
    if (saves) name.select();
    (saves ? name : list).focus();
    TakeOffer = file => {
        TakeOffer = null;
        element.close();
        element.remove();
        offer(file);
    };
}

function wireFiles(list, name, computer, close) {
    list.selectedIndex = 0;
    list.onchange = () => name.value = list.value;
    list.ondblclick = () => list.value && close(0);
    list.onkeydown = event => event.key === "Enter" && close(0);
    computer.onchange = () => computer.files[0] && TakeOffer(computer.files[0]);
}

/** A file dropped on the page is opened as by the menu. */
function takeDrop(event) {
    event.preventDefault();
    const file = event.dataTransfer?.files[0];
    if (!file) return;
    if (TakeOffer) return TakeOffer(file);
    if (document.querySelector(":modal") || isOver) return;
    Offer = file;
    byId("Form1.Openx").click();
}

// ---- Sound, speech, print.

const Cues = new Map();
let Sound = null;

function loadCues() {
    Sound ||= new AudioContext();
    for (const name of ["Click", "Error", "GiveUp", "Slide", "clap4", "click2", "shsh-dot", "thank", "whoosh1"])
        if (!Cues.has(`${name}.wav`)) Cues.set(`${name}.wav`, loadCue(`${name}.wav`));
}

async function loadCue(file) {
    const response = await fetch(file);
    return Sound.decodeAudioData(await response.arrayBuffer());
}

async function play(file) {
    try {
        const source = new AudioBufferSourceNode(Sound, { buffer: await Cues.get(file) });
        source.connect(Sound.destination);
        source.start();
    } catch (fault) {
        // A missing cue is no fault of play.
        Cues.delete(file);
    }
}

function silence() {
    Sound?.close();
    Sound = null;
    Cues.clear();
}

function say(words) {
    const region = byId("words");
    // The same words are new again with a blank behind them.
    region.textContent = region.textContent === words ? `${words}\u00a0` : words;
}

/** The browser's print stops the page, so the handler that asks for it ends first. */
function print(record) {
    for (const pane of Panes.values()) pane.element.classList.toggle("printed", pane.record === record);
    setTimeout(() => window.print());
}

function setPrintedRatio(ratio) {
    for (const [record, surface] of Canvases) {
        if (!surface.canvas.closest(".printed")) continue;
        surface.canvas.closest(".client").style.setProperty("--s", 1);
        surface.ratio = ratio;
        paint(record, 0, surface.rows);
    }
    if (!ratio) layOutAnew();
}

// ---- Start and end. One tab at a time holds the folder.

const Channel = new BroadcastChannel(FolderId);
let LetGo = () => {};

/** Shows a text in place of the game, with what can be done. */
function finish(text, action = "Start again", act = () => location.reload()) {
    isOver = true;
    document.querySelectorAll(".pane").forEach(pane => pane.remove());
    LetGo();
    const button = make("button", { className: "button", type: "button", onclick: act }, action);
    const notice = make("section", { className: "pane notice", ariaLabel: "Quillets" },
        make("header", { className: "caption" }, make("h2", {}, "Quillets")),
        make("div", { className: "content" }, icon("quillets", "picture"), make("p", { className: "message" }, text)),
        make("div", { className: "answers" }, button));
    byId("desk").append(notice);
    button.focus();
    return notice;
}

async function end() {
    finish("The game has ended.").append(await keptFiles());
}

/** The player's files, to be taken out or thrown away also when the game does not start with them. */
async function keptFiles() {
    const list = make("ul", { className: "kept" });
    for (const [name, content] of Database ? await storedFiles() : []) {
        const row = make("li", {}, make("span", {}, name));
        const remove = () => askByBox({ title: "Quillets", text: `Delete ${name} for good?`, buttons: ["Yes", "No"], preset: 1 },
            answer => answer === 0 && changeStored(files => files.delete(name)).then(() => row.remove()));
        row.append(make("button", { className: "button", type: "button", onclick: () => handOut(name, content) }, "Download"),
            make("button", { className: "button", type: "button", onclick: remove }, "Delete"));
        list.append(row);
    }
    return list;
}

async function shippedFile(name) {
    const response = await fetch(name);
    return response.ok ? [[name, new Uint8Array(await response.arrayBuffer())]] : [];
}

/** Runs the game until it is over. Stored files lie over those that came with the page. */
async function run(engine, shipped) {
    let fault = "";
    const stored = await openDatabase().then(storedFiles).catch(error => (fault = reasonOf(error), []));
    Game = await engine;
    for (const [name, content] of [...(await shipped).flat(), ...stored]) {
        leaveLetter(name);
        fill(Game._RoomForFile, content);
    }
    leaveLetter(fault);
    deliver(() => Game._Start());
    navigator.serviceWorker?.register("service_worker.js").catch(console.warn);
    return new Promise(resolve => LetGo = resolve);
}

/** Another tab has the game; it can be asked to give it up, and this one starts when it has. */
function waitForOtherTab(start) {
    finish("Quillets is open in another tab. You can go on with it here.", "Go on here", () => Channel.postMessage("give up"));
    navigator.locks.request(FolderId, () => {
        if (Game) return location.reload();
        document.querySelector(".notice").remove();
        isOver = false;
        return start();
    });
}

function giveUp() {
    if (isOver || !Game) return;
    if (isStoring || inEngine) return setTimeout(giveUp, 10);
    waitForOtherTab(() => {});
}

function begin() {
    const engine = Engine(), shipped = Promise.all(["QUILLET.qui", "Quillets.cfg"].map(shippedFile));
    const start = () => run(engine, shipped);
    if (!navigator.locks) return start();
    navigator.locks.request(FolderId, { ifAvailable: true }, lock => lock ? start() : waitForOtherTab(start));
}

const Page = { show, paint, raise, focus, ask, say, play, silence, print, goTo, store, handOut, end };

addEventListener("resize", layOutAnew);
addEventListener("blur", () => Game && deliver(() => Game._MouseLost()));
addEventListener("dragover", event => event.preventDefault());
addEventListener("drop", takeDrop);
addEventListener("contextmenu", event => event.target.closest?.(".pane") && event.preventDefault());
addEventListener("beforeprint", () => setPrintedRatio(PrintedRatio));
addEventListener("afterprint", () => setPrintedRatio(undefined));
Channel.onmessage = giveUp;
followRatio();
begin();
