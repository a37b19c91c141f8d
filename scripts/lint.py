#!/usr/bin/env python3
"""The project's rules that a compiler does not check: the order of rooms, the two staircases, the page of public headers,
clang-tidy."""
import multiprocessing.pool
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PLATFORM = ROOT / "src/shared/platform/src"

# Operations that are declared with their class but defined in a later room, which they need. No third group.
STAIRCASES = {
    "repairing an hpfm while it is extracted": ("readers", ["HTEQHardwarePlatform::extractHPFMFile"]),
    "reconfigurable-module archives": (
        "loading",
        ["HTEQHardwarePlatform::getNodeIDFromLfa", "HTEQHardwarePlatform::isValidRmLfa",
         "HTEQHardwarePlatform::validateRmLfaFiles", "HTEQHardwarePlatform::createHwDb"],
    ),
}

# Maximum lines of test code per 100 lines of code: for rooms that are not listed, and for each listed room.
SHARE = 30
SHARES = {
    "zip": 46, "util": 46, "hwdb": 40, "archive": 48, "readers": 54, "loading": 60,
    "capi": 50, "policy": 38,
}
# Tests in a folder of another name, and tests of the library as a whole.
TESTS_OF = {"c": "capi", "cli": "tools"}
OF_THE_WHOLE = ["faults", "growth", "hostile", "hosts", "jvm", "samples", "threads", "use"]


def read_rooms():
    """Rooms in order: name -> (rank, folder, header-only public headers)."""
    rooms = {}
    for line in (ROOT / "rooms.txt").read_text().splitlines():
        if re.match("[a-z]", line):
            name, kind, *headers = line.split()
            folder = ROOT / "src/shared" / name if kind == "service" else PLATFORM / name
            rooms[name] = (len(rooms), folder, set(headers))
    return rooms


def public_headers(rooms):
    """Room of each public header: that of the source with its name, else the room whose line lists it."""
    owner = {}
    for name, (_, folder, headers) in rooms.items():
        for source in folder.glob("*.cpp"):
            owner[source.stem] = name
        for header in headers:
            owner[header] = name
    result, problems = {}, []
    for header in sorted((ROOT / "include").rglob("*.h*")):
        if header.stem in owner:
            result[str(header.relative_to(ROOT / "include"))] = owner[header.stem]
        else:
            problems.append(f"{header.relative_to(ROOT)}: no room has a source with this name; list it in rooms.txt")
    return result, problems


def room_of_include(name, public, rooms):
    if name in public:
        return public[name]
    for room, (_, folder, _) in rooms.items():
        if name.split("/")[0] == room and (folder / pathlib.PurePath(name).name).exists():
            return room
    return None


def check_includes(rooms, public):
    problems = []
    files = [(path, room) for room, (_, folder, _) in rooms.items() for path in folder.glob("*.[hc]*")]
    files += [(ROOT / "include" / name, room) for name, room in public.items()]
    for path, room in files:
        for number, line in enumerate(path.read_text().splitlines(), 1):
            match = re.match(r'#include "([^"]+)"', line)
            if not match:
                continue
            target = room_of_include(match[1], public, rooms)
            place = f"{path.relative_to(ROOT)}:{number}"
            if target is None:
                problems.append(f"{place}: no room has {match[1]}")
            elif rooms[target][0] > rooms[room][0]:
                problems.append(f"{place}: room {room} is above {target} and may not include {match[1]}")
    return problems


def check_staircases(rooms):
    """Each listed operation is defined in its room, and no class of an earlier room has other operations there."""
    problems = []
    hardware = {path.stem for path in rooms["hardware"][1].glob("*.h*")} | {
        path.stem for path in rooms["hardware"][1].glob("*.cpp")}
    for what, (room, operations) in STAIRCASES.items():
        found = set()
        for source in rooms[room][1].glob("*.cpp"):
            for match in re.finditer(r"^[\w:<>,&* ]*?\b(\w+)::(~?\w+)\(.*$", source.read_text(), re.M):
                if match[1] in hardware and not match[0].startswith(" "):
                    found.add(f"{match[1]}::{match[2]}")
        for operation in sorted(set(operations) - found):
            problems.append(f"{operation} ({what}) is not defined in room {room}")
        for operation in sorted(found - set(operations)):
            problems.append(f"{operation} is defined in room {room}: not one of the listed exceptions")
    return problems


