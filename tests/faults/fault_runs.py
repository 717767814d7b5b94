#!/usr/bin/python3
"""Runs the operations on files while something fails, and looks for whatever the player would lose.

Usage: fault_runs.py PROGRAM COLLECTION TRIAL, with one of the trials
  injected   each system call of each operation fails with each of seven errors
  power_cut  a power cut, or a kill, at each moment of each operation, in every state that it may leave on the disk
  no_room    files can become no longer than a limit, from nothing on
  crowd      one program appends to a collection from which another one removes, over and over
With QUILLETS_LONG set there are a hundred times as many fights.
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
FRESH = f".quillets-new-{os.geteuid()}"
REFUSAL = re.compile("The Quillet was not (appended|removed)|The (file|settings) could not be (read|written|saved)")
OVERWRITE = re.compile(r".*\| file already exists, overwrite\?")
QUESTION = re.compile(r"(Append|Remove) this Quillet|.*\|(Proceed|Append) anyway \?")
# A collection that cannot be read back says nothing about what was written.
REMARK = re.compile(r"Quillet shapes file cannot be read|.*\|copied as:\|")
SECTOR = 512
ERRORS = ("ENOSPC", "EIO", "EACCES", "EDQUOT", "EROFS", "EFBIG", "EINTR")
# Calls that change neither a content nor a name.
READING = ("access", "close", "fchmod", "fchown", "flock", "fstat", "getcwd", "newfstatat", "pread64", "readlink")

# All files before the operation, and after it.
Operation = collections.namedtuple("Operation", "name arguments before after")
Outcome = collections.namedtuple("Outcome", "code boxes files")


def head_and_records(shipped, count):
    lines = shipped.read_bytes().splitlines(keepends=True)
    return b"".join(lines[:65]), lines[65:65 + count]


def numbered(records):
    return b"".join(b"%d,%s" % (number, record.split(b",", 1)[1]) for number, record in enumerate(records, 1))


def operations(head, records):
    """The figures stand where the game's Copy lays them, so that an appended copy differs in its number alone."""
    old = head + numbered(records)
    shorter = head + numbered(records[:1] + records[2:])
    removed = {COLLECTION: shorter, RESCUE: shorter}
    before = {COLLECTION: old, SETTINGS: b"QUILLET.qui\r\n 1500  1500  3000  3000 \r\n"}
    for name, arguments, more, changed in (
            ("append", ["append", "1", "0"], {}, {COLLECTION: head + numbered(records + records[:1])}),
            ("remove", ["remove", "2", "1"], {}, removed),
            ("remove again", ["remove", "2", "1"], {RESCUE: 2 * old}, removed),
            ("save as", ["saveas", TARGET], {}, {TARGET: old}),
            ("save over", ["saveas", TARGET], {TARGET: b"an older collection\r\n"}, {TARGET: old}),
            ("settings", ["settings"], {}, {SETTINGS: before[SETTINGS].replace(b"1500", b"1515", 1)})):
        yield Operation(name, arguments, before | more, before | more | changed)


def put(folder, files):
    folder.mkdir(exist_ok=True)
    for file in folder.iterdir():
        file.unlink()
    for name, content in files.items():
        (folder / name).write_bytes(content)
    return folder


def play(command, folder, operation):
    run = subprocess.run([*command, folder, *operation.arguments], cwd=folder, stdout=subprocess.PIPE,
                         timeout=60, check=False, restore_signals=False)  # a write beyond a limit fails, no more
    files = {file.name: file.read_bytes() for file in folder.iterdir()}
    return Outcome(run.returncode, run.stdout.decode().splitlines(), files)


def refused(outcome):
    return any(map(REFUSAL.match, outcome.boxes))


def faults(operation, outcome):
    """What is wrong with the outcome, in words. Whatever fails, all is done, or a message says that nothing was."""
    if outcome.code != 0:
        yield f"code {outcome.code}"
    wanted = operation.before if refused(outcome) else operation.after
    for name in wanted.keys() | outcome.files.keys():
        # Remove tells where it left the new content.
        rescued = name == RESCUE and outcome.files.get(name) == operation.after.get(name)
        if outcome.files.get(name) != wanted.get(name) and not rescued:
            yield f"{name} is {outcome.files.get(name)}"
    if operation.name == "save over" and not refused(outcome) and not any(map(OVERWRITE.match, outcome.boxes)):
        yield "written over without a question"
    for box in outcome.boxes:
        if not any(kind.match(box) for kind in (REFUSAL, OVERWRITE, QUESTION, REMARK)):
            yield f"an unknown box: {box}"


