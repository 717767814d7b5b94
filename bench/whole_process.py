#!/usr/bin/python3
"""Measures the whole game on a display of its own: start, memory, dragging, rest. Prints each number beside its goal.

Usage: whole_process.py BUILD_FOLDER [SECONDS_OF_REST]
"""
import bisect
import contextlib
import ctypes
import ctypes.util
import itertools
import math
import os
import pathlib
import select
import shutil
import statistics
import subprocess
import sys
import tempfile
import threading
import time

X11, XTest, Damage = (ctypes.CDLL(ctypes.util.find_library(name)) for name in ("X11", "Xtst", "Xdamage"))
SUBSTRUCTURE_NOTIFY, CREATE_NOTIFY, MAP_NOTIFY = 1 << 19, 16, 19
ROUNDS = 15
SQUARE = 186, 116  # within the board's window, at the start
TRACING = pathlib.Path("/sys/kernel/tracing")


class Event(ctypes.Structure):
    """The head that all events of windows below an observed one have in common, and room for the largest."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("parent", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("rest", ctypes.c_long * 24)]


def connect():
    X11.XOpenDisplay.restype = ctypes.c_void_p
    X11.XDefaultRootWindow.restype = ctypes.c_ulong
    display = ctypes.c_void_p(X11.XOpenDisplay(None))
    return display, ctypes.c_ulong(X11.XDefaultRootWindow(display))


def next_event(display):
    event = Event()
    X11.XNextEvent(display, ctypes.byref(event))
    return event


def damage_event(display):
    """What the server calls its news of a changed picture; these events have their window in place of the parent."""
    base, error = ctypes.c_int(), ctypes.c_int()
    Damage.XDamageQueryExtension(display, ctypes.byref(base), ctypes.byref(error))
    return base.value


def started(program, folder):
    """The process of a program with its arguments, its two windows, and the milliseconds until both were there, and
    until both had their pictures."""
    display, root = connect()
    damage = damage_event(display)
    X11.XSelectInput(display, root, SUBSTRUCTURE_NOTIFY)
    X11.XSync(display, 0)
    begin, mapped, drawn = time.perf_counter(), {}, {}
    process = subprocess.Popen(program, cwd=folder)
    while len(mapped) < 2 or not mapped.keys() <= drawn.keys():
        event = next_event(display)
        now = 1000 * (time.perf_counter() - begin)
        if event.type == CREATE_NOTIFY:
            Damage.XDamageCreate(display, ctypes.c_ulong(event.window), 0)
        elif event.type == MAP_NOTIFY:
            mapped[event.window] = now
        elif event.type == damage:
            drawn.setdefault(event.parent, now)
    X11.XCloseDisplay(display)
    return process, list(mapped), (max(mapped.values()), max(drawn[window] for window in mapped))


def end(process):
    process.kill()
    process.wait()


def memory(process):
    for line in pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("no proportional set size")


def compare_starts(programs, folder):
    """Medians of both moments of the start and of memory of each program, the programs by turns."""
    there, drawn, sizes = ([[] for _ in programs] for _ in range(3))
    for _ in range(ROUNDS):
        for index, program in enumerate(programs):
            process, _, (windows, pictures) = started(program, folder)
            there[index].append(windows)
            drawn[index].append(pictures)
            time.sleep(0.5)
            sizes[index].append(memory(process))
            end(process)
    return [[statistics.median(row) for row in rows] for rows in (there, drawn, sizes)]


def wake_ups(process):
    tasks = pathlib.Path(f"/proc/{process.pid}/task").glob("*/status")
    return sum(int(line.split()[1]) for task in tasks for line in task.read_text().splitlines()
               if "ctxt_switches" in line)


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def place_of(display, root, window):
    x, y, child = ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
    X11.XTranslateCoordinates(display, ctypes.c_ulong(window), root, 0, 0, ctypes.byref(x), ctypes.byref(y),
                              ctypes.byref(child))
    return x.value, y.value


def width_of(window):
    """The board is the wider window."""
    display, _ = connect()
    attributes = (ctypes.c_int * 64)()
    X11.XGetWindowAttributes(display, ctypes.c_ulong(window), attributes)
    return attributes[2]


def watch_damage(window, times, done):
    """Notes the time of each change of the window's picture, until it is told to stop."""
    display, _ = connect()
    damage_event(display)
    Damage.XDamageCreate(display, ctypes.c_ulong(window), 0)
    while not done.is_set():
        while X11.XPending(display):
            next_event(display)
            times.append(time.perf_counter())
        select.select([X11.XConnectionNumber(display)], [], [], 0.1)
    X11.XCloseDisplay(display)


def drag(process, window, piece, rate, seconds=10):
    """Moves a piece in circles and back: the share of a core, the moments of the moves and those of the pictures."""
    display, root = connect()
    left, top = place_of(display, root, window)
    shown, sent, done = [], [], threading.Event()
    watcher = threading.Thread(target=watch_damage, args=(window, shown, done))
    watcher.start()
    time.sleep(0.5)
    circles = ((left + piece[0] + round(35 * math.cos(a / 30)), top + piece[1] + round(35 * math.sin(a / 30)))
               for a in range(rate * seconds))
    point = [place for place, _ in itertools.groupby(circles)]  # a move within a pixel is none
    XTest.XTestFakeMotionEvent(display, -1, left + piece[0], top + piece[1], 0)
    XTest.XTestFakeButtonEvent(display, 1, 1, 0)
    X11.XSync(display, 0)
    before, begin = processor_seconds(process), time.perf_counter()
    for number, (x, y) in enumerate(point):
        while time.perf_counter() < begin + number / rate:
            time.sleep(0.0002)
        XTest.XTestFakeMotionEvent(display, -1, x, y, 0)
        sent.append(time.perf_counter())
        X11.XFlush(display)
    took = time.perf_counter() - begin
    load = (processor_seconds(process) - before) / took
    time.sleep(0.5)
    # The hold on the piece is that of the first move, so from there it drops where it was taken up.
    XTest.XTestFakeMotionEvent(display, -1, *point[0], 0)
    XTest.XTestFakeButtonEvent(display, 1, 0, 0)
    X11.XSync(display, 0)
    done.set()
    watcher.join()
    print(f"     {len(sent)} events in {took:.1f} s, {len(shown)} pictures")
    return 100 * load, sent, shown


