#!/usr/bin/env python3
"""comments.py HEADER: the header with its plain comments as Doxygen's, on standard output.

A comment holds for every declaration below it up to the next comment or empty line, so overloads
share one. What stands above an empty comment line holds for the whole paragraph, and its first
words are the paragraph's heading; so are those before the colon of a comment like "Tokens: ..."
on top of it. A comment with an empty line below stands for the rest of its class and
is told with the class. A text constant without words gets its value.
"""
import pathlib
import re
import sys

COMMENT = re.compile(r"\s*// ?(.*)")
TRAILING = re.compile(r"^(.*?[;,{}\w)])\s+// (?!NOLINT)(.*)$")
CLASS = re.compile(r"\s*(?:class|struct)\s+(?:[A-Z]+_API\s+)?([\w:]+)[^;]*\{$")
TEXT_CONSTANT = re.compile(r"\s*static const char\* const (\w+);")
# The dot of "." or "..." ends none.
SENTENCE = re.compile(r"(.*?[^.\"\s]\.\"?\.?)\s+(.*)")
HEADING = re.compile(r"([A-Z][\w=/-]*(?: [a-z][\w=/-]*){0,3}):(?= |$)")
# What is no declaration of its own.
SKIPPED = re.compile(r"\s*(#|\}|namespace\b|extern \"C\"|public:|protected:|private:|friend\b|"
                     r"static_assert|(?:class|struct) [\w:]+;)")


def escaped(text):
    """Words as they are, not as markup; what stands between back quotes is left alone."""
    parts = text.split("`")
    for at in range(0, len(parts), 2):
        parts[at] = re.sub(r"([\\*<>#%@&])", r"\\\1", parts[at])
        parts[at] = re.sub(r"(?<!\w)_|_(?!\w)", r"\\_", parts[at])
        # Between quotation marks Doxygen would leave the backslashes above.
        parts[at] = parts[at].replace('"', "&quot;")
    return "`".join(parts)


def code(literal):
    """A text of code; what could be markup or a command in it is not."""
    named = {"&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;"}
    shown = "".join(named.get(c, "\\" + c if c in "\\%#@*_|`" else c) for c in literal)
    return f"<code>{shown}</code>"


def is_code(line):
    return line.startswith("    ")


def marked(words):
    """Lines that are indented are code."""
    lines, inside = [], False
    for line in [*words, None] if words else []:
        if line is None or is_code(line) != inside:
            lines += ["@endcode"] if inside else ["@code"] if line else []
            inside = not inside
        if line is not None:
            lines.append(line if inside else escaped(line))
    return lines


def text_values(header):
    """Class and name of the text constants that the sources beside the header define."""
    values = {}
    for source in sorted(header.parent.glob("*.cpp")):
        found = re.findall(r"const char\* const (?:\w+::)*?(\w+)::(\w+) =\s*(\"(?:[^\"\\]|\\.)*\");",
                           source.read_text())
        values.update({(owner, name): value for owner, name, value in found})
    return values


class Header:
    def __init__(self, path):
        self.lines = path.read_text().splitlines()
        self.values = text_values(path)
        self.out = []
        self.class_name = ""
        self.class_line = None
        self.forget()

    def forget(self):
        """The end of a paragraph."""
        self.words = []
        self.shared = []
        self.fresh = True

    def write(self, indent, words):
        """The first sentence is the short form."""
        end = next((at for at, line in enumerate(words) if not line or is_code(line)), len(words))
        first = " ".join(words[:end])
        sentence = SENTENCE.match(first) or re.match("(.*)()", first)
        lines = ["@brief " + escaped(sentence[1]), "", escaped(sentence[2]), *marked(words[end:])]
        self.out += [f"{indent}/// {line}".rstrip() for line in lines]

    def close_group(self):
        if self.grouped:
            self.out.append("    /// @}")
        self.grouped = False

    def comment(self, at):
        words = []
        while at < len(self.lines) and COMMENT.fullmatch(self.lines[at]):
            words.append(COMMENT.fullmatch(self.lines[at]).group(1).removeprefix("KEEP: "))
            at += 1
        self.words = words
        return at

    def paragraph_of_class(self):
        """Told with the class, in front of its line."""
        text = [f"/// {line}" for line in marked(self.words)]
        self.out[self.class_line:self.class_line] = ["///"] + text
        self.class_line += len(text) + 1

    def open_group(self):
        """At the top of a paragraph."""
        heading = HEADING.match(" ".join(self.words))
        title = heading.group(1) if heading else ""
        if "" in self.words:
            end = self.words.index("")
            self.shared, self.words = self.words[:end], self.words[end + 1:]
            title = re.split(r"[:,.;]| \(", " ".join(self.shared))[0]
        if not title:
            return
        if " ".join(self.shared) == title:
            self.shared = []
        # Blocks of another kind, so that they do not run together with the first member's words.
        text = [f"    {escaped(line)}" for line in self.shared]
        self.out += [f"    /** @name {title}", *text, "    */", "    /** @{ */"]
        self.grouped = True

    def declaration(self, at):
        """Copies one declaration, up to its end or to the body that it opens."""
        line = self.lines[at]
        indent = line[:len(line) - len(line.lstrip())]
        constant = TEXT_CONSTANT.match(line)
        if self.words or self.shared:
            self.write(indent, self.words + ([""] if self.shared else []) + self.shared)
        if constant and (self.class_name, constant.group(1)) in self.values:
            value = self.values[self.class_name, constant.group(1)]
            self.out.append(f"{indent}/// {code(value)}")
        start, depth = len(self.out), 0
        while True:
            line = self.lines[at]
            opened = CLASS.match(line)
            depth += line.count("(") + line.count("{") - line.count(")") - line.count("}")
            self.out.append(TRAILING.sub(lambda m: f"{m[1]}  ///< {escaped(m[2])}", line))
            at += 1
            if opened:
                self.class_line = start
                self.class_name = opened[1].split("::")[-1]
                self.forget()
            if opened or at == len(self.lines):
                return at
            if depth <= 0 and re.search(r"[;}]\s*(//.*)?$", line):
                return at

    def convert(self):
        self.grouped = False
        at = 0
        while at < len(self.lines):
            line = self.lines[at]
            if COMMENT.fullmatch(line):
                first = self.fresh
                at = self.comment(at)
                alone = at == len(self.lines) or not self.lines[at].strip()
                if alone and self.class_name:
                    self.paragraph_of_class()
                elif not alone and first and self.class_name:
                    self.open_group()
                self.fresh = False
            elif not line.strip():
                self.close_group()
                self.forget()
                self.out.append(line)
                at += 1
            elif line.lstrip().startswith("friend "):
                self.out.append("")  # What it names is told where it is declared.
                at += 1
            elif SKIPPED.match(line):
                if re.match(r"\};|private:", line.strip()):
                    self.close_group()
                self.class_name = "" if line == "};" else self.class_name
                self.macro(line)
                self.out.append(line)
                at += 1
            else:
                self.fresh = False
                at = self.declaration(at)
        return "\n".join(self.out) + "\n"

    def macro(self, line):
        """A comment above includes is the file's; one above conditions that begins with a macro's
        name is that macro's."""
        if self.words and re.match("#(if|include)", line):
            name = re.match(r"[A-Z_]+(?= )", self.words[0])
            self.out += ["/// @file", f"/// @def {name[0]}"] if name else ["/// @file"]
            self.write("", self.words)
            self.words = []


if __name__ == "__main__":
    sys.stdout.write(Header(pathlib.Path(sys.argv[1])).convert())
