#!/usr/bin/env python3
"""Tests the tests: changes one place of the library, insight or the tool at a time and runs the tests against it.

    scripts/mutate.py [--count N] [--seed S] [--jobs J] [--file PART]

Builds copies of the project below build/mutate. A mutant is caught when a test fails, crashes or hangs; one that does
not compile does not count. Prints the survivors and the share that was caught, for each folder and in all."""
import argparse
import concurrent.futures
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("document", "document/parsing", "host", "description", "core", "occupant", "vision", "safety", "insight", "tools/melkcfg")

# What is changed: a name for the kind, what to look for in a line, and what to put there.
SWAPS = [
    ("comparison", r" == ", " != "),
    ("comparison", r" != ", " == "),
    ("comparison", r" < ", " <= "),
    ("comparison", r" <= ", " < "),
    ("comparison", r" > ", " >= "),
    ("comparison", r" >= ", " > "),
    ("condition", r" && ", " || "),
    ("condition", r" \|\| ", " && "),
    ("condition", r"\bif \(!", "if ("),
    ("kind", r"\bLength(?=[<(])", "Angle"),
    ("kind", r"\bAngle(?=[<(])", "Length"),
    ("kind", r"\bMillimetres(?=[<(])", "Metres"),
    ("kind", r"\bMetres(?=[<(])", "Millimetres"),
    ("unit", r'"mm"', '"cm"'),
    ("unit", r'"deg"', '"rad"'),
    ("default", r", (?:Keep|Skip|Repeat|Fail)(?=[,)])", ""),
    ("default", r", Else\([^()]*\)", ""),
    ("default", r" = true\b", " = false"),
    ("default", r" = false\b", " = true"),
    ("place", r"VEXMELKPlace::AnyDepth", "VEXMELKPlace::Child"),
    ("result", r"\breturn 1;", "return 0;"),
    ("result", r"\breturn 0;", "return 1;"),
    ("result", r"\breturn true;", "return false;"),
    ("result", r"\breturn false;", "return true;"),
    ("number", r"\b100\.0\b", "10.0"),
    ("number", r"\b0x[0-9A-F]{6}\b", "0x123456"),
]
# What is taken out: a statement.
REMOVALS = [
    ("statement", re.compile(r"^\s+[\w.\->\[\]]+ = [^{}]*;(\s*//.*)?$")),
    ("statement", re.compile(r"^\s+[\w.\->]+\([^{}]*\);(\s*//.*)?$")),
]


def mutants_of(path):
    lines = path.read_text().splitlines(keepends=True)
    for number, line in enumerate(lines):
        code = line.split("//")[0]
        if code.lstrip().startswith("#"):
            continue
        for kind, pattern, replacement in SWAPS:
            for match in re.finditer(pattern, code):
                new = replacement[match.group(1)] if isinstance(replacement, dict) else match.expand(replacement)
                yield kind, number, line[: match.start()] + new + line[match.end() :]
        for kind, pattern in REMOVALS:
            if pattern.match(line.rstrip("\n")) and "return" not in line:
                yield kind, number, "\n"


def chosen(count, seed, part):
    """The same number from every folder as far as there are so many."""
    by_folder = {}
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).glob("*.cpp")):
            if part in str(path):
                mutants = [(path.relative_to(ROOT), *mutant) for mutant in mutants_of(path)]
                by_folder.setdefault(folder, []).extend(mutants)
    generator = random.Random(seed)
    for mutants in by_folder.values():
        generator.shuffle(mutants)
    picked = []
    while len(picked) < count and any(by_folder.values()):
        picked += [mutants.pop() for mutants in by_folder.values() if mutants]
    return picked[:count]


class Worker:
    def __init__(self, number):
        self.source = ROOT / f"build/mutate/{number}/source"
        self.build = ROOT / f"build/mutate/{number}/build"
        shutil.rmtree(self.source.parent, ignore_errors=True)
        files = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout.split("\n")
        for file in filter(None, files):
            if (ROOT / file).exists():
                (self.source / file).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(ROOT / file, self.source / file)
        options = ["-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DCMAKE_UNITY_BUILD=ON",
                   "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"]  # a mutant that hangs is caught, not invalid
        subprocess.run(["cmake", "-S", self.source, "-B", self.build, *options], check=True, stdout=subprocess.DEVNULL)
        if not self.compiles():
            raise SystemExit("the project itself does not build")
        if self.fails():
            raise SystemExit("the tests fail without any mutant")

    def compiles(self):
        built = subprocess.run(["ninja", "-C", self.build, "melk_tests", "melkcfg"], capture_output=True, text=True)
        self.said = built.stdout[-2000:]
        return built.returncode == 0

    def fails(self):
        environment = dict(os.environ, GTEST_FAIL_FAST="1")
        try:
            command = [self.build / "bin/melk_tests", "--gtest_brief=1"]
            return subprocess.run(command, env=environment, capture_output=True, timeout=120).returncode != 0
        except subprocess.TimeoutExpired:
            return True

    def run(self, mutant):
        path, _, number, line = mutant
        original = (ROOT / path).read_text()
        lines = original.splitlines(keepends=True)
        lines[number] = line
        (self.source / path).write_text("".join(lines))
        compiles = self.compiles()
        result = "invalid" if not compiles else "caught" if self.fails() else "survived"
        (self.source / path).write_text(original)
        if not compiles and not self.compiles():
            raise SystemExit("the unchanged project no longer builds:\n" + self.said)
        return result


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=250)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--file", default="", help="only files whose path contains this")
    options = parser.parse_args()
    mutants = chosen(options.count, options.seed, options.file)
    workers = queue.Queue()
    for number in range(options.jobs):
        workers.put(Worker(number))

    def run(mutant):
        worker = workers.get()
        try:
            return worker.run(mutant)
        finally:
            workers.put(worker)

    totals = {}
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for mutant, result in zip(mutants, pool.map(run, mutants)):
            path, kind, number, line = mutant
            totals.setdefault(str(path.parent), {"caught": 0, "survived": 0, "invalid": 0})[result] += 1
            if result == "survived":
                print(f"survived: {path}:{number + 1} ({kind}): {line.strip() or '(removed)'}", flush=True)
    print(f"\n{'folder':18}{'caught':>8}{'survived':>10}{'invalid':>9}")
    for folder, counts in sorted(totals.items()):
        print(f"{folder:18}{counts['caught']:8}{counts['survived']:10}{counts['invalid']:9}")
    caught = sum(counts["caught"] for counts in totals.values())
    survived = sum(counts["survived"] for counts in totals.values())
    print(f"{caught} of {caught + survived} mutants caught: {100.0 * caught / max(caught + survived, 1):.1f} %")


main()
