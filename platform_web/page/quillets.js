// The page of the game. The engine describes its forms (platform_web/description.cpp); here they become panes with
// elements, and what the player does there goes back to the engine as deeds. Nothing is ever put into the page as
// markup: names and contents of files are text.

const byId = id => document.getElementById(id);
const isWide = matchMedia("(min-width: 640px)"), isCoarse = matchMedia("(pointer: coarse)");
const Down = 0, Move = 1, Up = 2;

/** Makes an element with these properties or attributes, and these children. */
function make(tag, properties = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(properties))
        if (name in element) element[name] = value;
        else element.setAttribute(name, value);
    element.append(...children);
    return element;
}
const makeButton = (text, onclick, more = {}) => make("button", { className: "button", type: "button", onclick, ...more }, text);

function makeIcon(name, kind) {
    const [drawing, use] = ["svg", "use"].map(tag => document.createElementNS("http://www.w3.org/2000/svg", tag));
    use.setAttribute("href", `#icon.${name}`);
    drawing.setAttribute("class", kind);
    drawing.setAttribute("aria-hidden", "true");
    drawing.append(use);
    return drawing;
}

// ---- The engine. It hears of one deed at a time, and of none while a file is being stored.

let Game, isOver = false, inEngine = false, isStoring = false;
const Deeds = [];

function deliver(deed) {
    if (deed) Deeds.push(deed);
    while (!inEngine && !isStoring && !isOver && Deeds.length) callEngine(Deeds.shift());
}

function callEngine(deed) {
    inEngine = true;
    try {
        deed();
        settle();
    } catch (fault) {
        console.error(fault);
        finish("Quillets has stopped by a fault of its own. What it has stored is safe.");
    }
    inEngine = false;
}

function fill(room, bytes) {
    const place = room(bytes.length);
    Game.HEAPU8.set(bytes, place);
}
/** Gives the engine a text for its next call. */
const leaveLetter = text => fill(Game._RoomForLetter, new TextEncoder().encode(text));
const answerGame = (answer, text = "") => deliver(() => (leaveLetter(text), Game._Answer(answer)));
const press = ({ record }, item) => () => deliver(() => (wantsCopy = false, Game._Press(record, item.record)));

function layFile(name, content) {
    leaveLetter(name);
    fill(Game._RoomForFile, content);
}

// ---- The folder, in the browser's database. A change is one transaction, on the disk when it ends.

const FolderId = `quillets ${new URL(".", location).pathname}`;
/** The file that is stored next is handed out as well. */
let Database = null, wantsCopy = false;

const resultOf = request => new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error);
});

/** Resolves to nothing, or to the reason why there is no database. */
async function openDatabase() {
    try {
        const opening = indexedDB.open(FolderId, 1);
        opening.onupgradeneeded = () => opening.result.createObjectStore("files");
        Database = await resultOf(opening);
    } catch (fault) {
        return reasonOf(fault);
    }
}

async function storedFiles() {
    const files = Database.transaction("files").objectStore("files");
    const [names, contents] = await Promise.all([resultOf(files.getAllKeys()), resultOf(files.getAll())]);
    return names.map((name, i) => [name, contents[i]]);
}

/** Resolves to nothing when the change is stored, else to the reason why not. */
const changeStored = change => new Promise((resolve, reject) => {
    const transaction = Database.transaction("files", "readwrite", { durability: "strict" });
    transaction.oncomplete = () => resolve("");
    transaction.onabort = () => reject(transaction.error);
    change(transaction.objectStore("files"));
}).catch(reasonOf);

const reasonOf = fault => fault?.name === "QuotaExceededError" ? "the browser's storage is full"
    : `the browser stores nothing for this page (${fault?.name})`;

async function store(name, place, length) {
    const content = Game.HEAPU8.slice(place, place + length);
    isStoring = true;
    const reason = await changeStored(files => files.put(content, name));
    isStoring = false;
    if (wantsCopy && !reason) handOut(name, content);
    wantsCopy = false;
    Deeds.unshift(() => (leaveLetter(reason), Game._Answer(0)));
    deliver();
}

function handOut(name, content) {
    const address = URL.createObjectURL(new Blob([content]));
    make("a", { href: address, download: name }).click();
    setTimeout(() => URL.revokeObjectURL(address), 60000);
}

// ---- Surfaces. A canvas has as many pixels as the display gives it, and stands on them.

