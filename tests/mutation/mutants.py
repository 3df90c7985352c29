"""Single mutations of a C++ source: a small lexer, and the rules that make the mutants.

The rules lean on the project's format: comparisons stand between blanks, template brackets do not, and every branch has
braces.
"""
import re
from dataclasses import dataclass

LEXER = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#[^\n]*)
      | (?P<string>"(?:\\.|[^"\\\n])*")
      | (?P<char>'(?:\\.|[^'\\\n])*')
      | (?P<number>\d[\w.]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<mark>::|->|\+\+|--|==|!=|<=|>=|&&|\|\||[-+*/%<>=!&|^~?:;,.(){}\[\]])
      | (?P<blank>\s+)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

COMPARISONS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], ">": [">=", "<="], "<=": ["<", ">"], ">=": [">", "<"]}
CONNECTIVES = {"&&": ["||"], "||": ["&&"]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "++": ["--"], "--": ["++"]}

# A constant becomes the next one of its group.
CONSTANT_GROUPS = [
    ["kEnd", "kSymbol", "kString", "kNumber", "kQuotedString"],
    ["kEqualsSymbol", "kSlashSymbol", "kAllSetsSymbol", "kOpeningBracketSymbol", "kClosingBracketSymbol"],
    ["kNONE", "kMDGROUP", "kMCGROUP", "kDISPLAY", "kDELETE"],
    ["kAsStored", "kUpperCase"],
    ["kVarSet", "kMDSet", "kMCSet"],
    ["kBpErrorLevelError", "kBpErrorLevelWarning"],
    ["kNoEqualsInAttribute", "kNoEqualsInList"],
    ["kMaxNameBytes", "kMaxLabelBytes"],
    ["kRows", "kColumns"],
    ["begin", "end"],
    ["first", "second"],
]

TYPE_WORDS = {"namespace", "struct", "class", "enum", "extern"}
CONTROL_WORDS = {"return", "break", "continue", "using", "goto"}


@dataclass
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclass
class Statement:
    """Tokens `first` to `last`, the semicolon; `block` is the number of the block that it stands in."""
    first: int
    last: int
    block: int
    in_function: bool


@dataclass(frozen=True)
class Mutant:
    file: str
    kind: str
    line: int
    before: str
    after: str
    source: str
    # What tells apart changes that are alike: the name of the function, as far as it begins a line, and the next line.
    function: str
    ahead: str


def tokens_of(source):
    tokens = []
    position = 0
    while position < len(source):
        match = LEXER.match(source, position)
        if match is None:
            raise ValueError(f"no token at {source[position:position + 30]!r}")
        if match.lastgroup not in ("blank", "comment"):
            tokens.append(Token(match.lastgroup, match.group(), position))
        position = match.end()
    return tokens


class Structure:
    """Which bracket closes which, the statements, and which tokens stand in functions."""

    def __init__(self, tokens):
        self.tokens = tokens
        self.partner = {}
        self.statements = []
        self.in_function = [False] * len(tokens)
        self.ends_function = set()
        self._walk()

    def _walk(self):
        # A scope is [kind, index of its opening token, first token of its current statement].
        scopes = [["type", -1, 0]]
        for index, token in enumerate(self.tokens):
            self.in_function[index] = any(scope[0] == "body" for scope in scopes)
            scope = scopes[-1]
            if token.kind == "directive":
                scope[2] = index + 1
            elif token.text in ("(", "["):
                scopes.append(["paren", index, index + 1])
            elif token.text == "{":
                scopes.append([self._brace_kind(scopes, index), index, index + 1])
            elif token.text in (")", "]", "}"):
                kind, opening, _ = scopes.pop()
                self.partner[opening], self.partner[index] = index, opening
                if kind in ("body", "type") and scopes[-1][0] != "paren":
                    scopes[-1][2] = index + 1
                if kind == "body" and not any(outer[0] == "body" for outer in scopes):
                    self.ends_function.add(index)
            elif token.text == ";" and scope[0] in ("body", "type"):
                if scope[2] < index:
                    self.statements.append(Statement(scope[2], index, scope[1], scope[0] == "body"))
                scope[2] = index + 1
            elif token.text == ":" and scope[0] == "body" and self.tokens[scope[2]].text in ("case", "default"):
                scope[2] = index + 1

    def _brace_kind(self, scopes, index):
        kind, _, first = scopes[-1]
        before = self.tokens[index - 1].text
        if kind == "type" and any(token.text in TYPE_WORDS for token in self.tokens[first:index]):
            return "type"
        return "body" if before in (")", "]", "else", "do", "const", "{", "}", ";", ":") else "braces"


