"""mutate.py BUILD COUNT: do the native tests notice small changes of the platform-free code?

BUILD is a configured and built tree of the preset "mutation"; COUNT mutants are taken evenly from
all that there are, besides those listed as equivalent. Every one is compiled from a copy below BUILD
and linked with the untouched objects; it is killed when a test fails, dies or runs too long.
"""

import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import threading
import time
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.dont_write_bytecode = True
# The long random comparisons would only take time here.
os.environ["TEV_TEST_EFFORT"] = "little"

from mutants import mutants  # noqa: E402

ROOT = Path(__file__).resolve().parent.parent
EQUIVALENT = ROOT / "tests/mutation/equivalent.txt"
PURE = re.compile(r"TEVSystemLib/.*detail/[^/]+")
PROGRAM = "bin/test_pure"
WORKERS = 2
# In seconds of the processor, so that a busy machine kills nothing; then in all.
CPU_SECONDS = 10
TIMEOUT_SECONDS = 300
LIMITED = ["prlimit", f"--cpu={CPU_SECONDS}", f"--as={2 << 30}"]


def fail(message):
    sys.exit(f"tev: {message}")


def run(command, folder, seconds=None):
    try:
        return subprocess.run(
            command, cwd=folder, timeout=seconds, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, check=False,
        ).returncode
    except subprocess.TimeoutExpired:
        return -1


class Build:
    """How the program is made: its objects, what each is read from, the commands."""

    def __init__(self, folder):
        self.folder = folder
        entries = json.loads((folder / "compile_commands.json").read_text())
        commands = [shlex.split(entry["command"]) for entry in entries]
        self.compile = {words[words.index("-o") + 1]: words for words in commands}
        self.users = defaultdict(set)
        for stanza in self.ninja("-t", "deps").split("\n\n"):
            target, _, read = stanza.strip().partition(": #deps")
            if target not in self.compile:
                continue
            for line in read.splitlines()[1:]:
                path = os.path.relpath(folder / line.strip(), ROOT)
                if PURE.fullmatch(path):
                    self.users[path].add(target)
        link = self.ninja("-t", "commands", "-s", PROGRAM)
        self.link = shlex.split(link.partition("&&")[2].rpartition("&&")[0])
        # Linked one by one, not from the archive.
        self.pure = [target for target in self.compile if "/tev_pure.dir/" in target]

    def ninja(self, *words):
        return subprocess.run(
            ["ninja", *words], cwd=self.folder, capture_output=True, text=True, check=True
        ).stdout

    def files(self):
        return sorted(file for file, users in self.users.items() if users & set(self.pure))


class Worker(threading.local):
    """A thread's own copy of the sources and its own program."""

    def __init__(self, build):
        self.build = build
        self.folder = build.folder / f"worker-{threading.get_ident()}"
        shutil.copytree(ROOT / "TEVSystemLib", self.folder / "TEVSystemLib")

    def verdict(self, mutant):
        copy = self.folder / mutant.file
        text = copy.read_text()
        copy.write_text(text[: mutant.start] + mutant.text + text[mutant.end :])
        try:
            return self.judge(mutant.file)
        finally:
            copy.write_text(text)

    def judge(self, file):
        changed = {}
        for target in sorted(self.build.users[file]):
            changed[target] = str(self.folder / f"{len(changed)}.o")
            if run(self.compile_command(target, changed[target]), self.build.folder) != 0:
                return "stillborn"
        program = str(self.folder / "test")
        link = self.link_command(changed, program, Path(file).stem)
        if run(link, self.build.folder) != 0:
            return "stillborn"
        test = [*LIMITED, program, "--gtest_fail_fast", "--gtest_brief=1"]
        return "survivor" if run(test, self.folder, TIMEOUT_SECONDS) == 0 else "killed"

    def compile_command(self, target, output):
        command = list(self.build.compile[target])
        command[command.index("-o") + 1] = output
        source = Path(command[-1])
        if source.is_relative_to(ROOT / "TEVSystemLib"):
            command[-1] = str(self.folder / source.relative_to(ROOT))
        return [command[0], f"-I{self.folder}", *command[1:]]

    def link_command(self, changed, program, stem):
        words = []
        for word in self.build.link:
            words += self.build.pure if word.endswith("libtev_pure.a") else [word]
        # Tests run in the order of their objects: those most likely to notice come first.
        own = [word for word in words if word.endswith(f"/{stem}_test.cpp.o")]
        words = [words[0], *own, *(word for word in words[1:] if word not in own)]
        command = [changed.get(word, word) for word in words]
        command[command.index("-o") + 1] = program
        return command


def equivalents():
    """The reviewed mutants that no test can notice: (file, before, after) of each."""
    known = set()
    for stanza in EQUIVALENT.read_text().split("\n\n"):
        lines = [line for line in stanza.splitlines() if not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 4 or lines[1][:2] != "- " or lines[2][:2] != "+ ":
            fail(f"{EQUIVALENT}: a stanza is a file, '- before', '+ after', a reason; not\n{stanza}")
        known.add((lines[0], lines[1][2:], lines[2][2:]))
    return known


def key(mutant):
    return mutant.file, mutant.before, mutant.after


def show(mutant, verdict):
    print(f"{verdict} {mutant.file}:{mutant.line}\n- {mutant.before}\n+ {mutant.after}", flush=True)


def evenly(candidates, count):
    count = min(count, len(candidates))
    return [candidates[at * len(candidates) // count] for at in range(count)]


def main():
    folder, count = Path(sys.argv[1]).resolve(), int(sys.argv[2])
    os.nice(10)
    os.environ["CCACHE_DISABLE"] = "1"
    began = time.monotonic()
    build = Build(folder)
    for old in folder.glob("worker-*"):
        shutil.rmtree(old)
    everything = [
        mutant for file in build.files() for mutant in mutants(file, (ROOT / file).read_text())
    ]
    known = equivalents()
    unknown = known - {key(mutant) for mutant in everything}
    if unknown:
        fail(f"{EQUIVALENT}: no such mutant any more: {' | '.join(sorted(unknown)[0])}")

    worker = Worker(build)
    if worker.judge(everything[0].file) != "survivor":
        fail(f"the tests fail without a mutation; run {folder / PROGRAM} and mend them")
    tally = Counter()
    chosen = evenly(everything, count)
    chosen += [each for each in everything if key(each) in known and each not in chosen]
    with ThreadPoolExecutor(WORKERS) as pool:
        for mutant, verdict in zip(chosen, pool.map(lambda each: worker.verdict(each), chosen)):
            if key(mutant) in known:
                verdict = "equivalent" if verdict == "survivor" else "wrongly excused"
            if verdict in ("survivor", "wrongly excused"):
                show(mutant, verdict)
            tally[verdict] += 1
    if tally["stillborn"] * 10 > len(chosen):
        fail(f"{tally['stillborn']} of {len(chosen)} mutants did not compile: is the disk full?")
    tried = len(chosen) - tally["stillborn"]
    print(
        f"{tried} mutants of {len(everything)} (and {tally['stillborn']} that do not compile) in "
        f"{time.monotonic() - began:.0f} s: {tally['killed']} killed, {tally['equivalent']} "
        f"equivalent, {tally['wrongly excused']} wrongly excused, {tally['survivor']} survivors"
    )
    sys.exit(tally["survivor"] + tally["wrongly excused"] > 0)


if __name__ == "__main__":
    main()
