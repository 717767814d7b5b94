#!/usr/bin/python3
"""Proves that nothing of the player's is lost whatever fails, by running the operations on files in bad luck.

Usage: fault_runs.py PROGRAM COLLECTION TRIAL, with one of the trials
  injected   each system call of each operation fails with each of seven errors, and meets a kill
  full_disk  growing amounts of free space, from none on (code 77 where nothing may be mounted)
  crowd      one program appends to a collection from which another one removes, over and over
  awkward    collections of any size and kind are opened: the right answer, in no time, in little memory
With QUILLETS_LONG set there are more amounts and fights, and kills at random moments.
"""
import collections
import concurrent.futures
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import time

LONG = "QUILLETS_LONG" in os.environ
COLLECTION, SETTINGS, TARGET, RESCUE = "QUILLET.qui", "Quillets.cfg", "target.qui", "QuiFile.tmp"
REFUSAL = re.compile("The Quillet was not (appended|removed)|The (file|settings) could not be (written|saved)")
OVERWRITE = re.compile(r".*\| file already exists, overwrite\?")
QUESTION = re.compile(r"(Append|Remove) this Quillet|.*\|(Proceed|Append) anyway \?")
# A collection that can't be read back says nothing about what was written.
REMARK = re.compile(r"Quillet shapes file cannot be read|.*\|copied as:\|")
RECORD = rb"\d+(,-?\d+){23}"
PAGE = os.sysconf("SC_PAGESIZE")

# `new` is the content of the file `changed` after the operation, `before` are all files at its start.
Operation = collections.namedtuple("Operation", "name arguments changed new before")
Outcome = collections.namedtuple("Outcome", "code boxes after")
ERRORS = ("ENOSPC", "EIO", "EACCES", "EDQUOT", "EROFS", "EFBIG", "EINTR")
Call = collections.namedtuple("Call", "name number path")


def head_and_records(shipped, count):
    lines = shipped.read_bytes().splitlines(keepends=True)
    return b"".join(lines[:65]), lines[65:65 + count]


def numbered(records):
    return b"".join(b"%d,%s" % (number, record.split(b",", 1)[1]) for number, record in enumerate(records, 1))


def operations(head, records):
    """The figures stand where the game's Copy lays them, so that an appended copy differs in its number alone."""
    old = head + numbered(records)
    before = {COLLECTION: old, SETTINGS: b"QUILLET.qui\r\n 1500  1500  3000  3000 \r\n"}
    with_target = before | {TARGET: b"an older collection\r\n"}
    moved = before[SETTINGS].replace(b"1500", b"1515", 1)
    return [
        Operation("append", ["append", "1", "0"], COLLECTION, head + numbered(records + records[:1]), before),
        Operation("remove", ["remove", "2", "1"], COLLECTION, head + numbered(records[:1] + records[2:]), before),
        Operation("remove again", ["remove", "2", "1"], COLLECTION, head + numbered(records[:1] + records[2:]),
                  before | {RESCUE: 2 * old}),
        Operation("save as", ["saveas", TARGET], TARGET, old, before),
        Operation("save over", ["saveas", TARGET], TARGET, old, with_target),
        Operation("settings", ["settings"], SETTINGS, moved, before),
    ]


def put(folder, files):
    for file in folder.iterdir():
        file.unlink()
    for name, content in files.items():
        (folder / name).write_bytes(content)


def play(command, operation, folder):
    run = subprocess.run([*command, folder, *operation.arguments], cwd=folder, stdout=subprocess.PIPE,
                         timeout=60, check=False)
    after = {file.name: file.read_bytes() for file in folder.iterdir()}
    return Outcome(run.returncode, run.stdout.decode().splitlines(), after)


def refusals(outcome):
    return [box for box in outcome.boxes if REFUSAL.match(box)]


