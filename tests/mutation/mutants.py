"""Makes small faults in C++ text: one mutant is one source with one fault.

Works on the tokens of the text, not on lines or on known places, and leans on the project's formatting: a
binary operator has a space on both sides, the bracket of a template or the star of a pointer has not.
"""

import dataclasses
import re

TOKEN = re.compile(r"""
    (?P<space>\s+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>(?<=\n)[ ]*\#(?:\\\n|[^\n])*)
  | (?P<text>"(?:\\.|[^"\\])*")
  | (?P<character>'(?:\\.|[^'\\])+')
  | (?P<number>0[xX][0-9a-fA-F']+[uUlL]*|\d[\d'.]*(?:[eE][+-]?\d+)?[uUlLfF]*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|.)
""", re.VERBOSE | re.DOTALL)

COMPARISONS = {"<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="]}
LOGIC = {"&&": ["||"], "||": ["&&"]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["*"], "&": ["|"], "|": ["&"], "^": ["&"],
              "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "*=": ["+="], "/=": ["*="], "&=": ["|="],
              "|=": ["&="], "^=": ["|="], "<<=": [">>="], ">>=": ["<<="]}
STEPS = {"++": ["--"], "--": ["++"]}
CODES = {"ERR_OK": "ERR_INVALID_FORMAT", "ERR_FAILED": "ERR_OK", "ERR_NOT_FOUND": "ERR_FAILED",
         "ERR_INVALID_FORMAT": "ERR_INVALID_ARGS", "ERR_INVALID_ARGS": "ERR_INVALID_FORMAT"}
TRUTH = {"true": "false", "false": "true"}
SIGNS = {"signed": "unsigned", "unsigned": "signed"}

# What begins a statement that is no expression: it is not dropped.
DECLARING = {"return", "if", "for", "while", "do", "else", "switch", "case", "default", "goto", "using", "typedef",
             "static_assert", "namespace", "template", "struct", "class", "enum", "extern", "public", "private",
             "const", "constexpr", "static", "auto", "inline", "bool", "int", "char", "unsigned", "signed", "size_t",
             "double", "float", "void", "volatile", "long", "short", "uint64_t", "int64_t", "uint32_t", "uintptr_t",
             "STRING", "FIELD", "DATETIME", "CONTEXT", "MAPPING", "PARSE_RESULT", "SOUNDEX_CODE", "VARNEL_PAIR"}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: str  # of the source, from the project's root
    start: int
    end: int
    replacement: str
    kind: str
    line: int
    function: str  # in which it is, or the constant whose value it touches
    before: str  # the touched tokens with their neighbours, one space between two
    after: str

    def apply(self, text):
        return text[:self.start] + self.replacement + text[self.end:]


def tokens_of(text):
    """The tokens that mean something to the compiler, directives left out."""
    found = []
    for match in TOKEN.finditer(text):
        if match.lastgroup not in ("space", "comment", "directive"):
            found.append(Token(match.lastgroup, match.group(), match.start(), match.end()))
    return found


def skipped(tokens):
    """Indexes of tokens within static_assert(...), alignas(...) and template<...> lists."""
    inside = set()
    for i, token in enumerate(tokens):
        if token.text in ("static_assert", "alignas"):
            inside.update(range(i, closing(tokens, i + 1) + 1))
        elif token.text == "template":
            depth, j = 0, i + 1
            while j < len(tokens):
                depth += {"<": 1, ">": -1}.get(tokens[j].text, 0)
                inside.add(j)
                if depth == 0:
                    break
                j += 1
    return inside


def closing(tokens, opening):
    """The index of the bracket that closes the one at `opening`."""
    depth = 0
    for i in range(opening, len(tokens)):
        depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(tokens[i].text, 0)
        if depth == 0:
            return i
    return len(tokens) - 1


def is_binary(text, token):
    return text[token.start - 1].isspace() and token.end < len(text) and text[token.end].isspace()


def is_array_size(tokens, i):
    """Whether a number is the size in a declaration such as `char zone[1024]`."""
    if not (i >= 3 and tokens[i - 1].text == "[" and i + 1 < len(tokens) and tokens[i + 1].text == "]"):
        return False
    return tokens[i - 2].kind == "word" and (tokens[i - 3].kind == "word" or tokens[i - 3].text == "*") \
        and tokens[i - 3].text not in ("return", "case", "else")


