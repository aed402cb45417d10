#!/usr/bin/env python3
"""Runs every type of step that touches the disk through vekrun, kills it or has one of its system calls fail,
and looks at the disk: whatever happens, a file is the old one or the new one, nothing is lost, success is
claimed for nothing but the whole work, and the next run clears away what a killed one left."""

import argparse
import collections
import concurrent.futures
import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.dont_write_bytecode = True
from scenarios import SCENARIOS

LONG_AGO = 1_100_000_000  # the time of every file that a step finds
PATIENCE = 60  # seconds after which a run hangs
ERRORS = ("EIO", "EACCES", "EINTR")
TAKES_SPACE = re.compile(r"write|openat|rename|link|mkdir|ftruncate|sync|close|copy_file_range|sendfile|setxattr")
CALL = re.compile(r"^(\d+) +(\w+)\((\d*)")
# Memory and threads, what cannot fail, and what strace has no name for.
LEFT_OUT = re.compile(r"^(mmap|munmap|mprotect|brk|futex|rt_\w+|exit\w*|execve|clone\w*|madvise|set_\w+|gettid|getpid|"
                      r"rseq|prlimit64|tgkill|restart_syscall|sched_\w+|clock_\w+|syscall_\w+)$")


class Fault(Exception):
    pass


def snapshot(disk):
    """The text, mode and time of each file by its path; folders end in "/"."""
    found = {}
    for folder, folders, files in os.walk(disk):
        for name in folders:
            found[os.path.relpath(os.path.join(folder, name), disk) + "/"] = (None, None, None)
        for name in files:
            path = os.path.join(folder, name)
            status = os.stat(path)
            kept_time = status.st_mtime if status.st_mtime < LONG_AGO + 10**8 else None
            with open(path, "rb") as file:
                found[os.path.relpath(path, disk)] = (file.read(), status.st_mode & 0o777, kept_time)
    return found


def is_temporary(path):
    return os.path.basename(path.rstrip("/")).startswith(".vek-")


def is_journal(path):
    """What the registry adds to, and folds into its file now and then; a torn end does not count."""
    return path.endswith(".journal")