def faults(operation, outcome, killed=False):
    """What the outcome breaks, in words."""
    old, now = operation.before.get(operation.changed), outcome.after.get(operation.changed)
    refused = refusals(outcome)
    whole_rescue = operation.name.startswith("remove") and outcome.after.get(RESCUE) == operation.new
    rescued = whole_rescue and (killed or any(box.endswith("/" + RESCUE) for box in refused))
    if outcome.code != (-9 if killed else 0):
        yield f"code {outcome.code}"
    if now not in (old, operation.new) and not rescued:
        yield f"neither old nor new: {now}"
    spared = operation.before.keys() - {operation.changed, RESCUE}
    if any(outcome.after.get(name) != operation.before[name] for name in spared):
        yield "another file changed"
    if killed:
        return
    if refused and now != old and not rescued:
        yield "changed in spite of the failure told"
    if not refused and now != operation.new:
        yield "not done, and no failure told"
    if operation.name == "save over" and now != old and not any(map(OVERWRITE.match, outcome.boxes)):
        yield "written over without a question"
    if not all(any(kind.match(box) for kind in (REFUSAL, OVERWRITE, QUESTION, REMARK)) for box in outcome.boxes):
        yield "an unknown box"
    left = set(outcome.after) - set(operation.before) - {operation.changed} - ({RESCUE} if whole_rescue else set())
    if left:
        yield f"left beside the collection: {left}"


def calls_in(log):
    """The calls between the marks; a number counts from the program's start, a path is that of the open file."""
    counts, calls, inside = collections.Counter(), [], False
    for line in log.read_text().splitlines():
        if match := re.match(r"(?:\d+ +)?(\w+)\((?:\d+<(.*?)>)?", line):
            counts[match[1]] += 1
            if "/quillets-operation-" in line:
                inside = "-begins" in line
            elif inside and match[1] != "mmap":
                calls.append(Call(match[1], counts[match[1]], match[2] or ""))
    return calls


def unsynced(calls):
    """The writes that something other follows than the next write to the same file, or its sync."""
    changes = [call for call in calls if call.name in ("write", "ftruncate", "fsync", "rename")] + [Call("end", 0, "")]
    return [call for call, then in zip(changes, changes[1:]) if call.name in ("write", "ftruncate")
            and (then.name == "rename" or then.path != call.path)]


def traced(program, operation, folder, what):
    folder.mkdir()
    put(folder, operation.before)
    log = folder.with_suffix(".log")
    return play(["strace", "-f", "-o", log, *what, program], operation, folder), log


def inject(program, operation, folder, call, effect):
    """Plays the operation with a changed call; the faults as lines, and whether a failure was told."""
    killed = effect.startswith("signal")
    outcome, log = traced(program, operation, folder,
                          ["-e", f"trace={call.name},access,faccessat",
                           "-e", f"inject={call.name}:{effect}:when={call.number}"])
    during = log.read_text().partition("-operation-begins")[2].partition("-operation-ends")[0]
    found = list(faults(operation, outcome, killed))
    if not (f"{call.name}(" in during and (killed or "(INJECTED)" in during)):
        found.append("the call was not met")
    # Where a folder can't be synced there is no more to be done; the file itself is on the disk.
    must_tell = call.name in ("write", "ftruncate", "fsync", "rename") and not call.path.endswith(operation.name)
    tried_again = call.name == "write" and effect == "error=EINTR"
    if must_tell and not killed and bool(refusals(outcome)) == tried_again:
        found.append("the failure was not told")
    run = f"{operation.name}, {call.name} {call.number}, {effect}"
    return [f"{run}: {fault}; boxes {outcome.boxes}" for fault in found], bool(refusals(outcome))


def run_injected(program, shipped, scratch):
    found = []
    with concurrent.futures.ThreadPoolExecutor(2) as workers:
        for operation in operations(*head_and_records(shipped, 5)):
            name = operation.name
            outcome, log = traced(program, operation, scratch / name, ["-y", "-e", "trace=%file,%desc"])
            found += [f"{name}: {fault}; boxes {outcome.boxes}" for fault in faults(operation, outcome)]
            calls = calls_in(log)
            found += [f"{name}: {call} is not synced" for call in unsynced(calls)]
            runs = [workers.submit(inject, program, operation, scratch / f"{name}-{call.name}-{call.number}-{effect}",
                                   call, effect)
                    for call in calls for effect in ("signal=KILL", *(f"error={error}" for error in ERRORS))]
            found += [line for run in runs for line in run.result()[0]]
            told = sum(run.result()[1] for run in runs)
            print(f"{name}: {len(calls)} calls, {len(runs)} runs, {told} failures told", flush=True)
            if not 0 < told < len(runs):
                found.append(f"{name}: the runs prove nothing")
            if LONG:
                found += kill_at_random(program, operation, scratch / name, 2000)
    return found


