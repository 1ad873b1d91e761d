# SPDX-License-Identifier: MIT
"""What a slip of the pen makes of a C++ source: one operator, constant or order changed."""

import re
from dataclasses import dataclass

# Comments, texts, what the preprocessor reads, and assertions, which only the compiler sees.
COMMENT = r"//[^\n]*|/\*.*?\*/"
LEFT_OUT = re.compile(
    COMMENT + r'|R"\(.*?\)"|"(?:\\.|[^"\\\n])*"|' + r"'(?:\\.|[^'\\\n])'|^\s*#[^\n]*|\bstatic_assert\(.*?\);",
    re.MULTILINE | re.DOTALL,
)

# The formatter sets spaces around a binary operator and none around a template's brackets.
OPERATORS = {
    " == ": " != ",
    " != ": " == ",
    " < ": " <= ",
    " <= ": " < ",
    " > ": " >= ",
    " >= ": " > ",
    " && ": " || ",
    " || ": " && ",
    " + ": " - ",
    " - ": " + ",
    " * ": " / ",
    " / ": " * ",
    " % ": " / ",
    " += ": " -= ",
    " & ": " | ",
}
OPERATOR = re.compile("|".join(re.escape(operator) for operator in OPERATORS))
COUNTING = re.compile(r"\+\+(?=[a-z])|--(?=[a-z])")
NEGATION = re.compile(r"(?<![\w)])!(?=[\w(:])")
TRUTH = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|[0-9][0-9']*)(?=(?:[uU]|ms|s)?\b)(?![\w']*[.'])")
NAME = r"[A-Za-z_]\w*(?:(?:\.|::|->)\w+)*"
ARGUMENTS = re.compile(rf"(?<=[({{ ])({NAME}|\d+), ({NAME}|\d+)(?=[,)}}])")
STREAMED = re.compile(rf"(<<|>>) ({NAME}) \1 ({NAME})\b(?!\()")
STATEMENTS = re.compile(r"^( +)(?!return\b|[}{])(\S[^\n]*;)\n\1(?!return\b|break\b|[}{])(\S[^\n]*;)$", re.MULTILINE)


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    source: str  # the whole file, changed
    before: str  # what stood on the line
    after: str

    def __str__(self):
        return f"{self.file}:{self.line}\n    - {self.before}\n    + {self.after}"

    def key(self):
        """Names the change wherever its line moves to."""
        return f"{self.file} | {self.before} | {self.after}"


def _other_number(number):
    value = int(number.replace("'", ""), 0)
    if number.startswith("0x"):
        return f"{value ^ 1:#x}"
    # One more hardly shows in a time-out.
    return str(value + 1 if value < 100 else 2 * value)


def _changes(code):
    """Where each change begins and ends, and what it puts there."""
    for match in OPERATOR.finditer(code):
        yield match.span(), OPERATORS[match.group()]
    for match in COUNTING.finditer(code):
        yield match.span(), "--" if match.group() == "++" else "++"
    for match in NEGATION.finditer(code):
        yield match.span(), ""
    for match in TRUTH.finditer(code):
        yield match.span(), "false" if match.group() == "true" else "true"
    for match in NUMBER.finditer(code):
        yield match.span(), _other_number(match.group())
    for match in ARGUMENTS.finditer(code):
        if match.group(1) != match.group(2):
            yield match.span(), f"{match.group(2)}, {match.group(1)}"
    for match in STREAMED.finditer(code):
        yield match.span(), "{0} {2} {0} {1}".format(*match.groups())
    # One by one: of three statements the second belongs to two pairs.
    at = 0
    while match := STATEMENTS.search(code, at):
        yield match.span(), "{0}{2}\n{0}{1}".format(*match.groups())
        at = match.end(2)


def _blank(match):
    """As long as what it stands for, and no code: a comment's place is empty, a text is a text."""
    filling = " " if match.group().startswith("/") else "\0"
    return re.sub(r"[^\n]", filling, match.group())


def _on_one_line(text):
    return " ⏎ ".join(line.strip() for line in text.split("\n"))


def mutants_of(file, source, skipped_lines=None):
    """All mutants of a source, but for those of lines that match a pattern."""
    code = LEFT_OUT.sub(_blank, source)
    mutants = []
    for (start, end), replacement in _changes(code):
        begin = source.rfind("\n", 0, start) + 1
        stop = source.find("\n", end)
        before = source[begin:stop]
        if skipped_lines and skipped_lines.search(before):
            continue
        if "\n" in replacement:
            # Two statements: their texts come from the source.
            first, second = source[start:end].split("\n")
            replacement = f"{second}\n{first}"
        mutants.append(
            Mutant(
                file,
                source.count("\n", 0, start) + 1,
                source[:start] + replacement + source[end:],
                _on_one_line(before),
                _on_one_line(source[begin:start] + replacement + source[end:stop]),
            )
        )
    return mutants