const Surfaces = new Map(), PrintedRatio = 4, RowsOfABand = 64;
const scaleOf = element => parseFloat(getComputedStyle(element).getPropertyValue("--s")) || 1;
const snap = at => Math.round(at * devicePixelRatio) / devicePixelRatio;
const isOnScreen = element => element.getClientRects().length > 0;

/** Gives the canvas its pixels; true when their number has changed. */
function fit({ canvas, columns, rows, ratio = devicePixelRatio }) {
    const scale = scaleOf(canvas) * ratio, [width, height] = [columns, rows].map(side => Math.max(1, Math.floor(side * scale + 0.01)));
    Object.assign(canvas.style, { width: `${width / ratio}px`, height: `${height / ratio}px` });
    if (canvas.width === width && canvas.height === height) return false;
    Object.assign(canvas, { width, height });
    return true;
}

function align({ canvas }) {
    canvas.style.translate = "";
    const { left, top } = canvas.getBoundingClientRect(), [x, y] = [left + scrollX, top + scrollY].map(at => snap(at) - at);
    if (Math.abs(x) + Math.abs(y) > 0.02) canvas.style.translate = `${x}px ${y}px`;
}

/** Gives all canvases on the screen their sizes and places. */
function fitAll() {
    for (const [record, surface] of Surfaces) if (isOnScreen(surface.canvas)) {
        if (fit(surface)) paint(record);
        align(surface);
    }
    paintDue();
}

/** Rows of a surface are to be shown, with those beside them: edges go by their neighbours. Letters reach over rows. */
function paint(record, first = 0, last = Infinity) {
    const surface = Surfaces.get(record);
    if (!surface) return;
    if (surface.texts.length) [first, last] = [0, Infinity];
    surface.due = { first: Math.min(first, surface.due?.first ?? first), last: Math.max(last, surface.due?.last ?? last) };
}

function paintDue() {
    for (const [record, surface] of Surfaces) {
        if (surface.due && isOnScreen(surface.canvas)) paintRows(record, surface, surface.due);
        surface.due = null;
    }
}

function paintRows(record, { canvas, rows, texts }, { first, last }) {
    const scale = canvas.height / rows, end = Math.min(canvas.height, Math.ceil((last + 1) * scale));
    const context = canvas.getContext("2d"), { width } = canvas;
    for (let row = Math.max(0, Math.floor((first - 1) * scale)), next; row < end; row = next) {
        next = Math.min(end, row + RowsOfABand);
        const place = Game._DisplayRows(record, width, canvas.height, row, next);
        context.putImageData(new ImageData(new Uint8ClampedArray(Game.HEAPU8.buffer, place, width * (next - row) * 4), width), 0, row);
    }
    for (const { text, ink, x, y } of texts) {
        Object.assign(context, { font: `${11 * scale}px Arial, "Liberation Sans", sans-serif`, fillStyle: ink, textBaseline: "top" });
        context.fillText(text, x * scale, (y + 1) * scale);
    }
}

const showSurface = (canvas, { surface, columns, rows, texts = [] }) =>
    Surfaces.set(surface, { ...Surfaces.get(surface), canvas, columns, rows, texts });

// ---- Controls. Each kind has a function that makes it, and most have one that shows a new description.

const Controls = new Map();
const makeText = (pane, control) => watch(make("div", { className: control.kind }), pane, control);
const makers = {
    label: makeText, text: makeText, picture: makePicture, bar: makeBar, browser: makeBrowser,
    frame: () => make("fieldset", {}, make("legend")),
    button: (pane, control) => makeButton("", press(pane, control)),
    tile: (pane, control) => makeButton(makeIcon(control.icon, "icon"), press(pane, control),
        { className: "tile", title: control.tip, ariaLabel: control.tip, ariaDescription: control.description }),
};
const showers = {
    text: showText, button: showText,
    browser: showAddress,
    label(element, control) {
        showText(element, control);
        element.hidden ||= control.fits && !control.text;
        element.className = `label control${control.centred ? " centred" : ""}${control.fits ? " fits" : ""}${control.mouse ? " mouse" : ""}`;
        Object.assign(element.style, { color: control.ink, backgroundColor: control.ground });
    },
    picture(element, control) {
        if (element.localName === "canvas" && control.visible) showSurface(element, control);
        if (control.words && control.words !== byId("words").textContent.trim()) say(control.words);
    },
    tile(element, { id, latches, latched }) {
        if (latches) element.ariaPressed = String(Boolean(latched));
        if (id === "Form1.MenuButx_11" && latched) loadCues();
    },
    frame(element, { text, controls }, pane) {
        element.firstChild.textContent = text;
        for (const control of controls) showControl(pane, element, control);
    },
    bar(bar, { enabled, max, value, small, large }) {
        Object.assign(bar, { disabled: !enabled, max: enabled ? max : 0, small, large });
        bar.value = value;
    },
};