class Try:
    def __init__(self, scenario, vekrun, folder):
        self.scenario, self.folder = scenario, Path(folder)
        self.disk = self.folder / "disk"
        self.log = self.folder / "log"
        self.command = [vekrun, "run", str(self.folder / "p.vekproj"), "--strict", "--log-format", "jsonl", "--log",
                        str(self.log), "--option", f"Registry.File={self.disk / 'r.reg'}"]
        self.environment = os.environ | {"HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder / "data")}
        (self.folder / "p.vekproj").write_text(scenario.project())
        for path, text in scenario.disk.items():
            file = self.disk / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(text.encode())
            os.utime(file, (LONG_AGO, LONG_AGO))
        self.before = snapshot(self.disk)

    def run(self, prefix=(), kill_after=None):
        """Answers the exit code and the events."""
        self.log.unlink(missing_ok=True)
        process = subprocess.Popen([*prefix, *self.command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE, env=self.environment, start_new_session=True)
        try:
            if kill_after is not None:
                time.sleep(kill_after)
                process.kill()
            self.errors = process.communicate(timeout=PATIENCE)[1].decode(errors="replace")
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            process.communicate()
            raise Fault("hangs") from None
        lines = self.log.read_text(errors="replace").splitlines() if self.log.exists() else []
        events = []
        for line in lines:
            try:
                events.append(json.loads(line.replace(str(self.folder), "")))
            except ValueError:
                break  # the end of a killed run's log
        return process.returncode, events


def said(events):
    """What a step tells, without times."""
    return [(e["event"], e.get("text"), e.get("lines"), e.get("name"), e.get("value")) for e in events
            if e["event"] in ("message", "status", "variable")]


class Baseline:
    """A run without faults: what it leaves, what it says, and the system calls in which the step does its work."""

    def __init__(self, scenario, vekrun):
        with tempfile.TemporaryDirectory(prefix="vek-faults-") as folder:
            one = Try(scenario, vekrun, folder)
            start = time.monotonic()
            code, events = one.run()
            self.seconds = time.monotonic() - start
            if code != 0:
                sys.exit(f"{scenario.type} {scenario.properties}: fails without a fault: {one.errors}{said(events)}")
            self.before, self.after, self.said = one.before, snapshot(one.disk), said(events)
            if (self.before == self.after) != scenario.reads:
                sys.exit(f"{scenario.type} {scenario.properties}: leaves the wrong disk without a fault")
            trace = os.path.join(folder, "trace")
            again = Try(scenario, vekrun, tempfile.mkdtemp(dir=folder))
            code, _ = again.run(["strace", "-f", "-qq", "-o", trace])
            if code != 0:
                sys.exit(f"cannot trace: {again.errors}")
            self.calls = self.count_calls(Path(trace).read_text(errors="replace").splitlines())

    @staticmethod
    def count_calls(lines):
        """(name, number) of each call of the main thread after the build has begun."""
        main = lines[0].split()[0]
        counts, calls, log, begun = collections.Counter(), [], None, False
        for line in lines:
            found = CALL.match(line)
            if not found or found[1] != main:
                continue
            counts[found[2]] += 1
            if '{\\"event\\":\\"build-start' in line:
                begun, log = True, found[3]
            elif begun and not LEFT_OUT.match(found[2]) and not (log == found[3] and found[2] == "write"):
                calls.append((found[2], counts[found[2]]))
            if '\\"build-end' in line:
                break
        return calls


def check_disk(one, base, succeeded, killed=False):
    now = snapshot(one.disk)
    for path, (text, *_) in now.items():
        if is_temporary(path):
            continue
        allowed = [state[path][0] for state in (base.before, base.after) if path in state]
        if killed and one.scenario.appends and len(allowed) == 2 and allowed[1].startswith(text) and \
                text.startswith(allowed[0]):
            continue
        if text not in allowed and not is_journal(path):
            raise Fault(f"{path} is neither the old nor the new one ({len(text or b'')} bytes)")
    for path in base.before.keys() & base.after.keys() - now.keys():
        raise Fault(f"{path} is lost")
    texts = {state[0] for state in now.values()}
    kept = {s[0] for s in base.before.values()} & {s[0] for s in base.after.values()}
    if not kept <= texts:
        raise Fault("the contents of a file are lost")
    if succeeded and not any(is_journal(path) for path in now):
        for path in base.after.keys() | now.keys():
            if now.get(path) != base.after.get(path):
                raise Fault(f"success is claimed, but {path} is not as it should be")


def check_outcome(one, base, code, events):
    if code not in (0, 1, 2):
        raise Fault(f"exit code {code}: {one.errors[-300:]}")
    if code == 2 and any(e["event"] == "action-start" for e in events):
        raise Fault(f"exit code 2 although steps ran: {one.errors[-300:]}")
    ends = [e["result"] for e in events if e["event"] == "build-end"]
    if "cannot write the log" not in one.errors and code != 2 and ends != ["success" if code == 0 else "failure"]:
        raise Fault(f"exit code {code}, but the log ends with {ends}")
    if code == 1 and not one.errors and not any(e.get("errors") for e in events):
        raise Fault("fails without a word")
    if code == 0 and one.scenario.reads and said(events) != base.said:
        raise Fault(f"success is claimed, but it said {said(events)}")


def check_next_run(one, base):
    """The next run that writes where a killed one did clears away what that one left."""
    code, events = one.run()
    if one.scenario.repeats:
        if code != 0:
            raise Fault(f"the next run fails: {one.errors}{said(events)}")
        check_disk(one, base, not one.scenario.reads)
    left = {os.path.dirname(path) for path in snapshot(one.disk) if is_temporary(path)}
    for folder in left:
        subprocess.run([one.command[0], "exec", "-q", "HCREATEFILE", f"NewFileName={one.disk / folder / 'next'}"],
                       check=True, env=one.environment, stdout=subprocess.DEVNULL)
    left = [path for path in snapshot(one.disk) if is_temporary(path)]
    if left:
        raise Fault(f"left behind: {left}")


def plan(base, rng):
    """How the try is spoiled: what strace is told, or seconds after which it is killed."""
    kind = rng.choice(("kill", "kill at", "fail", "fail"))
    if kind == "kill":
        return kind, None, rng.uniform(0, base.seconds)
    name, number = rng.choice(base.calls)
    errors = ERRORS + (("ENOSPC",) if TAKES_SPACE.search(name) else ())
    what = "signal=KILL" if kind == "kill at" else f"error={rng.choice(errors)}"
    return kind, f"inject={name}:{what}:when={number}", None


def attempt(scenario, base, vekrun, rng, keep):
    kind, injection, seconds = plan(base, rng)
    folder = tempfile.mkdtemp(prefix="vek-faults-")
    one = Try(scenario, vekrun, folder)
    told = injection or f"killed after {seconds:.4f} s"
    fault = None
    try:
        prefix = ["strace", "-f", "-qq", "-o", os.path.join(folder, "trace"), "-e", injection] if injection else []
        code, events = one.run(prefix, seconds)
        killed = code in (-9, 137)
        if killed and kind == "fail":
            raise Fault("was killed")
        if not killed:
            check_outcome(one, base, code, events)
        check_disk(one, base, code == 0, killed)
        check_next_run(one, base)
    except Fault as error:
        fault = f"{scenario.type} {scenario.properties}: {told}: {error}"
        if keep:
            fault += f" ({folder})"
    if not (fault and keep):
        shutil.rmtree(folder, ignore_errors=True)
    return kind, fault


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("vekrun")
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--tries", type=int, help="so many instead of so long")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6))
    parser.add_argument("--type", help="this type alone")
    parser.add_argument("--keep", action="store_true", help="keep the folders of failures")
    options = parser.parse_args()

    scenarios = [s for s in SCENARIOS if options.type in (None, s.type)]
    workers = concurrent.futures.ThreadPoolExecutor(os.cpu_count())
    start = time.monotonic()
    bases = list(workers.map(lambda s: Baseline(s, options.vekrun), scenarios))
    tries, faults = collections.defaultdict(collections.Counter), []

    def one_try(number):
        if options.tries is None and time.monotonic() - start > options.seconds:
            return False
        index = number % len(scenarios)
        rng = random.Random(f"{options.seed}/{number}")
        kind, fault = attempt(scenarios[index], bases[index], options.vekrun, rng, options.keep)
        tries[scenarios[index].type][kind] += 1
        if fault:
            tries[scenarios[index].type]["failures"] += 1
            faults.append(f"try {number}: {fault}")
        return True

    numbers = range(options.tries or 10**6)
    batch = 8 * os.cpu_count()
    for first in range(0, len(numbers), batch):
        if not all(workers.map(one_try, numbers[first:first + batch])):
            break

    print(f"{'type':22}{'killed':>8}{'at calls':>10}{'failed calls':>14}{'failures':>10}")
    rows = [(name, [count[k] for k in ("kill", "kill at", "fail", "failures")]) for name, count in tries.items()]
    rows.append(("all", [sum(column) for column in zip(*(numbers for _, numbers in rows))]))
    for name, (killed, at_calls, failed, failures) in rows:
        print(f"{name:22}{killed:8}{at_calls:10}{failed:14}{failures:10}")
    for fault in faults:
        print(fault)
    print(f"seed {options.seed}: {sum(rows[-1][1][:3])} tries, {len(faults)} failures")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