def other_numbers(text):
    digits = re.match(r"(0[xX][0-9a-fA-F']+|\d[\d'.]*)(.*)", text, re.DOTALL)
    body, suffix = digits.group(1).replace("'", ""), digits.group(2)
    if re.fullmatch(r"\d+\.\d+", body):
        return [f"{float(body) + step}{suffix}" for step in (1, -1)]
    if body.lower().startswith("0x"):
        value, width = int(body, 16), len(body) - 2
        return [f"0x{(value + step) % 16 ** width:0{width}X}{suffix}" for step in (1, -1)]
    value = int(body)
    return [f"{value + 1}{suffix}", f"{value - 1}{suffix}" if value > 0 else "(-1)"]


def other_character(text):
    """Another character constant: the next one, or 'x' for an escape."""
    inner = text[1:-1]
    if inner.startswith("\\"):
        return "'x'"
    following = chr(ord(inner) + 1)
    return "'\\\\'" if following == "\\" else "'!'" if following in "'\x7f" else f"'{following}'"


def other_text(text):
    inner = text[1:-1]
    if not inner:
        return '"x"'
    first = 2 if inner.startswith("\\") else 1
    changed = "x" if first == 2 or not inner[0].isalnum() else "Q" if inner[0] != "Q" else "R"
    return f'"{changed}{inner[first:]}"'


def of_token(text, tokens, i):
    """(kind, replacement) of the faults in one token."""
    token = tokens[i]
    if token.kind == "operator":
        if token.text in STEPS:
            return [("step", other) for other in STEPS[token.text]]
        if not is_binary(text, token):
            return [("operator", "")] if token.text in ("!", "~") else []
        for kind, table in (("comparison", COMPARISONS), ("logic", LOGIC), ("arithmetic", ARITHMETIC)):
            if token.text in table:
                return [(kind, other) for other in table[token.text]]
    elif token.kind == "number" and not is_array_size(tokens, i):
        return [("constant", other) for other in other_numbers(token.text)]
    elif token.kind == "character":
        return [("constant", other_character(token.text))]
    elif token.kind == "text" and (i == 0 or tokens[i - 1].text != "extern"):
        return [("text", other_text(token.text))]
    elif token.kind == "word":
        if token.text in CODES:
            return [("code", CODES[token.text])]
        if token.text in TRUTH:
            return [("truth", TRUTH[token.text])]
        if token.text in SIGNS and tokens[i - 1].text == "<" and tokens[i + 1].text == "char":
            return [("sign", SIGNS[token.text])]
        if token.text.startswith("FIELD_") and token.text != "FIELD_COUNT":
            return [("slot", f"({token.text} + 1)")]
        if token.text in ("break", "continue") and tokens[i + 1].text == ";":
            return [("dropped", "")]
    return []


def negated_conditions(text, tokens):
    """Faults that turn the condition of an if or while, or what chooses between `?` and `:`, round."""
    for i, token in enumerate(tokens):
        if token.kind == "word" and token.text in ("if", "while") and tokens[i + 1].text == "(":
            end = closing(tokens, i + 1)
            condition = text[tokens[i + 1].end:tokens[end].start]
            yield tokens[i + 1].end, tokens[end].start, f"!({condition})", "condition"
        elif token.text == "?":
            end = choice_end(tokens, i)
            if end:
                colon, last = end
                first, second = text[token.end:tokens[colon].start], text[tokens[colon].end:tokens[last].start]
                yield token.end, tokens[last].start, f" {second.strip()} : {first.strip()}", "condition"


def choice_end(tokens, question):
    """(index of the `:`, index after the last operand) of a plain choice a ? b : c."""
    depth, colon = 0, None
    for i in range(question + 1, len(tokens)):
        text = tokens[i].text
        if depth == 0 and text in (")", "}", "]", ";", ","):
            return (colon, i) if colon else None
        if depth == 0 and text == "?":
            return None
        if depth == 0 and text == ":" and colon is None:
            colon = i
        depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(text, 0)
    return None