function showText(element, { text, bold, points }) {
    element.textContent = text;
    Object.assign(element.style, { fontWeight: bold ? "bold" : "normal", fontSize: `${Math.round(points * 96 / 72)}px` });
}

function showControl(pane, parent, control) {
    const { record, id, kind, visible } = control, text = JSON.stringify(control);
    if (!Controls.has(record)) {
        const element = makers[kind](pane, control);
        element.id = id;
        element.classList.add("control");
        parent.append(element);
        Controls.set(record, { element });
    }
    const known = Controls.get(record), { element } = known;
    if (known.text === text) return;
    Object.assign(known, { text, words: control.words });
    for (const side of ["x", "y", "width", "height"]) element.style.setProperty(`--${side}`, control[side]);
    element.toggleAttribute("hidden", !visible);
    showers[kind](element, control, pane);
}

function makePicture(pane, control) {
    if (control.icon) return makeIcon(control.icon, "picture");
    const canvas = make("canvas", { ariaLabel: control.spoken, role: control.keys ? "application" : "img" });
    if (control.keys) takeKeys(canvas, pane, control);
    return watch(canvas, pane, control);
}

const shiftOf = event => (event.shiftKey ? 1 : 0) + (event.ctrlKey ? 2 : 0) + (event.altKey ? 4 : 0);

/** Tab is a key of the game here, but for the one after Escape. */
function takeKeys(canvas, pane, { record }) {
    let isLeaving = false;
    canvas.tabIndex = 0;
    canvas.setAttribute("aria-describedby", "words leaving");
    canvas.onkeydown = event => {
        const code = event.keyCode, leaves = code === 9 && isLeaving;
        event.stopPropagation();
        if (event.key !== "Shift") isLeaving = event.key === "Escape";
        if (leaves) return;
        // Tab, the arrows and the number pad are the game's alone; other keys may be the browser's as well.
        if (code === 9 || code >= 32 && code <= 40 || code >= 96 && code <= 105) event.preventDefault();
        deliver(() => Game._Key(pane.record, record, code, shiftOf(event)));
        if (code < 16 || code > 18) deliver(() => sayOf(record));
    };
}

function makeBar(pane, { record }) {
    const bar = make("input", { className: "bar", type: "range", min: 0, ariaLabel: "Page", ariaOrientation: "vertical" });
    const turn = value => {
        bar.value = value;
        const reached = Number(bar.value);
        deliver(() => Game._Scroll(pane.record, record, reached));
    };
    bar.oninput = () => turn(bar.value);
    bar.onkeydown = event => {
        const steps = { ArrowUp: -bar.small, ArrowLeft: -bar.small, ArrowDown: bar.small, ArrowRight: bar.small, PageUp: -bar.large, PageDown: bar.large };
        if (!(event.key in steps)) return;
        event.preventDefault();
        turn(Number(bar.value) + steps[event.key]);
    };
    pane.element.onwheel = event => bar.disabled || turn(Number(bar.value) + Math.sign(event.deltaY) * bar.large);
    return bar;
}

/** The help page. It has a history of its own, apart from the browser's. */
const Visited = { addresses: [], shown: -1 };
const address = () => Visited.addresses[Visited.shown] || "";
const leaveAddress = () => leaveLetter(address());

function makeBrowser(pane) {
    const frame = make("iframe", { className: "browser", title: "Help" });
    frame.onload = () => {
        frame.contentDocument.onpointerdown = () => turnTo(pane);
        frame.contentDocument.onclick = event => {
            const link = event.target.closest?.("a[href]")?.getAttribute("href");
            if (link) event.preventDefault();
            if (link?.startsWith("#")) navigate(address().split("#")[0] + link);
        };
        showAddress();
    };
    return frame;
}

function navigate(to) {
    if (address() !== to) Visited.addresses.splice(++Visited.shown, Infinity, to);
    showAddress();
}

function stepBy(step) {
    if (Visited.addresses[Visited.shown + step]) Visited.shown += step;
    showAddress();
}

