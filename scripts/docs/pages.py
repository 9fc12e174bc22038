#!/usr/bin/env python3
"""pages.py PAGE: a Markdown page as Doxygen reads it, on standard output."""
import pathlib
import re
import sys

from comments import code

# Below the title, which names the page.
HEADING = re.compile(r"^(##+ (.*))$", re.MULTILINE)
TO_HEADING = re.compile(r"\]\(([\w/.-]*?)([\w-]+)\.md#([\w-]+)\)")
# To the header of a class; the reference has the class.
TO_HEADER = re.compile(r"\]\(\.\./TEVSystemLib/(system|util)/(?:\w+/)?(\w+)\.h\)")
SPACES = {"system": "TAMO::TEV::System::", "util": "TAMO::TEV::System::Util::"}
SPAN = re.compile(r"(?<!`)`([^`\n]+(?:\n[^`\n]+)?)`(?!`)")


def label(page, anchor):
    return f"{page}_{anchor}".replace("-", "_")


def linked(text, page):
    """Headings with labels and links to them: Doxygen knows links to whole pages only."""
    def labelled(heading):
        anchor = re.sub(r"[^\w -]", "", heading[2].lower()).replace(" ", "-")
        return f"{heading[1]} {{#{label(page, anchor)}}}"

    text = HEADING.sub(labelled, text)
    text = TO_HEADING.sub(lambda m: f"](@ref {label(m[2], m[3])})", text)
    return TO_HEADER.sub(lambda m: f"](@ref {SPACES[m[1]]}{m[2]})", text)


def for_doxygen(text, page):
    """Code spans with a quote, a per cent sign or a bar as tags: Doxygen takes those for its own."""
    parts = re.split(r"(?ms)(^```.*?^```$|^    .*?$)", text)
    for at in range(0, len(parts), 2):
        parts[at] = SPAN.sub(lambda m: shown(m.group(1)), linked(parts[at], page))
    return "".join(parts)


def shown(span):
    return code(span.replace("\\|", "|")) if re.search("['%|]", span) else f"`{span}`"


if __name__ == "__main__":
    source = pathlib.Path(sys.argv[1])
    sys.stdout.write(for_doxygen(source.read_text(), source.stem))