def kill_at_random(program, operation, folder, times):
    """Kills within twice the time that the operation takes; it may be done by then."""
    seed, killed, found = random.randrange(10**6), 0, []
    moments = random.Random(seed)
    start = time.monotonic()
    play([program], operation, folder)
    longest = 2 * (time.monotonic() - start)
    for _ in range(times):
        put(folder, operation.before)
        outcome = play(["timeout", "-s", "KILL", f"{moments.uniform(0.001, longest):.6f}", program], operation, folder)
        killed += outcome.code != 0
        found += [f"{operation.name}, killed: {fault}" for fault in faults(operation, outcome, outcome.code != 0)]
    print(f"{operation.name}: {times} random moments by seed {seed}, {killed} kills before the end, {len(found)} faults",
          flush=True)
    return found


def leave_free(disk, pages):
    """Fills the disk but for so many pages."""
    with open(disk / "filler", "wb") as filler:
        os.posix_fallocate(filler.fileno(), 0, (os.statvfs(disk).f_bfree - pages) * PAGE)
    assert os.statvfs(disk).f_bfree == pages


def padded(head, records, slack):
    """The head with a longer free field, so that the collection's last page has just so many bytes to spare."""
    return head[:-2] + b"." * (-(len(head + numbered(records)) + slack) % PAGE) + head[-2:]