function showAddress() {
    const frame = document.querySelector("iframe"), [page, anchor] = address().split("/").at(-1).split("#");
    if (frame && frame.getAttribute("src") !== page) frame.src = page;
    const target = anchor && frame?.contentDocument.getElementsByName(anchor)[0];
    if (target) target.scrollIntoView();
    else frame?.contentWindow.scrollTo(0, 0);
}

// ---- The pointer. A finger is the left button; held still, or joined by a second one, the right one.

const Buttons = [1, 4, 2], HeldFor = 500, StillWithin = 8;
const isFinger = event => event.pointerType === "touch" || event.pointerType === "pen" && event.button !== 2 && event.buttons !== 2;

/** Tells the engine what the pointer does on an element whose record has a handler. */
function watch(element, pane, control) {
    if (!control.mouse) return element;
    const hand = { element, pane, control, finger: null, isPressed: false, last: "" };
    const on = (name, mouse, finger) => element.addEventListener(name, event => (isFinger(event) ? finger : mouse)(hand, event));
    element.classList.add("mouse");
    on("pointerdown", mouseButton, fingerDown);
    on("pointermove", mouseMove, fingerMove);
    on("pointerup", mouseButton, fingerUp);
    for (const name of ["pointercancel", "lostpointercapture"]) on(name, loseMouse, loseMouse);
    return element;
}

function pixelAt({ element, control }, event) {
    const place = element.getBoundingClientRect(), scale = element.localName === "canvas" ? control.columns / place.width : 1;
    return [Math.floor((event.clientX - place.left) * scale), Math.floor((event.clientY - place.top) * scale)];
}

function tell(hand, deed, button, pixel, shift = 0) {
    const { pane, control } = hand;
    hand.last = String(pixel);
    deliver(() => Game._Mouse(pane.record, control.record, deed, button, shift, ...pixel));
    if (deed === Up && button === 1 || deed === Down && button === 2) deliver(() => sayOf(control.record));
}

function mouseButton(hand, event) {
    const isDown = event.buttons & Buttons[event.button];
    if (isDown) hand.element.setPointerCapture(event.pointerId);
    hand.isPressed = event.buttons !== 0;
    tell(hand, isDown ? Down : Up, Buttons[event.button] || 0, pixelAt(hand, event), shiftOf(event));
}

/** A second button that goes down or up beside another one comes as a move. */
function mouseMove(hand, event) {
    if (event.button >= 0 && !isFinger(event)) return mouseButton(hand, event);
    const steps = event.getCoalescedEvents?.() || [];
    for (const step of steps.length ? steps : [event]) {
        const pixel = pixelAt(hand, step);
        if (String(pixel) !== hand.last) tell(hand, Move, 0, pixel, shiftOf(event));
    }
    deliver(() => Game._ShowMoves());
}

function loseMouse(hand) {
    dropFinger(hand);
    if (hand.isPressed) deliver(() => Game._MouseLost());
    hand.isPressed = false;
}

function fingerDown(hand, event) {
    if (hand.finger) return pressRight(hand);
    hand.element.setPointerCapture(event.pointerId);
    const { pointerId: id, clientX: x, clientY: y } = event;
    hand.finger = { id, x, y, start: pixelAt(hand, event), timer: setTimeout(() => pressRight(hand), HeldFor) };
}

/** Where the finger lies, the right button goes down and up; in the middle of a drag it does nothing. */
function pressRight(hand) {
    if (hand.isPressed) return;
    clearTimeout(hand.finger.timer);
    hand.finger.isSpent = true;
    for (const deed of [Down, Up]) tell(hand, deed, 2, hand.finger.start);
}

function fingerMove(hand, event) {
    const { finger } = hand;
    if (finger?.id !== event.pointerId) return;
    if (!hand.isPressed) {
        if (Math.hypot(event.clientX - finger.x, event.clientY - finger.y) < StillWithin) return;
        clearTimeout(finger.timer);
        hand.isPressed = true;
        tell(hand, Down, 1, finger.start);
        tell(hand, Move, 0, finger.start);
    }
    mouseMove(hand, event);
}

function fingerUp(hand, event) {
    const { finger, isPressed } = hand;
    if (finger?.id !== event.pointerId) return;
    dropFinger(hand);
    hand.isPressed = false;
    if (isPressed) return tell(hand, Up, 1, pixelAt(hand, event));
    if (!finger.isSpent) for (const deed of [Move, Down, Up]) tell(hand, deed, deed === Move ? 0 : 1, finger.start);
}

const dropFinger = hand => (clearTimeout(hand.finger?.timer), hand.finger = null);

