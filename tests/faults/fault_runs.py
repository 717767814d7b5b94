#!/usr/bin/python3
"""Proves that nothing of the player's is lost whatever fails, by running the operations on files in bad luck.

Usage: fault_runs.py PROGRAM COLLECTION TRIAL, with one of the trials
  injected   each system call of each operation fails with each of three errors, and meets a kill
  full_disk  101 amounts of free space, from none on (code 77 where nothing may be mounted)
  crowd      many programs append to a collection from which another one removes
"""
import collections
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

COLLECTION, SETTINGS, TARGET, RESCUE = "QUILLET.qui", "Quillets.cfg", "target.qui", "QuiFile.tmp"
REFUSAL = re.compile("The Quillet was not (appended|removed)|The (file|settings) could not be (written|saved)")
OVERWRITE = re.compile(r".*\| file already exists, overwrite\?")
QUESTION = re.compile(r"(Append|Remove) this Quillet|.*\|(Proceed|Append) anyway \?")
# A collection that can't be read back says nothing about what was written.
REMARK = re.compile(r"Quillet shapes file cannot be read|.*\|copied as:\|")
PAGE = os.sysconf("SC_PAGESIZE")

# `new` is the content of the file `changed` after the operation, `before` are all files at its start.
Operation = collections.namedtuple("Operation", "name arguments changed new before")
Outcome = collections.namedtuple("Outcome", "code boxes after")
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
        Operation("save as", ["saveas", TARGET], TARGET, old, before),
        Operation("save over", ["saveas", TARGET], TARGET, old, with_target),
        Operation("settings", ["settings"], SETTINGS, moved, before),
    ]


def put(folder, files):
    for file in folder.iterdir():
        file.unlink()
    for name, content in files.items():
        (folder / name).write_bytes(content)


def play(program, operation, folder, tracer=()):
    run = subprocess.run([*tracer, program, folder, *operation.arguments], cwd=folder, stdout=subprocess.PIPE,
                         timeout=60, check=False)
    after = {file.name: file.read_bytes() for file in folder.iterdir()}
    return Outcome(run.returncode, run.stdout.decode().splitlines(), after)


def refusals(outcome):
    return [box for box in outcome.boxes if REFUSAL.match(box)]


def faults(operation, outcome, killed=False):
    """What the outcome breaks, in words."""
    old, now = operation.before.get(operation.changed), outcome.after.get(operation.changed)
    refused = refusals(outcome)
    whole_rescue = operation.name == "remove" and outcome.after.get(RESCUE) == operation.new
    rescued = whole_rescue and (killed or any(box.endswith("/" + RESCUE) for box in refused))
    if outcome.code != (-9 if killed else 0):
        yield f"code {outcome.code}"
    if now not in (old, operation.new) and not rescued:
        yield f"neither old nor new: {now}"
    if any(outcome.after.get(name) != text for name, text in operation.before.items() if name != operation.changed):
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
    return play(program, operation, folder, ["strace", "-f", "-o", log, *what]), log


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
    if must_tell and not killed and not refusals(outcome):
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
                    for call in calls for effect in ("error=ENOSPC", "error=EIO", "error=EACCES", "signal=KILL")]
            found += [line for run in runs for line in run.result()[0]]
            told = sum(run.result()[1] for run in runs)
            print(f"{name}: {len(calls)} calls, {len(runs)} runs, {told} failures told", flush=True)
            if not 0 < told < len(runs):
                found.append(f"{name}: the runs prove nothing")
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
    amounts = [40, *range(0, 100 * 512, 512)]
    for name in ("append", "remove", "save as", "save over", "settings"):
        told = 0
        for amount in amounts:
            room = padded(head, records, amount % PAGE)
            operation = next(one for one in operations(room, records) if one.name == name)
            (disk / "filler").unlink(missing_ok=True)
            put(folder, operation.before)
            leave_free(disk, amount // PAGE)
            outcome = play(program, operation, folder)
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
               "sh", "-c", 'mount -t tmpfs -o size=256k tmpfs "$0" && exec "$@"', scratch]
    if subprocess.run([*mounted, "true"], check=False).returncode != 0:
        print("Skipped: a small disk can't be mounted here; that needs root or the user namespaces of the kernel.")
        return 77
    return subprocess.run([*mounted, sys.executable, *sys.argv, scratch], check=False).returncode


def run_crowd(program, shipped, scratch):
    """Each record tells its program and its round by its corner; records go from the front and come at the end."""
    programs, rounds, removals, first = 10, 20, 150, 5
    head, records = head_and_records(shipped, first)
    put(scratch, operations(head, records)[0].before)
    commands = [["append", str(rounds), str(shift)] for shift in range(1, programs + 1)]
    commands += [["remove", "1", str(removals)]]
    crowd = [subprocess.Popen(["timeout", "60", program, scratch, *command], cwd=scratch, stdout=subprocess.PIPE,
                              text=True) for command in commands]
    found = []
    for command, process in zip(commands, crowd):
        boxes = process.communicate()[0].splitlines()
        strange = [box for box in boxes if not QUESTION.match(box)]
        if strange or process.returncode != 0:
            found.append(f"{command}: code {process.returncode}, boxes {strange[:3]}")
    text = (scratch / COLLECTION).read_bytes()
    held = text.removeprefix(head).splitlines(keepends=True)
    if not text.startswith(head) or not all(re.fullmatch(rb"[1-9]\d*(,-?\d+){23}\r\n", line) for line in held):
        return found + ["the collection is no longer well formed"]
    if len(held) != first + programs * rounds - removals:
        found.append(f"{first} and {programs * rounds} records less {removals}, but {len(held)} are held")
    corners = [tuple(int(field) for field in line.split(b",")[1:3]) for line in held]
    for shift in range(1, programs + 1):
        kept = [top - 60 for left, top in corners if left == 60 + shift]
        if kept != list(range(rounds - len(kept), rounds)):
            found.append(f"of program {shift} the rounds {kept} are held")
    print(f"{programs} programs appended {rounds} records each, {removals} were removed, {len(held)} are held")
    return found


def main():
    program, shipped, trial, *disk = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="quillets-faults-") as folder:
        scratch = pathlib.Path(disk[0] if disk else folder)
        if trial == "full_disk" and not disk:
            return on_small_disk(scratch)
        trials = {"injected": run_injected, "full_disk": run_full_disk, "crowd": run_crowd}
        found = trials[trial](program, pathlib.Path(shipped), scratch)
    print(*found[:40], f"{len(found)} faults", sep="\n")
    return 1 if found else 0


sys.exit(main())
