"""Small wrong changes of C++ text, as a hurried hand would make them.

The text is read as tokens: comments, strings, includes and declarations are left alone. The
sources' format is relied on: a comparison has blanks around it, a template's bracket has not, and
a call has none before its parenthesis. What is still no C++ afterwards, the compiler refuses.

kinds   condition  == and !=, < and <=, > and >=, && and || for one another; ! left out;
                   an if's condition negated; true and false for one another
        constant   a number plus one, from 1000 on doubled
        order      two statements, one after the other, the other way round
        call       a statement that is a call or an assignment left out
"""
import re
from dataclasses import dataclass

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<string>(?:u8|[uUL])?(?:R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"))
  | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|&&|\|\||[=!<>+*/%&|^-]=|[^\s\w])
""", re.X | re.M | re.S)

SWAPPED = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">",
           "&&": "||", "||": "&&", "true": "false", "false": "true"}
NO_STATEMENT = {"return", "if", "else", "for", "while", "do", "switch", "case", "default", "break",
                "continue", "using", "throw", "delete", "new", "static_assert", "goto", "template",
                "typedef", "public", "private", "protected", "friend", "co_return", "co_yield"}
# What stands before the brace of a function's, lambda's or statement's body.
BODY = re.compile(r"(?:\)|\]|\b(?:else|do|try))\s*(?:(?:const|noexcept|override|final|mutable)\b\s*)*"
                  r"(?:->\s*[\w:<>,&*\s]+)?$")


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    kind: str
    start: int      # the changed part of the text
    end: int
    replacement: str
    before: str     # the lines around it, blanks folded
    after: str

    def applied(self, text):
        return text[:self.start] + self.replacement + text[self.end:]


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


def tokens_of(text):
    """Everything but blanks, comments and preprocessor lines."""
    return [Token(match.lastgroup if match.lastgroup != "mark" else "string", match[0],
                  match.start(), match.end())
            for match in TOKEN.finditer(text) if match.lastgroup not in ("comment", "directive")]


def spaced(text, token):
    return text[token.start - 1].isspace() and text[token.end:token.end + 1].isspace()


def matching(tokens, index):
    """The index of the bracket that closes the one at index."""
    depth = 0
    for here in range(index, len(tokens)):
        if tokens[here].text in ("(", "{", "["):
            depth += 1
        elif tokens[here].text in (")", "}", "]"):
            depth -= 1
            if depth == 0:
                return here
    return len(tokens) - 1


def condition_changes(text, tokens):
    for index, token in enumerate(tokens):
        previous = tokens[index - 1].text if index else ""
        if token.text in ("true", "false"):
            yield token.start, token.end, SWAPPED[token.text]
        elif token.text in SWAPPED and previous not in ("operator", "template"):
            if spaced(text, token):
                yield token.start, token.end, SWAPPED[token.text]
        elif token.text == "!" and previous != "operator":
            yield token.start, token.end, ""
        elif token.text == "if" and tokens[index + 1].text == "(":
            yield from negated(text, tokens, index + 1)


def negated(text, tokens, opening):
    """The condition in these parentheses negated, where no smaller change does the same."""
    closing = matching(tokens, opening)
    first = opening + 1
    for here in range(opening + 1, closing):
        if tokens[here].text == ";":
            first = here + 1
    words = [token.text for token in tokens[first:closing]]
    joined = "&&" in words or "||" in words
    smaller = not joined and ("!" in words[:1] or "==" in words or "!=" in words)
    if "=" in words or not words or smaller:
        return
    start, end = tokens[first].start, tokens[closing - 1].end
    yield start, end, f"!({text[start:end]})"


def other_number(text):
    digits = text.replace("'", "")
    if re.fullmatch(r"0[xX][\da-fA-F]+", digits):
        return hex(int(digits, 16) + 1)
    if re.fullmatch(r"0[0-7]+", digits):
        return f"0{int(digits, 8) + 1:o}"
    if re.fullmatch(r"\d+", digits):
        return str(int(digits) + (1 if int(digits) < 1000 else int(digits)))
    if re.fullmatch(r"\d+\.\d*", digits):
        return str(float(digits) + 1)
    return None


def constant_changes(tokens):
    for token in tokens:
        changed = other_number(token.text) if token.kind == "number" else None
        if changed:
            yield token.start, token.end, changed


def blanked(text):
    """The text with blanks for all that isn't code, so that positions stay."""
    def blank(match):
        if match.lastgroup in ("comment", "directive", "string", "mark", "character"):
            return re.sub(r"[^\n]", " ", match[0])
        return match[0]
    return TOKEN.sub(blank, text)