// ---- Panes. The game's two windows lie on the desk; other forms, and all questions, are dialogs over them.

const Panes = new Map();
let TopLayer = 1, isSettled = true;
const isSection = ({ element }) => element.localName === "section";
const isShown = pane => isSection(pane) ? !pane.element.hidden : pane.element.open;

function show(form) {
    if (!Panes.has(form.record)) Panes.set(form.record, makePane(form));
    const pane = Panes.get(form.record), opens = form.visible && !isShown(pane);
    pane.form = form;
    pane.title.textContent = form.text;
    if (!form.visible) return hide(pane);
    if (opens && isSection(pane)) pane.element.hidden = false;
    else if (opens && form.modal) pane.element.showModal();
    else if (opens) pane.element.setAttribute("open", "");
    if (form.showsImage) showSurface(pane.canvas, form);
    for (const control of form.controls) showControl(pane, pane.client, control);
    if (opens && !isSection(pane)) placePane(pane);
    isSettled = false;
}

/** Ends a deed: the desk is laid out once for all that it has changed. */
function settle() {
    if (isSettled) return paintDue();
    isSettled = true;
    arrangeDesk();
}

function makePane(form) {
    const title = make("h2", { id: `${form.id}.caption` }), caption = make("header", { className: "caption" }, title);
    const client = make("div", { className: "client", tabIndex: -1 });
    const element = make(form.centred ? "dialog" : "section", { id: form.id, className: "pane", hidden: !form.centred });
    const pane = { record: form.record, element, title, client, form };
    element.setAttribute("aria-labelledby", title.id);
    if (form.closes) caption.append(makeButton("\u00d7", () => deliver(() => Game._Close(form.record)), { className: "close", ariaLabel: "Close" }));
    moveBy(caption, pane);
    element.append(caption, ...form.menus.map(menu => makeMenu(pane, menu)), client);
    if (form.showsImage) client.append(pane.canvas = watch(make("canvas", { className: "whole", role: "img", ariaLabel: form.text }), pane, form));
    element.addEventListener("pointerdown", () => turnTo(pane), true);
    element.addEventListener("focusin", () => turnTo(pane));
    element.onkeydown = event => {
        if (!form.keys || event.key !== "Escape") return;
        event.preventDefault();
        deliver(() => Game._Key(form.record, form.record, event.keyCode, shiftOf(event)));
    };
    element.oncancel = event => event.preventDefault();
    if (form.sizable) new ResizeObserver(() => resized(pane)).observe(client);
    byId("desk").append(element);
    return pane;
}

const turnTo = ({ record }) => (raise(record), deliver(() => Game._Activate(record)));

function hide({ element }) {
    const hadFocus = element.contains(document.activeElement);
    if (isSection({ element })) element.hidden = true;
    else if (element.matches(":modal")) element.close();
    else element.removeAttribute("open");
    element.classList.remove("printed");
    if (hadFocus && document.activeElement === document.body) document.querySelector("canvas[tabindex]")?.focus();
}

/** Dialogs lie above the game's two windows, whichever has the keyboard. */
function raise(record) {
    const { element } = Panes.get(record), layer = isSection({ element }) ? 0 : 1e6;
    if (Number(element.style.zIndex) !== TopLayer + layer) element.style.zIndex = ++TopLayer + layer;
}

function focus(record) {
    raise(record);
    document.querySelector("canvas[tabindex]").focus({ preventScroll: true });
}

/** The game's two windows have their places on the desk, dialogs on the screen. All stay in sight. */
function moveTo(pane, x, y) {
    const { offsetLeft, offsetTop } = isSection(pane) ? byId("desk") : { offsetLeft: 0, offsetTop: 0 };
    const left = Math.max(-offsetLeft, Math.min(x, innerWidth - pane.element.offsetWidth - offsetLeft));
    const top = Math.max(-offsetTop, Math.min(y, innerHeight - 32 - offsetTop));
    Object.assign(pane, { x, y });
    Object.assign(pane.element.style, { left: `${snap(left)}px`, top: `${snap(top)}px` });
}
const centre = pane => moveTo(pane, (innerWidth - pane.element.offsetWidth) / 2, (innerHeight - pane.element.offsetHeight) / 2);

function placePane(pane) {
    scalePane(pane);
    centre(pane);
    fitAll();
    if (pane.form.modal || !pane.form.quiet) (pane.client.querySelector(".button") || pane.client).focus({ preventScroll: true });
}