def dropped_statements(tokens):
    """Faults that leave a statement out: one that is an expression, such as a call or an assignment."""
    depth = 0
    for i, token in enumerate(tokens[:-1]):
        if token.text in ("(", "["):
            depth += 1
        elif token.text in (")", "]"):
            depth -= 1
        starts = token.text in ("{", "}", ";") or (token.text == ")" and depth == 0)
        if depth != 0 or not starts:
            continue
        first = tokens[i + 1]
        if first.text in DECLARING or not (first.kind == "word" or first.text in ("*", "++", "--")):
            continue
        end = i + 1
        while end < len(tokens) and tokens[end].text not in (";", "{", "}"):
            end = closing(tokens, end) if tokens[end].text in ("(", "[") else end
            end += 1
        parts = {t.text for t in tokens[i + 1:end]}
        acts = parts & ({"=", "++", "--", "("} | set(ARITHMETIC) - set("+-*/%&|^") - {"<<", ">>"})
        if end < len(tokens) and tokens[end].text == ";" and acts and not declares(tokens[i + 1:end]):
            yield first.start, tokens[end].start, "", "dropped"


def declares(statement):
    """Whether a statement declares something: two words in a row, as in `char_set set(chars)`."""
    first, second = statement[0], statement[1] if len(statement) > 1 else statement[0]
    i = 0
    while i + 2 < len(statement) and statement[i + 1].text == "::":
        i += 2
    if i + 1 < len(statement):
        first, second = statement[i], statement[i + 1]
    return first.kind == "word" and second.kind == "word"


def mutants_of(path, text):
    """All mutants of one source, in the order of the text."""
    tokens = tokens_of(text)
    skip = skipped(tokens)
    faults = []
    for i, token in enumerate(tokens):
        if i not in skip:
            faults += [(token.start, token.end, other, kind) for kind, other in of_token(text, tokens, i)]
    faults += negated_conditions(text, tokens)
    faults += dropped_statements(tokens)
    names = names_of_places(tokens)
    return [described(path, text, tokens, names, fault) for fault in sorted(set(faults))]


def names_of_places(tokens):
    """For each token the name of the function that it is in, or else of what is declared there."""
    names, scopes, declared = [], [], ""
    for i, token in enumerate(tokens):
        if token.text == "{":
            scopes.append(name_of_block(tokens, i))
        names.append(next((name for name in reversed(scopes) if name), declared))
        if token.text == "}" and scopes:
            scopes.pop()
        if token.text in (";", "}") and not any(scopes):
            declared = ""
        elif not any(scopes) and token.kind == "word" and i + 1 < len(tokens) and tokens[i + 1].text in ("=", "[", "("):
            declared = declared or token.text
    return names


def name_of_block(tokens, opening):
    """The function whose body begins with the brace at `opening`; empty for any other block."""
    i = opening - 1
    while i >= 0 and tokens[i].text in ("const", "noexcept", "override"):
        i -= 1
    if i < 0 or tokens[i].text != ")":
        return ""
    depth = 0
    while i >= 0:
        depth += {")": 1, "(": -1}.get(tokens[i].text, 0)
        if depth == 0:
            break
        i -= 1
    name = tokens[i - 1] if i > 0 else None
    if name is None or name.kind != "word" or name.text in ("if", "for", "while", "switch", "constexpr"):
        return ""
    return name.text


NEIGHBOURS, LONGEST = 4, 12


def neighbours(tokens):
    """Up to four tokens of the same statement, of those that come next."""
    found = []
    for token in tokens[:NEIGHBOURS]:
        if token.text in ";{}":
            break
        found.append(token.text)
    return found


def shortened(words):
    return words if len(words) <= LONGEST else [*words[:LONGEST], "..."]


def described(path, text, tokens, names, fault):
    """The mutant, known by its function and a fragment of the code, which other lines do not change."""
    start, end, replacement, kind = fault
    inside = [i for i, token in enumerate(tokens) if start <= token.start and token.end <= end]
    first, last = inside[0], inside[-1]
    before = neighbours(tokens[:first][::-1])[::-1]
    after = neighbours(tokens[last + 1:])
    own = shortened([token.text for token in tokens[first:last + 1]])
    put = shortened([token.text for token in tokens_of(replacement)])
    return Mutant(path, start, end, replacement, kind, text.count("\n", 0, start) + 1, names[first],
                  " ".join([*before, *own, *after]), " ".join([*before, *put, *after]))
