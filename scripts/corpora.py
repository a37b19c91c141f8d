#!/usr/bin/env python3
"""Runs the tool over a folder of hostile files and reports whether each is accepted or rejected.

usage: scripts/corpora.py FOLDER [TOOL]

FOLDER holds zip/, json/ and xml/, each with a manifest.tsv: a row for each file, with the columns "#file" and "expect"
(accept, reject or either), for JSON also "expect_embedded", of the text as a value in a document. A zip file is given
to the tool as a hardware archive and unpacked by its digest check; JSON text becomes the metadata member of an archive;
XML text a descriptor, a software file, the hpfm and the metadata of an archive; all of it is validated, too. A text with
a NUL is refused by choice, whatever others do. Exit: 0 when every answer is the expected one, nothing died, and nothing
took longer than ten seconds.
"""
import csv
import pathlib
import subprocess
import sys
import tempfile
import time
import zipfile

LIMIT = 10.0
CHOICE = "holds a NUL"
HPFM = '{"name": "kept", "files": [{"type": "HPFM", "name": "x.hpfm"}]}'


def archive(path, members):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as out:
        for name, content in members.items():
            out.writestr(name, content)


def ways(kind, row, content, scratch):
    """(way, arguments of the tool, expectation) for each way in which the file reaches the library."""
    if kind == "zip":
        (scratch / "x.lfa").write_bytes(content)
        yield "archive", ["json", "x.lfa"], row["expect"]
        yield "digest", ["verify", "x.lfa"], "either"
        yield "validate", ["validate", "x.lfa"], "reject"
    elif kind == "json":
        archive(scratch / "x.lfa", {"lfa.json": content})
        yield "metadata", ["json", "x.lfa"], row["expect"]
        archive(scratch / "y.lfa", {"lfa.json": b'{"unknown": ' + content + b"}"})
        yield "value", ["json", "y.lfa"], row["expect_embedded"]
        yield "validate", ["validate", "y.lfa"], "reject" if row["expect_embedded"] == "reject" else "either"
    else:
        for name in ("x.zdf", "x.spfm"):
            (scratch / name).write_bytes(content)
            yield name, ["json", name], row["expect"]
            yield f"validate {name}", ["validate", name], row["expect"]
        archive(scratch / "x.lfa", {"lfa.json": HPFM, "x.hpfm": content})
        yield "hpfm", ["json", "x.lfa"], "accept"  # an hpfm that is not valid contributes nothing
        yield "validate hpfm", ["validate", "x.lfa"], row["expect"]
        archive(scratch / "y.lfa", {"lfa.xml": content})
        yield "lfa.xml", ["json", "y.lfa"], row["expect"]
        yield "validate lfa.xml", ["validate", "y.lfa"], row["expect"]


def answer(tool, arguments, scratch):
    """What the tool does: accept, reject, crash or hang; its error line; seconds."""
    start = time.monotonic()
    try:
        done = subprocess.run([tool, *arguments], cwd=scratch, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=LIMIT)
    except subprocess.TimeoutExpired:
        return "hang", "", LIMIT
    seconds = time.monotonic() - start
    output = done.stderr.decode("utf-8", "replace").strip()
    if done.returncode:  # findings and verdicts are answers
        output += done.stdout.decode("utf-8", "replace").strip()
    if done.returncode < 0 or b"Sanitizer" in done.stderr:
        return "crash", output, seconds
    if done.returncode and (not output or any(ord(c) < 32 and c != "\n" for c in output)):
        return "mumble", output, seconds  # no line for a person, or one that a terminal would obey
    return "accept" if done.returncode == 0 else "reject", output, seconds


def main():
    folder = pathlib.Path(sys.argv[1])
    tool = str(pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else "build/release/tools/zr-platform/zr-platform").resolve())
    total = wrong = stricter = 0
    slowest = (0.0, "")
    for kind in ("zip", "json", "xml"):
        counts = {}
        with open(folder / kind / "manifest.tsv", newline="", encoding="utf-8") as manifest:
            rows = list(csv.DictReader(manifest, delimiter="\t", quoting=csv.QUOTE_NONE))
        for row in rows:
            content = (folder / kind / row["#file"]).read_bytes()
            with tempfile.TemporaryDirectory() as directory:
                scratch = pathlib.Path(directory)
                for way, arguments, expected in ways(kind, row, content, scratch):
                    before = sorted(p.name for p in scratch.iterdir())
                    got, output, seconds = answer(tool, arguments, scratch)
                    left = sorted(p.name for p in scratch.iterdir()) != before
                    good = not left and (got == expected or (expected == "either" and got in ("accept", "reject")))
                    total += 1
                    if not left and got == "reject" and CHOICE in output:
                        stricter += not good
                        good = True
                    wrong += not good
                    slowest = max(slowest, (seconds, f"{kind}/{row['#file']} as {way}"))
                    counts[(way, got)] = counts.get((way, got), 0) + 1
                    if not good:
                        print(f"{kind}/{row['#file']} as {way}: expected {expected}, got {got}{' and left files' if left else ''}: {output[:200]}")
        print(f"{kind}: {len(rows)} files; " + ", ".join(f"{way} {got} {n}" for (way, got), n in sorted(counts.items())))
    print(f"{total} runs, {total - wrong - stricter} as expected, {stricter} stricter by choice, {wrong} not; slowest {slowest[0]:.2f} s ({slowest[1]})")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