/** A picture that is larger than its room is shown smaller, but never below the display's pixels. */
function scalePane({ element, client, form, canvas }) {
    for (const side of ["width", "height"]) if (!form.sizable || !client.style.getPropertyValue(`--${side}`)) client.style.setProperty(`--${side}`, form[side]);
    const around = element.offsetHeight - client.offsetHeight + 1, beside = isCoarse.matches ? 16 : 2;
    const room = Math.min((innerWidth - beside) / form.width, (innerHeight - around) / form.height);
    if (canvas) client.style.setProperty("--s", Math.min(1, Math.max(room, 1 / devicePixelRatio)));
}

/** The game's two windows stand where the player has moved them; on a narrow page the style sheet sets them. */
function arrangeDesk() {
    const panes = [...Panes.values()].filter(pane => isSection(pane) && isShown(pane));
    panes.forEach(scalePane);
    for (const frame of document.querySelectorAll("fieldset:has(canvas)"))
        frame.style.setProperty("--s", Math.min(1, (frame.clientWidth - 12) / 245, (frame.clientHeight - 18) / 277));
    for (const pane of panes) moveTo(pane, pane.x ?? pane.form.x, pane.y ?? pane.form.y);
    fitAll();
}

function moveBy(caption, pane) {
    let grip = null;
    caption.onpointerdown = event => {
        if (event.button !== 0 || isSection(pane) && !isWide.matches || event.target.localName === "button") return;
        caption.setPointerCapture(event.pointerId);
        grip = { x: event.clientX - pane.element.offsetLeft, y: event.clientY - pane.element.offsetTop };
    };
    caption.onpointermove = event => {
        if (!grip) return;
        moveTo(pane, event.clientX - grip.x, event.clientY - grip.y);
        fitAll();
    };
    caption.onlostpointercapture = () => {
        const { offsetLeft: x, offsetTop: y } = pane.element;
        grip = null;
        if (pane.record) deliver(() => Game._Moved(pane.record, x, y));
    };
}

function resized({ record, client: { clientWidth: width, clientHeight: height }, form }) {
    if (width && (width !== form.width || height !== form.height)) deliver(() => Game._Resized(record, width, height));
}

function layOutPage() {
    for (const pane of Panes.values()) if (pane.element.open) {
        scalePane(pane);
        moveTo(pane, pane.x, pane.y);
    }
    for (const record of Surfaces.keys()) paint(record);
    arrangeDesk();
}

/** Some browsers send no resize when the page moves to a screen of another ratio. */
function followRatio() {
    matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener("change", () => (layOutPage(), followRatio()), { once: true });
}

// ---- Menus.

function makeMenu(pane, { id, text, items }) {
    const list = make("div", { className: "items", role: "menu", hidden: true, ariaLabel: text });
    const setOpen = isOpen => {
        list.hidden = !isOpen;
        head.ariaExpanded = String(isOpen);
        (isOpen ? list.querySelector("button") : head).focus();
    };
    const head = makeButton(text, () => setOpen(list.hidden), { id, className: "menu", role: "menuitem", ariaExpanded: "false", ariaHasPopup: "menu" });
    const bar = make("div", { className: "menubar", role: "menubar", ariaLabel: text }, head, list);
    for (const item of items) list.append(item.text === "-" ? make("hr", { id: item.id }) : makeButton(item.text,
        () => (setOpen(false), press(pane, item)()), { id: item.id, className: "", role: "menuitem", tabIndex: -1 }));
    bar.onkeydown = event => stepThrough(event, list, setOpen);
    bar.addEventListener("focusout", event => list.hidden ||= !bar.contains(event.relatedTarget));
    return bar;
}

function stepThrough(event, list, setOpen) {
    const items = [...list.querySelectorAll("button")], at = items.indexOf(document.activeElement);
    const target = { ArrowDown: items[(at + 1) % items.length], ArrowUp: items.at(Math.max(at, 0) - 1), Home: items[0], End: items.at(-1) }[event.key];
    if (!target && (event.key !== "Escape" || list.hidden)) return;
    event.preventDefault();
    event.stopPropagation();
    setOpen(Boolean(target));
    target?.focus();
}

// ---- Questions. The answer is a button, counted from 0; Escape is the last one.

