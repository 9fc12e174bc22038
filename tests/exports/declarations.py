#!/usr/bin/env python3
"""declarations.py [--accept] ROOT LIST: the exported classes' headers declare what the reviewed LIST
says, in that order: result types, constants' types, enumerators, members, virtual functions. An
exported name tells none of these. After a wanted change, write the list anew with --accept and
review its diff."""
import difflib
import pathlib
import re
import sys

SCOPE = re.compile(r"(?:namespace|enum class|enum|class|struct) (?:TEVSYSTEMLIB_API )?([\w:]+)")
ACCESS = re.compile(r"(public|protected|private):\s*")


def plain(header):
    """Without comments, directives and what stands in literals; white space does not count."""
    text = re.sub(r"//.*", "", header.read_text())
    text = re.sub(r'"(?:[^"\\]|\\.)*"', '""', text)
    text = re.sub(r"^\s*#(?:.*\\\n)*.*$", "", text, flags=re.MULTILINE)
    # A value in braces is no scope.
    text = re.sub(r"(\w)\{(\w*)\}", r"\1(\2)", text)
    return re.sub(r"\s+", " ", text).replace("( ", "(")


def declarations(header):
    scopes, access, lines = [], [], []
    for words, end in re.findall(r"([^;{}]*)([;{}])", plain(header)):
        words = words.strip()
        while label := ACCESS.match(words):
            access[-1] = label[1] + " "
            words = words[label.end():]
        where = "::".join(scopes[1:]) + " " + "".join(access[-1:]) if scopes else ""
        if words:
            lines.append((where + words).strip())
        if end == "{":
            scope = SCOPE.match(words)
            scopes.append(scope[1] if scope else "{}")
            access.append("")
        elif end == "}":
            scopes.pop()
            access.pop()
    return lines


def interface(root):
    """Of each header below ROOT that exports something."""
    for header in sorted((root / "TEVSystemLib").rglob("*.h")):
        if re.search(r"^(class|struct) TEVSYSTEMLIB_API", header.read_text(), re.MULTILINE):
            yield f"# {header.relative_to(root).as_posix()}"
            yield from declarations(header)


def main(arguments):
    accept = arguments[0] == "--accept"
    root, reviewed = map(pathlib.Path, arguments[accept:])
    made = list(interface(root))
    if accept:
        reviewed.write_text("\n".join(made) + "\n")
        return 0
    changes = list(difflib.unified_diff(reviewed.read_text().splitlines(), made,
                                        str(reviewed), "the headers", lineterm="", n=0))
    if changes:
        print("\n".join(changes), file=sys.stderr)
        print("declarations: the headers differ from the reviewed list; review and run: "
              f"tests/exports/declarations.py --accept {root} {reviewed}", file=sys.stderr)
    return 1 if changes else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