def told(operation, outcome, what):
    return [f"{operation.name}, {what}: {fault}; boxes {outcome.boxes}" for fault in faults(operation, outcome)]


def traced(program, operation, folder, *options):
    """Plays the operation under strace; its outcome, and the lines of the log between the operation's marks."""
    log = folder.with_suffix(".log")
    outcome = play(["strace", "-f", "-o", log, *options, program], put(folder, operation.before), operation)
    before, _, during = log.read_text().partition("-operation-begins")
    return outcome, before.splitlines(), during.partition("-operation-ends")[0].splitlines()[1:-1]


def name_of(line):
    return re.sub(r"^(\d+ +)?(\w*).*", r"\2", line)


def inject(program, operation, folder, call, number, error):
    outcome, _, during = traced(program, operation, folder, "-e", f"trace={call},access,faccessat",
                                "-e", f"inject={call}:error={error}:when={number}")
    found = told(operation, outcome, f"{call} {number} fails with {error}")
    if not any("(INJECTED)" in line for line in during):
        found.append(f"{operation.name}: {call} {number} was not met")
    # A change that is not on the disk is not done, unless it was tried again or in place.
    if call in ("pwrite64", "ftruncate") and error not in ("EINTR", "EACCES", "EROFS") and not refused(outcome):
        found.append(f"{operation.name}: the failure of {call} {number} was not told")
    return found, refused(outcome)


def run_injected(program, shipped, scratch):
    found = []
    with concurrent.futures.ThreadPoolExecutor(2) as workers:
        for operation in operations(*head_and_records(shipped, 5)):
            outcome, before, during = traced(program, operation, scratch / "plain", "-e", "trace=%file,%desc")
            found += told(operation, outcome, "nothing fails")
            counts, runs = collections.Counter(map(name_of, before)), []
            for call in map(name_of, during):
                counts[call] += 1
                runs += [workers.submit(inject, program, operation, scratch / f"{call}-{counts[call]}-{error}", call,
                                        counts[call], error) for error in ERRORS if call not in ("mmap", "close")]
            results = [run.result() for run in runs]
            found += [line for lines, _ in results for line in lines]
            refusals = sum(failed for _, failed in results)
            print(f"{operation.name}: {len(during)} calls, {len(runs)} runs, {refusals} failures told", flush=True)
            found += [] if 0 < refusals < len(runs) else [f"{operation.name}: the runs prove nothing"]
    return found


class Possible:
    """A content or the names of a folder: the newest state, and all states that a power cut may leave of it."""

    def __init__(self, state):
        self.newest, self.all = state, [state]

    def change(self, whole, *torn):
        self.all += [way(state) for state in self.all for way in (whole, *torn)]
        self.newest = whole(self.newest)

    def sync(self):
        self.all = [self.newest]


def write(at, data):
    return lambda content: content[:at].ljust(at, b"\0") + data + content[at + len(data):]


def torn_writes(at, data):
    """Only the beginning, only the end, or only the length is on the disk."""
    for cut in range(SECTOR, len(data), SECTOR):
        yield from (write(at, data[:cut]), write(at + cut, data[cut:]))
    yield write(at, bytes(len(data)))


def after_power_cuts(files, log):
    """For each call the states that a power cut behind it may leave: the contents that each name may lead to.

    Between two syncs each write is on the disk, or is not, or is torn, and each change of a name is there or is not.
    """
    names = Possible({name: Possible(content) for name, content in files.items()})
    opened = {}
    for line in log:
        call, arguments, result = re.match(r"(?:\d+ +)?(\w+)\((.*)\) += (-?\d+)", line).groups()
        texts = [text.encode().decode("unicode_escape") for text in re.findall('"([^"]*)"', arguments)]
        numbers = [int(number) for number in re.findall(r"\b\d+\b", re.sub('"[^"]*"', "", arguments))]
        paths = [os.path.basename(text) for text in texts]
        if int(result) < 0:
            continue
        if call == "openat":
            file = names.newest.get(paths[0], Possible(b"") if "O_CREAT" in arguments else names)
            if "O_CREAT" in arguments:
                names.change(lambda old, path=paths[0], file=file: old | {path: file})
            if "O_TRUNC" in arguments:
                file.change(lambda content: b"")
            opened[int(result)] = file
        elif call == "pwrite64":
            data = texts[0].encode("latin-1")[:int(result)]
            opened[numbers[0]].change(write(numbers[-1], data), *torn_writes(numbers[-1], data))
        elif call == "ftruncate":
            opened[numbers[0]].change(lambda content, length=numbers[1]: content[:length].ljust(length, b"\0"))
        elif call == "fsync":
            opened[numbers[0]].sync()
        elif call in ("rename", "unlink"):
            gone, *fresh = paths
            moved = {name: names.newest[gone] for name in fresh}
            names.change(lambda old, gone=gone, moved=moved: {name: old[name] for name in old if name != gone} | moved)
        elif call not in READING:
            raise ValueError(f"what a power cut may leave of this call is not known here: {line[:80]}")
        yield line[:40], [{name: set(old[name].all) for name in old} for old in names.all]