function askBy({ title, buttons, preset = 0, role = "dialog" }, content, answer) {
    const caption = make("header", { className: "caption" }, make("h2", { id: `question.${++TopLayer}` }, title));
    const answers = make("div", { className: "answers" }, ...buttons.map((text, i) => makeButton(text, () => close(i))));
    const element = make("dialog", { className: "pane question", role }, caption, content, answers);
    const close = button => {
        element.close();
        element.remove();
        answer(button);
    };
    moveBy(caption, { element });
    element.setAttribute("aria-labelledby", caption.firstChild.id);
    element.oncancel = event => event.preventDefault();
    element.onkeydown = event => event.key === "Escape" && (event.preventDefault(), close(buttons.length - 1));
    document.body.append(element);
    element.showModal();
    centre({ element });
    answers.children[preset].focus();
    return close;
}

function askByBox(box, answer = () => {}) {
    const content = make("div", { className: "content" }, make("span", { className: box.icon || "" }), make("p", { className: "message" }, box.text));
    askBy({ ...box, preset: Number(box.preset || 0), role: "alertdialog" }, content, answer);
}

const Named = 0, Cancelled = 1;
/** A dropped file for which a dialog is about to open; the function by which an open dialog takes one. */
let Offer = null, takeOffer = null;

function ask(question) {
    if (question.kind === "box") askByBox(question, answerGame);
    else if (Offer) takeIn(question, Offer);
    else askForFile(question);
}

/** Stores a file of the player's own under a name that no other file has. */
async function takeIn({ names, ending }, file) {
    const content = new Uint8Array(await file.arrayBuffer()), stored = new Map(Database ? await storedFiles() : []);
    const stem = file.name.endsWith(ending) ? file.name.slice(0, -ending.length) : file.name;
    const isSame = name => String(stored.get(name)) === String(content);
    let name = stem + ending;
    for (let n = 2; names.includes(name) && !isSame(name); ++n) name = `${stem} ${n}${ending}`;
    const reason = isSame(name) ? "" : await changeStored(files => files.put(content, name));
    Offer = null;
    if (reason) return askByBox({ title: "Quillets", text: `The file could not be written:\n${name}\n${reason}.`, buttons: ["OK"] }, () => answerGame(Cancelled));
    deliver(() => layFile(name, content));
    answerGame(Named, name);
}

function askForFile(question) {
    const { kind, title, names, ending } = question, saves = kind === "save";
    const list = make("select", { size: 8, ariaLabel: "Files" }, ...names.map(name => make("option", {}, name)));
    const own = make("input", saves ? { type: "text", spellcheck: false, autocomplete: "off" } : { type: "file", accept: ending });
    const content = make("form", { className: "content files" }, list, make("label", {}, saves ? "File name" : "From this computer", own));
    let offered = null;
    const close = askBy({ title, buttons: [saves ? "Save" : "Open", "Cancel"] }, content, button => {
        const name = (saves ? own : list).value.trim().split(/[/\\]/).at(-1);
        takeOffer = null;
        wantsCopy = saves;
        if (offered) takeIn(question, offered);
        else answerGame(name ? button : Cancelled, name);
    });
    takeOffer = file => (offered = file, close(Named));
    list.selectedIndex = 0;
    list.ondblclick = () => close(Named);
    list.onkeydown = event => event.key === "Enter" && close(Named);
    content.onsubmit = event => (event.preventDefault(), close(Named));
    list.onchange = () => saves && (own.value = list.value);
    own.onchange = () => own.files?.[0] && takeOffer(own.files[0]);
    (saves ? own : list).focus();
}

/** A file that is dropped on the page is opened as by the menu. */
function takeDrop(event) {
    const file = event.dataTransfer?.files[0];
    event.preventDefault();
    if (!file || isOver) return;
    if (takeOffer) return takeOffer(file);
    if (document.querySelector(":modal")) return;
    Offer = file;
    byId("Form1.Openx").click();
}

// ---- Sound, speech, print.

const CueNames = ["Click", "Error", "GiveUp", "Slide", "clap4", "click2", "shsh-dot", "thank", "whoosh1"], Cues = new Map();
let Sound = null, Speaker = null;

function loadCues() {
    Sound ||= new AudioContext();
    const load = async file => Sound.decodeAudioData(await (await fetch(file)).arrayBuffer());
    for (const name of CueNames) if (!Cues.has(name)) Cues.set(name, load(`${name}.wav`).catch(() => Cues.delete(name) && null));
}

/** A cue that does not load is no fault of play. */
async function play(file) {
    const buffer = await Cues.get(file.replace(".wav", ""));
    if (!buffer) return;
    if (!Speaker) (Speaker = new GainNode(Sound)).connect(Sound.destination);
    const source = new AudioBufferSourceNode(Sound, { buffer });
    source.connect(Speaker);
    source.start();
}