def check_header_page():
    import headers  # which imports this file

    page, problems = headers.page()
    if not headers.PAGE.exists() or headers.PAGE.read_text() != page:
        problems.append("docs/headers.md is not current: run ./dev docs")
    return problems


def check_named_tests():
    """The tests that the documents name exist."""
    tests = "\n".join(path.read_text() for path in (ROOT / "tests").rglob("*_test.cpp"))
    known = {(suite, name) for suite, name in re.findall(r"^TEST(?:_[FP])?\((\w+), (\w+)\)", tests, re.M)}
    named = [(page, *match) for page in sorted((ROOT / "docs").glob("*.md"))
             for match in re.findall(r"`([A-Z]\w+)\.([A-Z]\w+)`", page.read_text())]
    return [f"{page.relative_to(ROOT)}: there is no test {suite}.{name}"
            for page, suite, name in named if (suite, name) not in known]


def check_rooms():
    rooms = read_rooms()
    public, _ = public_headers(rooms)
    return check_includes(rooms, public) + check_staircases(rooms) + check_header_page() + \
        check_named_tests()


def code_lines(paths):
    """Lines that are neither blank nor a comment."""
    count = 0
    for path in paths:
        text = re.sub(r"/\*.*?\*/", "", path.read_text(), flags=re.S)
        count += sum(1 for line in text.splitlines() if line.strip() and not line.strip().startswith("//"))
    return count


def sources(folder):
    return [path for path in sorted(folder.rglob("*")) if path.suffix in (".c", ".cpp", ".h", ".hpp")]


def check_tests():
    """Prints the share of tests by room."""
    rooms = read_rooms()
    public, problems = public_headers(rooms)
    code = {room: code_lines(sources(folder)) for room, (_, folder, _) in rooms.items()}
    for header, room in public.items():
        code[room] += code_lines([ROOT / "include" / header])
    code["tools"] = code_lines(sources(ROOT / "tools"))
    tests = dict.fromkeys(code, 0)
    shared = {}
    for folder in sorted(path for path in (ROOT / "tests").iterdir() if path.is_dir() and path.name != "cases"):
        room = TESTS_OF.get(folder.name, folder.name)
        (tests if room in tests else shared).setdefault(room, 0)
        (tests if room in tests else shared)[room] += code_lines(sources(folder))
    for room in code:
        share = 100 * tests[room] / code[room]
        most = SHARES.get(room, SHARE)
        print(f"{room:10} {tests[room]:6} {code[room]:6} {share:4.0f}")
        if share > most:
            problems.append(f"tests/{room}: {share:.0f} lines of test code to 100 of code; at most {most}")
    for folder, lines in shared.items():
        print(f"{folder:10} {lines:6}")
        if folder not in OF_THE_WHOLE + ["kit"]:
            problems.append(f"tests/{folder}: neither a room's nor listed in OF_THE_WHOLE")
    total, of = sum(tests.values()) + sum(shared.values()), sum(code.values())
    print(f"{'all tests':10} {total:6} {of:6} {100 * total / of:4.0f}")
    cases = sum(len(path.read_text(errors="replace").splitlines()) for path in (ROOT / "tests/cases").rglob("*.*"))
    print(f"{'cases':10} {cases:6}\n{'fuzz':10} {code_lines(sources(ROOT / 'fuzz')):6}")
    return problems


def tidy(source):
    result = subprocess.run(["clang-tidy-16", "--quiet", "-p", "build/tidy", source], cwd=ROOT, capture_output=True,
                            text=True)
    return [line for line in result.stdout.splitlines() if line.strip()] if result.returncode else []


def check_tidy():
    sources = subprocess.run(["git", "ls-files", "src/*.cpp", "tools/*.cpp"], cwd=ROOT, capture_output=True, text=True,
                             check=True).stdout.split()
    with multiprocessing.pool.ThreadPool() as pool:
        reports = pool.map(tidy, sources, chunksize=1)
    return list(dict.fromkeys(line for report in reports for line in report))  # faults in a header are reported once


def main():
    checks = {"--rooms": check_rooms, "--tests": check_tests, "--tidy": check_tidy}
    problems = [problem for option in sys.argv[1:] for problem in checks[option]()]
    print("\n".join(problems), file=sys.stderr)
    sys.exit(1 if problems else 0)


if __name__ == "__main__":
    main()