def lost_by_power_cut(operation, state, allowed):
    """What is lost if each name may lead to these contents, in words."""
    for name in operation.after.keys() | state.keys() - {FRESH}:
        if not state.get(name, {None}) <= {files.get(name) for files in allowed}:
            yield f"{name} is neither old nor new"
    changed = state[COLLECTION] != {operation.before[COLLECTION]}
    if changed and state.get(RESCUE, {None}) != {operation.after.get(RESCUE)}:
        yield f"the collection has changed before {RESCUE} was on the disk"


def run_power_cut(program, shipped, scratch):
    """Each file is its old or its new content. What is left beside them, the next operation removes."""
    found = []
    for operation in operations(*head_and_records(shipped, 100)):
        _, _, log = traced(program, operation, scratch / "cut", "-s", "1000000", "-e", "trace=%file,%desc")
        moments = list(after_power_cuts(operation.before, log))
        lost = [f"{operation.name}, power cut after {call}: {fault}" for call, states in moments for state in states
                for fault in lost_by_power_cut(operation, state, (operation.before, operation.after))]
        lost += [f"{operation.name}, power cut when all was done: {fault}" for state in moments[-1][1]
                 for fault in lost_by_power_cut(operation, state, (operation.after,))]
        count = sum(len(contents) for _, states in moments for state in states for contents in state.values())
        leftovers = {content for _, states in moments for state in states for content in state.get(FRESH, ())}
        for left in sorted(leftovers, key=len)[::8]:
            outcome = play([program], put(scratch / "left", operation.before | {FRESH: left}), operation)
            lost += told(operation, outcome, f"{len(left)} bytes left by a power cut")
        print(f"{operation.name}: {len(moments)} moments, {count} states, {len(lost)} lost", flush=True)
        found += lost + ([] if leftovers else [f"{operation.name}: the states prove nothing"])
    return found


def run_no_room(program, shipped, scratch):
    """No file can become longer than so many bytes: a write is cut short there, and the next one fails."""
    found, head, records = [], *head_and_records(shipped, 100)
    for operation in operations(head, records):
        limits = [0, 40, *range(512, len(head + numbered(records)) + 1024, 512)]
        outcomes = [(limit, play(["prlimit", f"--fsize={limit}", program], put(scratch / "tight", operation.before), operation))
                    for limit in limits]
        found += [fault for limit, outcome in outcomes for fault in told(operation, outcome, f"{limit} bytes")]
        refusals = sum(refused(outcome) for _, outcome in outcomes)
        print(f"{operation.name}: {len(limits)} limits, {refusals} failures told")
        found += [] if 0 < refusals < len(limits) else [f"{operation.name}: the limits prove nothing"]
    return found


def fight(program, shipped, scratch, shift):
    """One program appends, another removes from the front: each record tells its round by its corner."""
    rounds, first = 50, 5
    head, records = head_and_records(shipped, first)
    put(scratch, next(operations(head, records)).before)
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
    fights = 2000 if "QUILLETS_LONG" in os.environ else 20
    print(f"{fights} times 50 records appended while 50 were removed")
    return [fault for number in range(fights) for fault in fight(program, shipped, scratch, 1 + number % 20)]


def main():
    program, shipped, trial = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="quillets-faults-") as folder:
        found = globals()["run_" + trial](program, pathlib.Path(shipped), pathlib.Path(folder))
    print(*found[:40], f"{len(found)} faults", sep="\n")
    return 1 if found else 0


sys.exit(main())
