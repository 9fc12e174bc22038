#!/usr/bin/env python3
"""pages.py PAGE: a Markdown page as Doxygen reads it, on standard output."""
import pathlib
import re
import sys

from comments import code

SPAN = re.compile(r"(?<!`)`([^`\n]+(?:\n[^`\n]+)?)`(?!`)")


def for_doxygen(text):
    """Code spans with a quote, a per cent sign or a bar as tags: Doxygen takes those for its own."""
    parts = re.split(r"(?ms)(^```.*?^```$|^    .*?$)", text)
    for at in range(0, len(parts), 2):
        parts[at] = SPAN.sub(lambda m: shown(m.group(1)), parts[at])
    return "".join(parts)


def shown(span):
    return code(span.replace("\\|", "|")) if re.search("['%|]", span) else f"`{span}`"


if __name__ == "__main__":
    sys.stdout.write(for_doxygen(pathlib.Path(sys.argv[1]).read_text()))