def until_shown(sent, shown):
    """From each move to the next picture, in milliseconds."""
    following = ((moment, bisect.bisect_left(shown, moment)) for moment in sent)
    return [1000 * (shown[at] - moment) for moment, at in following if at < len(shown)]


def median_and_late(delays):
    delays = sorted(delays) or [math.nan]
    return delays[len(delays) // 2], delays[len(delays) * 99 // 100]


@contextlib.contextmanager
def noted_moves(program):
    """The kernel notes when the game handles a move, to the list that this hands over at its end; OSError without
    root."""
    names = subprocess.run(["nm", program], stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()
    address = next(line.split()[0] for line in names if "Picture1_MouseMove" in line)
    probes, moments = TRACING / "uprobe_events", []
    probes.write_text(f"p:quillets/moved {program}:0x{address}")
    try:
        (TRACING / "trace").write_text("")
        (TRACING / "trace_clock").write_text("mono")
        (TRACING / "events/quillets/moved/enable").write_text("1")
        yield moments
        (TRACING / "events/quillets/moved/enable").write_text("0")
        lines = (TRACING / "trace").read_text().splitlines()
        moments += [float(line.partition(": moved:")[0].split()[-1]) for line in lines if ": moved:" in line]
    finally:
        (TRACING / "trace_clock").write_text("local")
        probes.write_text("")


def until_handled(program, process, board):
    """From each of 1,000 moves a second until the game handles it, in milliseconds."""
    with noted_moves(program) as moments:
        _, sent, _ = drag(process, board, SQUARE, 1000)
    # There is one move to the piece before the circles, and one back to where they began.
    assert len(moments) == len(sent) + 2, "a move was merged into another"
    return [1000 * (handled - moment) for moment, handled in zip(sent, moments[1:])]


def game_folder(build, scratch):
    """The built program's folder, with 500 figures."""
    folder = shutil.copytree(build / "program", scratch / "game")
    lines = (folder / "QUILLET.qui").read_text().splitlines()
    records = [line.partition(",")[2] for line in lines[65:]]
    full = lines[:65] + [f"{n + 1},{records[n % len(records)]}" for n in range(500)]
    (folder / "QUILLET.qui").write_text("\r\n".join(full) + "\r\n")
    return folder


def report(what, value, goal=None, unit=""):
    answer = "    " if goal is None else "ok  " if value <= goal else "MISS"
    print(f"{answer} {what}: {value:.2f}{unit}{'' if goal is None else f', goal {goal}{unit}'}", flush=True)


def measure(build, rest, scratch):
    folder = game_folder(build, scratch)
    game, empty = [folder / "quillets"], [build / "bench" / "empty_windows"]
    medians = compare_starts([game, empty, empty + ["word"]], folder)
    for (what, unit, goal), row in zip((("windows", "ms", None), ("pictures", "ms", 1.2), ("memory", "MiB", 1.2)), medians):
        print("     {}: {:.1f} {unit}, {:.1f} {unit} empty, {:.1f} {unit} with a word".format(what, *row, unit=unit))
        report(f"{what} against two windows with a word", row[0] / row[2], goal)
    process, windows, _ = started(game, folder)
    time.sleep(40)  # the toolkit empties its cache of pictures after half a minute
    before = wake_ups(process)
    time.sleep(rest)
    report(f"wake-ups in {rest} s of rest", wake_ups(process) - before, 0)
    board = max(windows, key=width_of)
    # A mouse as most are; what it moves is to be seen, and not only handled, within the goals for a fast one.
    _, sent, shown = drag(process, board, SQUARE, 100)
    median, late = median_and_late(until_shown(sent, shown))
    report("100 events a second, from event to picture at the median", median, 2, " ms")
    report("and at the 99th percentile", late, 8, " ms")
    load, sent, shown = drag(process, board, SQUARE, 1000)
    print(f"     1,000 events a second, share of a core: {load:.1f} %")
    median, late = median_and_late(until_shown(sent, shown))
    report("from event to picture, with the wait for the next one, at the median", median, unit=" ms")
    report("and at the 99th percentile", late, unit=" ms")
    try:
        median, late = median_and_late(until_handled(game[0], process, board))
        report("from event to its handler at the median", median, 2, " ms")
        report("and at the 99th percentile", late, 8, " ms")
    except OSError:
        print("     only root may ask the kernel when each event is handled")
    end(process)
    process, windows, _ = started(empty, folder)
    empty_load = drag(process, windows[0], SQUARE, 1000)[0]
    print(f"     an empty window, the same events: {empty_load:.1f} %")
    report("1,000 events a second against an empty window", load / empty_load, 1.4)
    end(process)


def main():
    build, rest = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 60
    os.environ.pop("WAYLAND_DISPLAY", None)
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    try:
        os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
        with tempfile.TemporaryDirectory(prefix="quillets-whole-") as scratch:
            os.environ["XDG_RUNTIME_DIR"] = scratch
            # Or a bus would be started with each program, on some machines.
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={scratch}/none"
            measure(build, rest, pathlib.Path(scratch))
    finally:
        end(server)


main()
