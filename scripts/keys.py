#!/usr/bin/env python3
"""Prints share/platforms/platform_keys_doc.json, made from share/platform_keys.txt and the tables of the XML formats.

usage: keys.py ZR_PLATFORM"""
import json
import pathlib
import subprocess
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
XS = "{http://www.w3.org/2001/XMLSchema}"
HARDWARE = ["hardwarePlatforms.hardwarePlatform", "hardwarePlatforms.hwEmuPlatform",
            "hardwarePlatforms.reconfigurablePartitions[].hardwarePlatform",
            "hardwarePlatforms.reconfigurablePartitions[].hwEmuPlatform"]


def sentences(tool, name):
    """The sentences of a format: "element/attribute" and "element+child"."""
    schema = subprocess.run([tool, "schema", name], capture_output=True, text=True, check=True).stdout
    found = {}
    for record in xml.etree.ElementTree.fromstring(schema).iter(XS + "complexType"):
        for kind, mark in (("attribute", "/"), ("element", "+")):
            for part in record.iter(XS + kind):
                text = part.find(f"{XS}annotation/{XS}documentation")
                if text is not None:
                    key = record.get("name", "") + mark + part.get("name", part.get("ref", "")).split(":")[-1]
                    found.setdefault(key, " ".join(text.text.split()))
    return found


def rows(text):
    """(key, fields) of each line, with BUS expanded, and HARDWARE as the first segment of a hardware platform's keys."""
    parts = text.split("\nBUS = ")
    bus = [line for line in parts[1].splitlines()[1:] if line]
    base = last = ""
    for line in parts[0].splitlines():
        if not line or line.startswith("#"):
            continue
        if line == "BUS":
            yield from ((last + (key := one.split(" | ")[0]), one[len(key) + 3:]) for one in bus)
            continue
        key, fields = line.split(" | ", 1)
        if key.startswith("."):
            key = base + key
        else:
            base = key
        last = key
        yield key, fields


def main():
    tool = sys.argv[1]
    formats = {name: sentences(tool, name) for name in ("zdf", "cfa", "hpfm", "spfm")}
    document = {}
    for key, fields in rows((ROOT / "share/platform_keys.txt").read_text()):
        form, unit, source, meaning = (field.strip() for field in fields.replace("| |", "|  |").split("|"))
        if meaning.startswith("@"):
            name, path = meaning[1:].split(":")
            meaning = formats[name][path]
        for place in HARDWARE if key.startswith("HARDWARE") else [key]:
            node = document
            for segment in (place + key[len("HARDWARE"):] if key.startswith("HARDWARE") else key).split("."):
                node = node.setdefault(segment, {})
            entry = {"#meaning": meaning, "#form": form, "#source": source}
            if unit:
                entry["#unit"] = unit
            node.update(entry)
    print(json.dumps({"documentation_keys": document}, indent=1, ensure_ascii=False))


if __name__ == "__main__":
    main()