def run_full_disk(program, shipped, disk):
    found, folder = [], disk / "game"
    folder.mkdir()
    head, records = head_and_records(shipped, 300)
    amounts = [40, *range(0, (1000 if LONG else 100) * 512, 512)]
    for name in ("append", "remove", "save as", "save over", "settings"):
        told = 0
        for amount in amounts:
            room = padded(head, records, amount % PAGE)
            operation = next(one for one in operations(room, records) if one.name == name)
            (disk / "filler").unlink(missing_ok=True)
            put(folder, operation.before)
            leave_free(disk, amount // PAGE)
            outcome = play([program], operation, folder)
            told += bool(refusals(outcome))
            found += [f"{name}, {amount} bytes free: {fault}; boxes {outcome.boxes}"
                      for fault in faults(operation, outcome)]
        print(f"{name}: {len(amounts)} amounts of free space, {told} failures told", flush=True)
        if not 0 < told < len(amounts):
            found.append(f"{name}: the amounts prove nothing")
    return found


def on_small_disk(scratch):
    """Runs this script again where a small disk is mounted over the scratch folder, for it and its children alone."""
    mounted = ["unshare", "-m" if os.geteuid() == 0 else "-rm",
               "sh", "-c", 'mount -t tmpfs -o size=1m tmpfs "$0" && exec "$@"', scratch]
    if subprocess.run([*mounted, "true"], check=False).returncode != 0:
        print("Skipped: a small disk can't be mounted here; that needs root or the user namespaces of the kernel.")
        return 77
    return subprocess.run([*mounted, sys.executable, *sys.argv, scratch], check=False).returncode


def fight(program, shipped, scratch, shift):
    """One program appends, another removes from the front: each record tells its round by its corner."""
    rounds, first = 50, 5
    head, records = head_and_records(shipped, first)
    put(scratch, operations(head, records)[0].before)
    commands = (["append", str(rounds), str(shift)], ["remove", "1", str(rounds)])
    both = [subprocess.Popen(["timeout", "60", program, scratch, *command], cwd=scratch, stdout=subprocess.PIPE,
                             text=True) for command in commands]
    boxes = [box for one in both for box in one.communicate()[0].splitlines() if not QUESTION.match(box)]
    text = (scratch / COLLECTION).read_bytes()
    held = re.findall(rb"^[1-9]\d*,(\d+),(\d+)(?:,-?\d+){21}\r\n", text.removeprefix(head), re.MULTILINE)
    expected = [(b"%d" % (60 + shift), b"%d" % (60 + turn)) for turn in range(rounds - first, rounds)]
    if boxes or any(one.returncode for one in both) or not text.startswith(head) or held != expected:
        yield f"fight {shift}: boxes {boxes[:3]}, held {held}"


def run_crowd(program, shipped, scratch):
    fights = 20 * (100 if LONG else 1)
    print(f"{fights} times 50 records appended while 50 were removed")
    return [fault for number in range(fights) for fault in fight(program, shipped, scratch, 1 + number % 20)]


def awkward_files(shipped, scratch):
    """Name, what to write, the answer: a number of quillets, or what is told."""
    head, records = head_and_records(shipped, 500)
    whole = shipped.read_bytes()
    many = "Cannot handle more than 500 Quillets"
    yield from ((f"{count} records", head + (records[0] * count), str(count)) for count in (0, 1, 499, 500))
    yield from ((f"{count} records", head + (records[0] * count), many) for count in (501, 100_000))
    yield "LF", whole.replace(b"\r", b""), str(whole.count(b"\n") - 65)
    yield "CR", whole.replace(b"\n", b""), 'Line 1: "-2?5" is not a number.'
    yield "empty lines", head + b"\n" * (15 << 20) + records[0], "1"
    yield "one number", b"7" * (16 << 20), 'Line 1: "77777777777777777777..." is not a number.'
    yield "nothing but ends", b"\r\n" * (8 << 20), "Line 1: the file ends where a number is expected."
    yield "skipped records", head + (b"0" + b",0" * 23 + b"\n") * 300_000 + records[0], "1"
    yield "a folder", lambda path: path.mkdir(), "Line 1: it is not a file."
    yield "a pipe", os.mkfifo, "Line 1: it is not a file."
    yield "zeros without end", lambda path: path.symlink_to("/dev/zero"), "Line 1: it is not a file."
    yield "a loop", lambda path: path.symlink_to(path), "Line 1: Too many levels of symbolic links."
    yield "1 GiB", lambda path: (path.touch(), os.truncate(path, 1 << 30)), "Line 1: the file is too large."


def run_awkward(program, shipped, scratch):
    """The program tells, last: how many quillets it holds, the milliseconds that it took, and its memory in KiB."""
    head, records = head_and_records(shipped, 5)
    before, found, rest = operations(head, records)[0].before, [], None
    for name, content, answer in [("nothing", None, "5"), *awkward_files(shipped, scratch)]:
        folder = scratch / name
        folder.mkdir()
        put(folder, before)
        path = folder / "awkward.qui"
        content(path) if callable(content) else content is not None and path.write_bytes(content)
        run = subprocess.run([program, folder, "open", path if content else ""], stdout=subprocess.PIPE, check=False)
        *boxes, told = run.stdout.decode().splitlines()
        count, milliseconds, memory = told.split()
        rest = rest or int(memory)
        print(f"{name}: {milliseconds} ms, {int(memory) - rest} KiB more than at rest, {boxes[-1:]}")
        right = boxes[-1].partition("|")[2 if "Line" in answer else 0] if boxes else count
        if answer not in right or float(milliseconds) > (5 if "500 r" in name else 1000) or int(memory) - rest > 65536:
            found.append(f"{name}: {boxes}, {told}, expected {answer}")
    return found + cut_short(program, shipped)


def cut_short(program, shipped):
    """A collection that ends anywhere is refused at its last line, unless all of that line is there."""
    text, found = shipped.read_bytes(), []
    told = subprocess.run([program, shipped.parent, "prefixes", shipped], stdout=subprocess.PIPE, check=True).stdout
    answers = told.decode().splitlines()
    for length, answer in enumerate(answers):
        lines = text[:length].split(b"\n")
        last = lines[-1].removesuffix(b"\r")
        whole = last != b"" if len(lines) == 65 else len(lines) > 65 and (last == b"" or re.fullmatch(RECORD, last))
        if bool(whole) != (answer == "") or not whole and not answer.startswith(f"Line {len(lines)}: "):
            found.append(f"{length} bytes: {answer}")
    print(f"{len(answers)} beginnings of the shipped collection")
    return found if len(answers) == len(text) + 1 else ["not all beginnings were read"]


def main():
    program, shipped, trial, *disk = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="quillets-faults-") as folder:
        scratch = pathlib.Path(disk[0] if disk else folder)
        if trial == "full_disk" and not disk:
            return on_small_disk(scratch)
        trials = {"injected": run_injected, "full_disk": run_full_disk, "crowd": run_crowd, "awkward": run_awkward}
        found = trials[trial](program, pathlib.Path(shipped), scratch)
    print(*found[:40], f"{len(found)} faults", sep="\n")
    return 1 if found else 0


sys.exit(main())