def one_line(text):
    return " ".join(text.split())


class Maker:
    def __init__(self, file, source):
        self.file = file
        self.source = source
        self.tokens = tokens_of(source)
        self.structure = Structure(self.tokens)
        self.mutants = []

    def make(self):
        for index, token in enumerate(self.tokens):
            for rule in (self._operator, self._operand, self._constant, self._condition, self._message, self._arguments,
                         self._c_string, self._assertion, self._directive):
                rule(index, token)
        self._statements()
        return self.mutants

    def _add(self, kind, start, end, text):
        """The mutant in which `text` stands in the place of the source's bytes from `start` to `end`."""
        first = self.source.rfind("\n", 0, start) + 1
        last = self.source.find("\n", end)
        last = len(self.source) if last < 0 else last
        mutated = self.source[:start] + text + self.source[end:]
        self.mutants.append(Mutant(
            self.file, kind, self.source.count("\n", 0, start) + 1, one_line(self.source[first:last]),
            one_line(mutated[first:last + len(mutated) - len(self.source)]), mutated,
            (re.findall(r"^\w[^\n(]*?(\w+)\(", self.source[:last], re.MULTILINE) or [""])[-1],
            one_line(self.source[last:].lstrip().split("\n", 1)[0])))

    def _replace(self, kind, token, text):
        self._add(kind, token.start, token.end, text)

    def _text(self, first, last):
        return self.source[self.tokens[first].start:self.tokens[last].end]

    def _stands_between_blanks(self, token):
        return self.source[token.start - 1].isspace() and self.source[token.end].isspace()

    def _operator(self, index, token):
        if token.kind != "mark" or (self.tokens[index - 1].text == "operator"):
            return
        others = {**COMPARISONS, **CONNECTIVES, **ARITHMETIC}.get(token.text, [])
        if token.text in ("++", "--") or (others and self._stands_between_blanks(token)):
            for other in others:
                self._replace("operator", token, other)
        elif token.text in ("!", "-"):
            self._replace("operator", token, "")

    def _operand(self, index, token):
        """Of a condition of two parts either alone."""
        if token.text not in CONNECTIVES or not self._stands_between_blanks(token):
            return
        # An operand of || may be a whole a && b.
        ends = {",", ";", "=", "?", ":", "return", "{", "}", "||"} | ({"&&"} if token.text == "&&" else set())
        first = index - 1
        while self.tokens[first].text not in ends | {"("}:
            first = self.structure.partner.get(first, first) - 1
        first += 1
        last = index + 1
        while self.tokens[last].text not in ends | {")"}:
            last = self.structure.partner.get(last, last) + 1
        last -= 1
        start, end = self.tokens[first].start, self.tokens[last].end
        self._add("operand", start, end, self._text(first, index - 1))
        self._add("operand", start, end, self._text(index + 1, last))

    def _constant(self, _, token):
        if token.kind == "number":
            for change in (1, -1):
                self._replace("constant", token, str(int(token.text) + change))
        elif token.text in ("true", "false"):
            self._replace("constant", token, "false" if token.text == "true" else "true")
        elif token.kind == "char":
            self._replace("constant", token, "'#'")
        elif token.kind == "word":
            for group in CONSTANT_GROUPS:
                if token.text in group:
                    self._replace("constant", token, group[(group.index(token.text) + 1) % len(group)])

    def _negate(self, first, last):
        self._add("condition", self.tokens[first].start, self.tokens[last].end, f"!({self._text(first, last)})")

    def _condition(self, index, token):
        if token.text in ("if", "while"):
            self._negate(index + 2, self.structure.partner[index + 1] - 1)
        elif token.text == "return" and self.tokens[index + 1].text not in (";", "true", "false"):
            last = index + 1
            while self.tokens[last].text != ";":
                last = self.structure.partner.get(last, last) + 1
            self._negate(index + 1, last - 1)
        elif token.text == "?":
            first = index - 1
            while self.tokens[first].text not in ("(", ",", "=", "return", "{", ";"):
                first = self.structure.partner.get(first, first) - 1
            self._negate(first + 1, index - 1)

    def _message(self, _, token):
        if token.kind != "string":
            return
        text = token.text
        letters = [match.start() for match in re.finditer(r"(?<![\\^$])[A-Za-z]", text)]
        if letters:
            at = letters[len(letters) // 2]
            self._replace("message", token, text[:at] + ("x" if text[at] not in "xX" else "y") + text[at + 1:])
        stops = [at for at, letter in enumerate(text) if letter in " ."]
        if stops:
            at = stops[-1]
            self._replace("message", token, text[:at] + text[at + 1:])
        if not letters and not stops and len(text) > 2:
            self._replace("message", token, '"#"')
        for match in re.finditer(r"\^[12]", text):
            other = "^2" if match.group() == "^1" else "^1"
            self._replace("message", token, text[:match.start()] + other + text[match.end():])

    def _arguments(self, index, token):
        if token.text != "(" or not self.structure.in_function[index] or self.tokens[index - 1].kind != "word":
            return
        if self.tokens[index - 1].text in ("if", "while", "for", "switch", "return"):
            return
        starts = [index + 1]
        at = index + 1
        while at < self.structure.partner[index]:
            if self.tokens[at].text == ",":
                starts.append(at + 1)
            at = self.structure.partner.get(at, at) + 1
        ends = [start - 2 for start in starts[1:]] + [self.structure.partner[index] - 1]
        spans = list(zip(starts, ends))
        for first, second in zip(spans, spans[1:]):
            # Behind a template, an empty argument counts as absent and the one after it moves up.
            moves_up = self.tokens[index - 1].text in ("GenerateError", "GenerateWarning") and (
                second == spans[-1] and self._text(*second) == '""' and first != spans[0])
            if self._text(*first) != self._text(*second) and not moves_up:
                self._add("arguments", self.tokens[first[0]].start, self.tokens[second[1]].end,
                          f"{self._text(*second)}, {self._text(*first)}")

    def _c_string(self, index, token):
        if token.text == "c_str":
            self._add("c_str", self.tokens[index - 1].start, self.tokens[index + 2].end, "")

    def _assertion(self, index, token):
        if token.text == "assert":
            closing = self.structure.partner[index + 1]
            self._add("assertion", self.tokens[index + 2].start, self.tokens[closing - 1].end,
                      f"({self._text(index + 2, closing - 1)})")

    def _directive(self, _, token):
        if token.kind == "directive" and token.text.startswith("#undef"):
            self._replace("statement", token, "")

    def _statements(self):
        statements = self.structure.statements
        for statement in statements:
            if not statement.in_function:
                continue
            first = self.tokens[statement.first]
            returns_at_end = first.text == "return" and statement.last + 1 in self.structure.ends_function
            if not returns_at_end:
                self._add("statement", first.start, self.tokens[statement.last].end, ";")
        for one, two in zip(statements, statements[1:]):
            if one.block == two.block and one.last + 1 == two.first and self._may_swap(one) and self._may_swap(two):
                between = self.source[self.tokens[one.last].end:self.tokens[two.first].start]
                self._add("order", self.tokens[one.first].start, self.tokens[two.last].end,
                          self._text(two.first, two.last) + between + self._text(one.first, one.last))

    def _may_swap(self, statement):
        texts = [token.text for token in self.tokens[statement.first:statement.last]]
        if texts[0] in CONTROL_WORDS or texts[0] in TYPE_WORDS:
            return False
        return "(" in texts if statement.in_function else self.file.endswith(".cpp") and len(texts) == 2


def mutants_of(file, source):
    """All mutants of one source, each once."""
    seen = set()
    chosen = []
    for mutant in Maker(file, source).make():
        if mutant.source not in seen and mutant.source != source:
            seen.add(mutant.source)
            chosen.append(mutant)
    return sorted(chosen, key=lambda mutant: mutant.line)
