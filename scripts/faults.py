"""Faults for scripts/mutate: places in a C++ source where one small change makes a wrong program."""
import dataclasses
import pathlib
import random
import re


@dataclasses.dataclass(frozen=True)
class Fault:
    file: str
    start: int  # in the file's text
    old: str
    new: str
    operator: str
    why: str = ""

    def applied(self, text: str) -> str:
        assert text[self.start:self.start + len(self.old)] == self.old
        return text[:self.start] + self.new + text[self.start + len(self.old):]

    def lines(self, text: str) -> tuple[str, str]:
        """The line (or lines) that it changes, before and after, without the indent."""
        first = text.rfind("\n", 0, self.start) + 1
        last = text.find("\n", self.start + len(self.old))
        return text[first:last].strip(), self.applied(text)[first:last + len(self.new) - len(self.old)].strip()

    def place(self, text: str) -> str:
        return f"{self.file}:{text.count(chr(10), 0, self.start) + 1}"


def _swap(a: str, b: str):
    return {a: b, b: a}


# By name: what is looked for in code without comments and texts, formatted as the project's is, and what stands for
# it. A binary operator has blanks around it, which the brackets of a template have not.
OPERATORS = {
    "bound": (r" (<=|>=|<|>) ", lambda old: {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}[old]),
    "equality": (r" (==|!=) ", lambda old: _swap("==", "!=")[old]),
    "logic": (r" (&&|\|\|) ", lambda old: _swap("&&", "||")[old]),
    "negation": (r"(?<![\w)\]])(!)(?=[A-Za-z_(])", lambda old: ""),
    "boolean": (r"\b(true|false)\b", lambda old: _swap("true", "false")[old]),
    "one": (r" [+-] (1)(?![\w.'])", lambda old: "0"),
    "number": (r"(?<![\w.'])(\d+|0x[0-9A-Fa-f]+)(?![\w.'])",
               lambda old: hex(int(old, 16) + 1) if old.startswith("0x") else str(int(old) + 1)),
    "extremum": (r"\bstd::(min|max)\b(?!:)", lambda old: _swap("min", "max")[old]),
    # A call whose answer nobody takes, on a line of its own.
    "call": (r"(?m)^ +((?!return\b|throw\b|delete\b|if\b|for\b|while\b|switch\b|using\b|static_assert\b)"
             r"[A-Za-z_][\w:.\[\]*>-]*\([^=\n]*\));$", lambda old: ""),
    "early exit": (r"(?m)^ +(?:if|else if) \(.*\) ((?:return|continue|break)\b[^;\n]*);$", lambda old: ""),
}


def masked(text: str) -> str:
    """The text with blanks in place of comments, literals of text and the lines of the preprocessor."""
    parts = re.compile(r'//[^\n]*|/\*.*?\*/|(?<![\w"])(?:u8|[uUL])?R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
                       r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])*'|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.DOTALL | re.MULTILINE)
    return parts.sub(lambda part: re.sub(r"[^\n]", " ", part[0]), text)


def code_at(code: str) -> list[bool]:
    """Per character of masked code: whether it is in a function's body, and in no list of initial values."""
    inside, kinds, start = [], [], 0  # `start`: of the present statement or list
    for at, character in enumerate(code):
        if character == "{":
            kinds.append(_kind_of_block(code[start:at].strip()))
        elif character == "}" and kinds:
            kinds.pop()
        inside.append("code" in kinds and "values" not in kinds)
        if character in "{};":
            start = at + 1
    return inside


def _kind_of_block(before: str) -> str:
    """What a brace begins, by what stands before it in its statement."""
    if re.search(r"\b(struct|class|union|enum|namespace)\b[^()=]*$", before):
        return "declarations"
    begins_body = r"(\)|\]|\belse|\bdo|\btry|\bconst|\bnoexcept|\boverride|\bmutable|:)$|^$|\) *(const *)?-> *[^=;]+$"
    return "code" if re.search(begins_body, before) else "values"


def faults_of(file: str, text: str) -> list[Fault]:
    code = masked(text)
    inside = code_at(code)
    found = []
    for operator, (pattern, replacement) in OPERATORS.items():
        for match in re.finditer(pattern, code):
            if not inside[match.start(1)] or re.search(r"\bstatic\b|\bconstexpr\b", _line(code, match.start(1))):
                continue
            if operator == "call" and not _begins_statement(code, match.start(1)):
                continue
            old = text[match.start(1):match.end(1)]
            found.append(Fault(file, match.start(1), old, replacement(old), operator))
    return found


def _line(code: str, at: int) -> str:
    return code[code.rfind("\n", 0, at) + 1:at]


def _begins_statement(code: str, at: int) -> bool:
    before = code[:at].rstrip()
    return before.endswith((";", "{", "}", ":", ")", "else"))


def drawn(top: pathlib.Path, files: list[str], seed: int) -> list[Fault]:
    """All faults in an order that the seed gives, of each operator in turn: else most would be numbers."""
    chance = random.Random(seed)
    by_operator = {operator: [] for operator in OPERATORS}
    for file in sorted(files):
        for fault in faults_of(file, (top / file).read_text()):
            by_operator[fault.operator].append(fault)
    for faults in by_operator.values():
        chance.shuffle(faults)
    order = []
    while any(by_operator.values()):
        order += [faults.pop() for faults in by_operator.values() if faults]
    return order


def listed(top: pathlib.Path, files: list[str], path: pathlib.Path):
    """The faults made by hand; by file, line before and line after the reasons why others change nothing; and what of
    the list does not fit the files any longer.

    A block of the list is "[name]", "- old line", "+ new line" (without the indent), and "why: what goes wrong" or
    "equivalent: why it does not". The name is the end of one of the files' paths.
    """
    found, equivalent, stale = [], {}, []
    for block in re.split(r"\n\s*\n", path.read_text()):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        name, old, new = lines[0].strip("[]"), lines[1].removeprefix("- "), lines[2].removeprefix("+").removeprefix(" ")
        kind, reason = " ".join(lines[3:]).split(": ", 1)
        places = [(file, text) for file in files if ("/" + file).endswith("/" + name)
                  for text in [(top / file).read_text()] if text.count(old) == 1]
        if len(places) != 1:
            stale.append(f"[{name}] {old}")
        elif kind == "equivalent":
            equivalent[places[0][0], old, new] = reason
        else:
            found.append(Fault(places[0][0], places[0][1].index(old), old, new, "by hand", reason))
    return found, equivalent, stale
