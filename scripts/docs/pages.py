#!/usr/bin/env python3
"""pages.py PAGE: a Markdown page as Doxygen reads it, on standard output."""
import pathlib
import re
import sys

CODE = re.compile(r"(?<!`)`([^`\n]+(?:\n[^`\n]+)?)`(?!`)")


def for_doxygen(text):
    """Doxygen ends a code span at a single quote, and takes an escaped bar in one as it stands."""
    parts = re.split(r"(?ms)(^```.*?^```$)", text)
    for at in range(0, len(parts), 2):
        parts[at] = CODE.sub(lambda m: code(m.group(1)), parts[at])
    return "".join(parts)


def code(span):
    return f"``{span}``" if "'" in span else f"`{span}`"


sys.stdout.write(for_doxygen(pathlib.Path(sys.argv[1]).read_text()))
