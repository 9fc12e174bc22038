"""The small changes that a test must notice, found in the text of a C++ source."""

import re
from collections import Counter
from dataclasses import dataclass
from itertools import accumulate

TOKEN = re.compile(
    r"""(?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#[^\n]*|\s+)
      | (?P<string>"(?:\\.|[^"\\\n])*")
      | (?P<char>'(?:\\.|[^'\\\n])*')
      | (?P<number>\d\w*(?:\.\d+)?)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<op><<=|>>=|->|\+\+|--|&&|\|\||[-+*/%&|^<>=!]=|<<|>>|::|.)""",
    re.X | re.S | re.M,
)

# The layout check puts blanks around binary operators only: "<" of a template has none in front.
BINARY = {
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "<<": [">>"], ">>": ["<<"],
    "&": ["|"], "|": ["&"], "+=": ["-="], "-=": ["+="], "|=": ["&="],
}
WORDS = {
    "true": "false", "false": "true", "min": "max", "max": "min", "front": "back", "back": "front",
    "find": "rfind", "rfind": "find", "find_first_of": "find_last_of",
    "find_last_of": "find_first_of", "find_first_not_of": "find_last_not_of",
    "any_of": "all_of", "all_of": "any_of", "Front": "Back", "Back": "Front",
}
EMPTY = {"", "std::nullopt", "true", "false", "nullptr", "0", "{}"}
# A call, an assignment, a step or a jump; in a declaration a name follows the type.
EXPRESSION = re.compile(
    r"(?:\w+(?:::|\.|->))*\w+(?:\[[^;]*\])?(?:\(| [-+|]?= |\+\+|--)"
    r"|(?:\+\+|--)\w|(?:break|continue);"
)
# A capacity is no behaviour.
UNSEEN = re.compile(r"\w+\.reserve\([^;]*;")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    start: int
    end: int
    text: str
    before: str
    after: str


class Source:
    """A source text cut into tokens; yields (start, end, new text) for every change."""

    def __init__(self, text):
        self.text = text
        self.tokens = [
            Token(match.lastgroup, match.group(), match.start(), match.end())
            for match in TOKEN.finditer(text)
            if match.lastgroup != "skip"
        ]
        # How many round brackets are open in front of each token.
        opened = (bracket(token.text) for token in self.tokens)
        self.depths = [0, *accumulate(opened)]

    def changes(self):
        unseen = [match.span() for match in UNSEEN.finditer(self.text)]
        for index, token in enumerate(self.tokens):
            if any(start <= token.start < end for start, end in unseen):
                continue
            for text in self.replacements(index, token):
                yield token.start, token.end, text
            if token.text in ("if", "while"):
                yield from self.condition(index)
            elif token.text == "return":
                yield from self.returned(index)
            if self.begins_statement(index):
                yield from self.removed(index)

    def replacements(self, index, token):
        if token.kind == "op":
            return self.operator(index, token)
        if token.kind == "word":
            return [WORDS[token.text]] if token.text in WORDS else []
        return {"number": number, "char": character, "string": string}[token.kind](token.text)

    def operator(self, index, token):
        if token.text in ("++", "--"):
            return ["--" if token.text == "++" else "++"]
        if token.text == "?":
            return ["|| true ?", "&& false ?"]
        around = self.text[token.start - 1] + self.text[token.end]
        if around.isspace():
            return [] if self.tokens[index - 1].text == "template" else BINARY.get(token.text, [])
        after_operand = self.tokens[index - 1].kind in ("word", "number") or around[0] in ")]"
        if token.text == "!" or (token.text == "-" and not after_operand):
            return [""]
        return []

    def closing(self, index):
        """The index of the bracket that closes the one at `index`."""
        return self.depths.index(self.depths[index], index + 1) - 1

    def condition(self, index):
        inner = self.tokens[index + 1 : self.closing(index + 1) + 1]
        start, end = inner[0].end, inner[-1].start
        text = self.text[start:end]
        if any(token.text == "=" for token in inner):
            yield end, end, "; false"
            return
        # A comparison is turned around by itself.
        if not any(token.text in ("!", "==", "!=", "<", "<=", ">", ">=") for token in inner):
            yield start, end, f"!({text})"
        yield start, end, f"false && ({text})"
        if self.tokens[index].text == "if":
            yield start, end, f"true || ({text})"

    def statement_end(self, index):
        """The index of the ";" behind the statement, or None when a block stands in it."""
        for at in range(index, len(self.tokens)):
            if self.tokens[at].text in "{}":
                return None
            if self.tokens[at].text == ";":
                return at
        return None

    def returned(self, index):
        end = self.statement_end(index)
        if end is None:
            return
        start, end = self.tokens[index].end, self.tokens[end].start
        if self.text[start:end].strip() not in EMPTY:
            yield start, end, " {}"

    def begins_statement(self, index):
        if self.depths[index] > 0 or index == 0:
            return False
        at = index - 1
        if self.tokens[at].text == ":":
            while self.tokens[at - 1].kind == "word" or self.tokens[at - 1].text == "::":
                at -= 1
            return self.tokens[at].text in ("case", "default")
        if self.tokens[at].text == ")":
            while self.depths[at] > 0:
                at -= 1
            return self.tokens[at - 1].text in ("if", "for", "while")
        return self.tokens[at].text in (";", "{", "}", "else")

    def removed(self, index):
        end = self.statement_end(index)
        start = self.tokens[index].start
        if end is not None and EXPRESSION.match(self.text, start):
            yield start, self.tokens[end].start, ""


def bracket(text):
    return (text == "(") - (text == ")")


def number(text):
    match = re.fullmatch(r"(0[xX][\da-fA-F]+|\d+)([uUlLzZ]*)", text)
    if not match:
        return []
    value, suffix = int(match[1], 0 if match[1][:2] in ("0x", "0X") else 10), match[2]
    return [f"{value + step}{suffix}" for step in (1, -1) if value + step >= 0]


def character(text):
    return ["'#'" if text != "'#'" else "'$'"]


def string(text):
    if text == '""':
        return ['"Q"']
    pieces = re.findall(r"\\.|.", text[1:-1], re.S)
    shorter = [pieces[1:], pieces[:-1]] if len(pieces) > 1 else [[]]
    return ['"' + "".join(some) + '"' for some in shorter]


def lines_around(text, start, end):
    return text.rfind("\n", 0, start) + 1, (text.find("\n", end) + len(text)) % len(text)


def mutants(file, text):
    """All of a file; of those that read alike, each is marked with its number."""
    met = Counter()
    for start, end, new in Source(text).changes():
        first, last = lines_around(text, start, end)
        before = " ".join(text[first:last].split())
        after = " ".join((text[first:start] + new + text[end:last]).split())
        met[before, after] += 1
        if met[before, after] > 1:
            after += f"  (number {met[before, after]})"
        yield Mutant(file, text.count("\n", 0, start) + 1, start, end, new, before, after)