const silence = () => (Speaker?.disconnect(), Speaker = null);
/** The same words are spoken again when a blank makes them new. */
const say = words => byId("words").textContent = byId("words").textContent === words ? `${words}\u00a0` : words;
const sayOf = record => Controls.get(record)?.words && say(Controls.get(record).words);

/** Printing stops the page, so the handler that asks for it ends first. */
function print(record) {
    for (const pane of Panes.values()) pane.element.classList.toggle("printed", pane.record === record);
    setTimeout(() => window.print());
}

function setPrintedRatio(ratio) {
    for (const { element, client, form } of Panes.values()) if (element.classList.contains("printed")) {
        Surfaces.get(form.surface).ratio = ratio;
        client.style.setProperty("--s", 1);
        fitAll();
    }
    if (!ratio) layOutPage();
}

// ---- Start and end. One tab at a time holds the folder.

const Channel = new BroadcastChannel(FolderId);
let letGo = () => {};

/** Shows a text in place of the game, and a button. */
function finish(text, action = "Start again", act = () => location.reload(), ...more) {
    isOver = true;
    document.querySelectorAll(".pane").forEach(pane => pane.remove());
    const button = makeButton(action, act);
    byId("desk").append(make("section", { className: "pane notice", ariaLabel: "Quillets" },
        make("header", { className: "caption" }, make("h2", {}, "Quillets")),
        make("div", { className: "content" }, makeIcon("quillets", "picture"), make("p", { className: "message" }, text)),
        make("div", { className: "answers" }, button), ...more));
    button.focus();
    letGo();
}

/** Lists the stored files, for a player whose game does not start with one of them. */
async function end() {
    const list = make("ul", { className: "kept" });
    finish("The game has ended.", undefined, undefined, list);
    list.append(...(Database ? await storedFiles() : []).map(keptFile));
}

function keptFile([name, content]) {
    const drop = answer => answer === 0 && changeStored(files => files.delete(name)).then(() => row.remove());
    const row = make("li", {}, make("span", {}, name), makeButton("Download", () => handOut(name, content)),
        makeButton("Delete", () => askByBox({ title: "Quillets", text: `Delete ${name} for good?`, buttons: ["Yes", "No"], preset: 1 }, drop)));
    return row;
}

/** The two windows side by side on the desk (quillets.css), in twips. */
const FirstSettings = new TextEncoder().encode("QUILLET.qui\r\n0,0,4080,0\r\n");

/** Runs the game until it is over. A stored file takes the place of the one that came with the page. */
async function run(opening) {
    let [engine, collection, fault = ""] = await Promise.all(opening);
    const stored = Database ? await storedFiles().catch(reason => (fault = reasonOf(reason), [])) : [];
    Game = engine;
    for (const file of [["QUILLET.qui", new Uint8Array(collection)], ["Quillets.cfg", FirstSettings], ...stored]) layFile(...file);
    deliver(() => (leaveLetter(fault), Game._Start()));
    navigator.serviceWorker?.register("service_worker.js").catch(console.warn);
    return new Promise(resolve => letGo = resolve);
}

/** Another tab has the game. It gives it up when asked to, and this one starts. */
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
    if (isStoring) setTimeout(giveUp, 10);
    else if (Game && !isOver) waitForOtherTab();
}

function begin() {
    const opening = [Engine(), fetch("QUILLET.qui").then(content => content.arrayBuffer()), openDatabase()];
    const start = () => run(opening).catch(fault => (console.error(fault), finish("Quillets could not be fetched.", "Try again")));
    if (!navigator.locks) return start();
    navigator.locks.request(FolderId, { ifAvailable: true }, lock => lock ? start() : void waitForOtherTab(start));
}

globalThis.Page = { show, paint, raise, focus, ask, play, silence, print, navigate, stepBy, leaveAddress, store, end };
addEventListener("resize", layOutPage);
addEventListener("blur", () => Game && deliver(() => Game._MouseLost()));
addEventListener("dragover", event => event.preventDefault());
addEventListener("drop", takeDrop);
addEventListener("contextmenu", event => event.target.closest?.(".pane") && event.preventDefault());
addEventListener("beforeprint", () => setPrintedRatio(PrintedRatio));
addEventListener("afterprint", () => setPrintedRatio());
Channel.onmessage = giveUp;
followRatio();
begin();
