#!/usr/bin/env python3
"""Changes single operators and constants of the engines, one at a time, and reports which changes the tests find.

All mutants go into one build of a copy of the tree: each changed expression becomes `zr_mutant(N) ? changed : original`,
and the environment variable ZR_MUTANT selects one. A mutant is a row of a list: file, text of the line, which of the
lines with this text, which token of it, and what replaces the token; so a list drawn from one tree serves another.
"""
import argparse
import concurrent.futures
import contextlib
import csv
import json
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import threading
import typing

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLATFORM = "src/shared/platform/src"
FOLDERS = ["src/shared/zip", "src/shared/xml", f"{PLATFORM}/json", f"{PLATFORM}/readers", f"{PLATFORM}/check"]
OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-",
             "-": "+", "*": "/", "/": "*", "%": "/", "&": "|", "|": "&", "<<": ">>", ">>": "<<"}
TOKEN = re.compile(r"""(?P<skip>"(?:[^"\\]|\\.)*"|'(?:[^'\\]|\\.)*')|(?<= )(?P<operator>[-<>=!&|+*/%]{1,2})(?= )"""
                   r"""|(?<![\w.])(?P<number>0x[0-9a-fA-F]+|\d+)(?![\w.'])|\b(?P<name>k[A-Z]\w+)\b(?!::|\()""")
HEADER = """#pragma once
#include <cstdlib>
#pragma GCC diagnostic ignored "-Wtype-limits"
#pragma GCC diagnostic ignored "-Wsign-compare"
#pragma GCC diagnostic ignored "-Wparentheses"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wstringop-overflow"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wbool-compare"
#pragma GCC diagnostic ignored "-Wint-in-bool-context"
inline const int zr_selected_mutant = std::getenv("ZR_MUTANT") ? std::atoi(std::getenv("ZR_MUTANT")) : 0;
constexpr bool zr_mutant(int number) {
    return !__builtin_is_constant_evaluated() && zr_selected_mutant == number;
}
"""


class Mutant(typing.NamedTuple):
    file: str
    line: str
    occurrence: int
    token: int
    change: str


def code_of(line):
    return re.sub(r"\s*//.*", "", line).strip()


def expression(line):
    """The span of the one expression of a line that can be evaluated in two forms, or None."""
    found = re.search(r"\b(?:if|while) (\()", line)
    if found:
        start, depth, quote = found.end(), 1, None
        for at in range(start, len(line)):
            c = line[at]
            if quote:
                quote = None if c == quote and line[at - 1] != "\\" else quote
            elif c in "\"'":
                quote = c
            depth += 0 if quote else (c == "(") - (c == ")")
            if depth == 0:
                inside = line[start:at]
                return None if ";" in inside or re.search(r" = ", inside) else (start, at)
        return None
    found = re.match(r"\s*for \([^;]*; ([^;]+);", line)
    if found:
        return found.span(1)
    if re.match(r"\s*(?:static |inline )*constexpr ", line):
        return None
    found = re.search(r"(?:\breturn | [-+*|&]?= )([^;]+);$", line)
    if not found or "[&]" in line or "{" in found[1] or found[1].count("(") != found[1].count(")"):
        return None
    return found.span(1)


def candidates(tree, folder):
    for path in sorted((tree / folder).glob("*.*")):
        seen = {}
        for text in path.read_text().splitlines():
            line = code_of(text)
            occurrence = seen[line] = seen.get(line, -1) + 1
            span = expression(line)
            if not span:
                continue
            for token, found in enumerate(TOKEN.finditer(line, *span)):
                old = found[0]
                if found["number"]:
                    change = "1" if int(old, 0) == 0 else hex(int(old, 0) + 1) if "x" in old else str(int(old) + 1)
                elif found["name"]:
                    change = f"({old} + 1)"
                else:
                    change = OPERATORS.get(old) if found["operator"] else None
                if change:
                    yield Mutant(str(path.relative_to(tree)), line, occurrence, token, change)


def mutate(text, mutant, number):
    """The file's text with the mutant in it as number N; None when its line is no longer there."""
    lines, at = text.split("\n"), -1
    for index, line in enumerate(lines):
        if code_of(line) != mutant.line:
            continue
        at += 1
        if at != mutant.occurrence:
            continue
        start, end = expression(mutant.line)
        token = list(TOKEN.finditer(mutant.line, start, end))[mutant.token]
        old = mutant.line[start:end]
        new = mutant.line[start:token.start()] + mutant.change + mutant.line[token.end():end]
        lines[index] = f"{mutant.line[:start]}zr_mutant({number}) ? ({new}) : ({old}){mutant.line[end:]}"
        return "\n".join(lines)
    return None