def statements_of(text, tokens):
    """Runs of statements that follow one another in a body: lists of token ranges, each without
    the semicolon; a statement with a body of its own ends a run."""
    code = blanked(text)
    scopes = []  # per open brace: the run of a body, or None for anything else
    start, depth = 0, 0
    for index, token in enumerate(tokens):
        if token.text in ("(", "["):
            depth += 1
        elif token.text in (")", "]"):
            depth -= 1
        elif token.text == "{":
            body = BODY.search(code[max(0, token.start - 300):token.start].rstrip())
            scopes.append(([] if body else None, depth))
            start, depth = index + 1, 0
        elif token.text == "}" and scopes:
            run, depth = scopes.pop()
            if run:
                yield run
            start = index + 1
            # What stood before a body is one statement with it; a new run begins.
            if scopes and scopes[-1][0] and depth == 0 and run is not None:
                yield scopes[-1][0]
                scopes[-1] = ([], scopes[-1][1])
        elif token.text == ";" and depth == 0:
            if scopes and scopes[-1][0] is not None:
                scopes[-1][0].append((start, index))
            start = index + 1


def chain_end(text, tokens, start, stop):
    """The index after a chain such as a.b(c)->d[e], which has no blanks outside of brackets."""
    index = start
    if [token.text for token in tokens[start:start + 3]] == ["(", "void", ")"]:
        index = start + 3
    elif tokens[start].text in ("*", "++", "--"):
        index = start + 1
    begin = index
    while index < stop:
        if index > begin and tokens[index].start != tokens[index - 1].end and (
                tokens[index].text not in (".", "->")):
            break
        if tokens[index].text in ("(", "["):
            index = matching(tokens, index) + 1
        elif tokens[index].kind == "word" or tokens[index].text in ("::", ".", "->", "++", "--"):
            index += 1
        else:
            break
    return index


def can_go(text, tokens, start, stop):
    """Whether a statement is a call or an assignment."""
    if start >= stop or tokens[start].text in NO_STATEMENT:
        return False
    end = chain_end(text, tokens, start, stop)
    if end == start:
        return False
    if end == stop:
        return tokens[stop - 1].text in (")", "++", "--") or tokens[start].text in ("++", "--")
    following = tokens[end].text
    return following in ("=", "+=", "-=", "*=", "/=", "|=", "&=", "^=", "%=", "<<=", ">>=")


ASSIGNMENT = re.compile(r"([\w.:>\[\]-]+?) = (?:[^()]|\.\w+\(\))*;", re.S)


def independent(one, other):
    """Whether two assignments mean the same in either order: each sets a place of its own that the
    other doesn't read, and calls nothing but getters ("= slider.value()")."""
    first, second = ASSIGNMENT.fullmatch(one), ASSIGNMENT.fullmatch(other)
    return bool(first and second and first[1] not in other and second[1] not in one)


def statement_changes(text, tokens):
    for run in statements_of(text, tokens):
        previous = None
        for start, stop in run:
            if not can_go(text, tokens, start, stop):
                previous = None
                continue
            first, last = tokens[start].start, tokens[stop].end
            statement = text[first:last]
            yield "call", first, last, ";" if text[:first].rstrip().endswith(")") else ""
            if previous:
                before, end = previous
                if text[before:end] != statement and not independent(text[before:end], statement):
                    yield "order", before, last, statement + text[end:first] + text[before:end]
            previous = (first, last)


def folded(text):
    return " ".join(text.split())


def mutants_of(file, text):
    """Every mutant of a file, in the order of its text."""
    tokens = tokens_of(text)
    changes = [("condition", *change) for change in condition_changes(text, tokens)]
    changes += [("constant", *change) for change in constant_changes(tokens)]
    changes += statement_changes(text, tokens)
    found = []
    for kind, start, end, replacement in sorted(changes, key=lambda change: change[1:]):
        first = text.rfind("\n", 0, start) + 1
        last = text.find("\n", end)
        last = len(text) if last < 0 else last
        found.append(Mutant(
            file, text.count("\n", 0, start) + 1, kind, start, end, replacement,
            folded(text[first:last]), folded(text[first:start] + replacement + text[end:last])))
    return found
