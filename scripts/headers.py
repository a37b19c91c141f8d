#!/usr/bin/env python3
"""Prints docs/headers.md: the public headers of each room, with the first sentence of their main comment."""
import re

import lint

PAGE = lint.ROOT / "docs/headers.md"
BLOCK = r"(?:^[ \t]*///.*\n)+"


def main_comment(text, stem):
    """The comment of the class that the header is named after, else the first one."""
    named = re.search(rf"({BLOCK})(?:template.*\n)?(?:class|struct|enum class|using)\b[^;{{]*\b{stem}\b", text, re.M)
    if named:
        return re.sub(r"^[ \t]*/// ?", "", named[1], flags=re.M)
    first = re.search(rf"({BLOCK})|^/\*(.*?)\*/", text, re.M | re.S)
    if not first:
        return ""
    return re.sub(r"^[ \t]*(///|\*)? ?", "", first[1] or first[2], flags=re.M)


def first_sentence(comment):
    match = re.match(r"(.+?)[.:](?:\s|$)", " ".join(comment.split()) + " ")
    return match[1] + "." if match else ""


def page():
    """The page, and what is wrong with headers that it cannot describe."""
    rooms = lint.read_rooms()
    public, problems = lint.public_headers(rooms)
    lines = ["# Public headers", "",
             "Made by `./dev docs` from rooms.txt and the headers. The rooms are in the order of their dependencies.", ""]
    for room in rooms:
        headers = sorted(name for name, owner in public.items() if owner == room)
        if not headers:
            continue
        lines += [f"## {room}", "", "| header | |", "|---|---|"]
        for name in headers:
            path = lint.ROOT / "include" / name
            sentence = first_sentence(main_comment(path.read_text(), path.stem))
            if not sentence:
                problems.append(f"{path.relative_to(lint.ROOT)}: no comment says what it is for")
            lines.append(f"| `{name}` | {sentence.replace('|', chr(92) + '|')} |")
        lines.append("")
    return "\n".join(lines).rstrip() + "\n", problems


if __name__ == "__main__":
    print(page()[0], end="")