class Tree:
    """The tree into which the mutants go: a copy of the tracked files, or the tree itself until `restore`."""

    def __init__(self, source, out, in_place):
        self.folder = folder = source if in_place else out / "tree"
        self.header = out / "mutant.h"
        self.before = {}
        out.mkdir(parents=True, exist_ok=True)
        self.header.write_text(HEADER)
        files = subprocess.run(["git", "-C", source, "ls-files"], capture_output=True, text=True, check=True).stdout
        for file in filter(lambda name: not in_place and (source / name).is_file(), files.splitlines()):
            if not (folder / file).exists() or (folder / file).read_bytes() != (source / file).read_bytes():
                (folder / file).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source / file, folder / file)
        self.environment = dict(os.environ, CCACHE_BASEDIR=str(folder), CCACHE_NOHASHDIR="1", GTEST_FAIL_FAST="1")
        self.run("cmake", "--preset", "release", check=True)
        self.commands = {c["file"]: c["command"] for c in
                         json.loads((folder / "build/release/compile_commands.json").read_text())}

    def run(self, *command, check=False, **environment):
        return subprocess.run(command, cwd=self.folder, env=self.environment | environment, capture_output=True,
                              text=True, check=check)

    def compiles(self, file):
        source = str(self.folder / file)
        if source not in self.commands:
            include = '"' + "/".join(pathlib.Path(file).parts[-2:]) + '"'
            source = next((s for s in self.commands if include in pathlib.Path(s).read_text()), None)
        return source and subprocess.run(self.commands[source] + " -fsyntax-only", shell=True, capture_output=True,
                                         cwd=self.folder / "build/release").returncode == 0

    def add(self, mutant, number):
        """Puts the mutant in; false when its line is gone or it does not compile."""
        path = self.folder / mutant.file
        before = path.read_text() if path.exists() else ""
        after = mutate(before, mutant, number)
        if after is None:
            return False
        self.before.setdefault(path, before)
        include = f'#include "{self.header}"\n'
        path.write_text(after if before.startswith(include) else include + after)
        if self.compiles(mutant.file):
            return True
        path.write_text(before)
        return False

    def restore(self):
        for path, text in self.before.items():
            path.write_text(text)


def draw(tree, source, count, seed, skip):
    chance, mutants = random.Random(seed), []
    pools = {folder: [m for m in candidates(source, folder) if not (skip and re.search(skip, m.file))]
             for folder in FOLDERS}
    for pool in pools.values():
        chance.shuffle(pool)
    while len(mutants) < count and any(pools.values()):
        for pool in pools.values():
            while pool and len(mutants) < count:
                mutant = pool.pop()
                if any(m.file == mutant.file and m.line == mutant.line for m in mutants):
                    continue
                if tree.add(mutant, len(mutants) + 1):
                    mutants.append(mutant)
                    break
    return mutants


def limit_resources():
    resource.setrlimit(resource.RLIMIT_FSIZE, (8 << 30, 8 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    os.nice(5)


def tests_of(tree):
    """Seconds of each test of the unchanged program; all must pass."""
    result = tree.run("ctest", "--test-dir", "build/release", "-LE", "long")
    times = {name: float(seconds) for name, status, seconds in
             re.findall(r"Test +#\d+: (\S+) \.+ +(Passed|\*\*\*.*?) +([\d.]+) sec", result.stdout)}
    if result.returncode:
        sys.exit(result.stdout[-3000:])
    times.pop("pack_samples", None)
    return times


def order_of(times, file, rooms):
    """The mutated room's own tests first, then the later rooms in their order, then the rest, the quickest first."""
    own = rooms.index(pathlib.Path(file).parent.name)
    names = [room for room in rooms[own:] if room in times]
    return names + sorted((n for n in times if n not in rooms), key=times.get) + [r for r in rooms[:own] if r in times]


def finder(tree, number, names, times, rooms, one_at_a_time):
    """The first test that finds the mutant. Tests of the finished library share the packed samples."""
    for name in names:
        with contextlib.nullcontext() if name in rooms else one_at_a_time:
            result = subprocess.run(["ctest", "--test-dir", "build/release", "-R", f"^{name}$", "--timeout",
                                     str(int(8 * times[name] + 30))], cwd=tree.folder, capture_output=True,
                                    env=tree.environment | {"ZR_MUTANT": str(number)}, preexec_fn=limit_resources)
        if result.returncode:
            return name
    return ""


def run(tree, options):
    if options.list:
        with options.list.open(newline="") as file:
            mutants = [Mutant(r[1], r[2], int(r[3]), int(r[4]), r[5]) for r in csv.reader(file, delimiter="\t")]
        gone = [n for n, mutant in enumerate(mutants, 1) if not tree.add(mutant, n)]
    else:
        mutants, gone = draw(tree, options.tree, options.count, options.seed, options.skip), []
    with (options.out / "list.tsv").open("w", newline="") as file:
        csv.writer(file, delimiter="\t").writerows((n, *m) for n, m in enumerate(mutants, 1))
    print(f"{len(mutants)} mutants, {len(gone)} of them not in this tree", flush=True)

    build = tree.run("cmake", "--build", "build/release", "-j", "2")
    if build.returncode:
        sys.exit(build.stdout[-3000:])
    times = tests_of(tree)
    rooms = re.findall(r"^[a-z]+", (options.tree / "rooms.txt").read_text(), re.M)
    lock = threading.Lock()
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        found = {n: pool.submit(finder, tree, n, order_of(times, m.file, rooms), times, rooms, lock)
                 for n, m in enumerate(mutants, 1) if n not in gone}
        with (options.out / "found.tsv").open("w", newline="") as file:
            rows = csv.writer(file, delimiter="\t")
            for number, mutant in enumerate(mutants, 1):
                by = found[number].result() if number in found else "(not in this tree)"
                rows.writerow((number, by or "SURVIVES", *mutant))
                file.flush()
                print(number, by or "SURVIVES", mutant.file, mutant.line, "->", mutant.change, flush=True)
    survivors = sum(not f.result() for f in found.values())
    print(f"{len(found) - survivors} of {len(found)} mutants found")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--count", type=int, default=60)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--list", type=pathlib.Path, help="take the mutants of this list in place of new ones")
    arguments.add_argument("--skip", help="draw none from files that match this expression")
    arguments.add_argument("--tree", type=pathlib.Path, default=ROOT)
    arguments.add_argument("--out", type=pathlib.Path, default=ROOT / "build/mutants")
    arguments.add_argument("--in-place", action="store_true", help="change the tree itself and restore it at the end")
    options = arguments.parse_args()
    tree = Tree(options.tree, options.out, options.in_place)
    try:
        run(tree, options)
    finally:
        tree.restore()


if __name__ == "__main__":
    main()
