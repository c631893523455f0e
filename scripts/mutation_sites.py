"""Where seeded defects go: the sites of one source file and the change each gets.

Each defect is a dict with the line (1-based) and column where it is seeded, its kind, the change
as the report writes it, the seeded line as it stands ("original"), which occurrence of that text in
the file it is ("occurrence", so that two lines of the same text are two defects to judge), and the
file's text with the defect seeded ("text").
"""

import re

# Each kind: a pattern over the code of one line (comments and string literals blanked out) and
# what a match becomes; a list gives several defects for one site.
WORD = r"(?<![\w])"
END = r"(?![\w])"
SIMPLE_KINDS = [
    ("comparison", r" == ", [" != "]),
    ("comparison", r" != ", [" == "]),
    ("comparison", r" < ", [" <= ", " >= "]),
    ("comparison", r" <= ", [" < ", " > "]),
    ("comparison", r" > ", [" >= ", " <= "]),
    ("comparison", r" >= ", [" > ", " < "]),
    ("logical", r" && ", [" || "]),
    ("logical", r" \|\| ", [" && "]),
    ("negation", r"!(?!=)", [""]),
    ("boolean", WORD + r"true" + END, ["false"]),
    ("boolean", WORD + r"false" + END, ["true"]),
    ("boolean", WORD + r"VARIANT_TRUE" + END, ["VARIANT_FALSE"]),
    ("boolean", WORD + r"VARIANT_FALSE" + END, ["VARIANT_TRUE"]),
    ("status", WORD + r"S_OK" + END, ["E_FAIL"]),
    ("status", WORD + r"E_FAIL" + END, ["S_OK"]),
    ("status", WORD + r"E_POINTER" + END, ["E_FAIL"]),
    ("status", WORD + r"FAILED\(", ["SUCCEEDED("]),
    ("status", WORD + r"SUCCEEDED\(", ["FAILED("]),
    ("status", WORD + r"kZbNormal" + END, ["kZbError"]),
    ("status", WORD + r"kZbError" + END, ["kZbNormal"]),
    ("status", WORD + r"kZbTextTooLong" + END, ["kZbNormal"]),
    ("variant type", WORD + r"VT_I4" + END, ["VT_INT"]),
    ("variant type", WORD + r"VT_INT" + END, ["VT_I4"]),
    ("variant type", WORD + r"VT_I2" + END, ["VT_I4"]),
    ("variant type", WORD + r"VT_BSTR" + END, ["VT_VARIANT"]),
    ("walk step", r"WalkStep::stop" + END, ["WalkStep::next"]),
    ("walk step", r"WalkStep::next" + END, ["WalkStep::stop"]),
    ("walk rule", r"FailedItem::raises" + END, ["FailedItem::skipped"]),
    ("walk rule", r"FailedItem::skipped" + END, ["FailedItem::raises"]),
    ("walk rule", r"NullItem::skipped" + END, ["NullItem::raises"]),
    ("walk rule", r"NullItem::raises" + END, ["NullItem::visited"]),
    ("walk rule", r"NullItem::visited" + END, ["NullItem::skipped"]),
    ("arithmetic", r" \+ ", [" - "]),
    ("arithmetic", r" - ", [" + "]),
    ("increment", r"\+\+(?=\w)", [""]),
    ("increment", r"(?<=\w)\+\+", [""]),
    ("constant", WORD + r"\d+" + END, None),  # n becomes n + 1
    ("constant", WORD + r"0[xX][0-9A-Fa-f]+" + END, None),  # hex: n + 1, written in hex
    ("constant", WORD + r"\d+[uUlL]+" + END, None),  # suffixed: n + 1, suffix kept
    ("case", r"MxtString::compareNoCase\(", ["CASE_SENSITIVE("]),
    ("case", r"\.toUpper\(\)", [".toLower()"]),
    ("case", r"\.toLower\(\)", [".toUpper()"]),
]

# The case-insensitive comparison made case-sensitive: a comparison of the same shape (0 when equal)
# that tells letters of different case apart.
CASE_SENSITIVE = "[](const MxtString& a, const MxtString& b) { return a == b ? 0 : 1; }("

# A statement that only calls (a host method, an SDK function, a helper): deleted whole.
CALL_STATEMENT = re.compile(r"^\s*(\(\s*\w+\s*\.\*\s*\w+\s*\)|\**[A-Za-z_][\w]*)((->|\.|::)[A-Za-z_]\w*)*\s*[(<]")
# An assignment to a variable or an output: deleted whole.
ASSIGNMENT = re.compile(r"^\s*\**[A-Za-z_][\w.\->\[\]]*\s*(=|\+=|-=)\s*[^=]")
# A return of a value: the value becomes the type's default (null, false, 0, empty).
RETURN_VALUE = re.compile(r"\breturn\s+(?!\{\};)([^;]+);")
NOT_STATEMENTS = ("return", "const ", "using", "typedef", "if", "for", "while", "else", "case", "delete ",
                  "static_cast", "namespace", "template", "class ", "struct ", "enum ")


def blank_comments_and_strings(lines):
    """The lines with comments, string and character literals replaced by spaces (same columns)."""
    code = []
    in_block = False
    for line in lines:
        out = []
        i = 0
        while i < len(line):
            if in_block:
                if line.startswith("*/", i):
                    in_block = False
                    out.append("  ")
                    i += 2
                else:
                    out.append(" ")
                    i += 1
                continue
            c = line[i]
            if line.startswith("//", i):
                out.append(" " * (len(line) - i))
                break
            if line.startswith("/*", i):
                in_block = True
                out.append("  ")
                i += 2
                continue
            if c in "\"'":
                j = i + 1
                while j < len(line) and line[j] != c:
                    j += 2 if line[j] == "\\" else 1
                out.append(c + " " * (min(j, len(line)) - i - 1) + (c if j < len(line) else ""))
                i = j + 1
                continue
            out.append(c)
            i += 1
        code.append("".join(out).rstrip("\n"))
    return code


def statement_end(code, start):
    """The last line of the statement that begins on line `start`, or None when it has no end."""
    depth = 0
    for n in range(start, len(code)):
        for c in code[n]:
            if c in "([{":
                depth += 1
            elif c in ")]}":
                depth -= 1
                if depth < 0:
                    return None
            elif c == ";" and depth == 0:
                return n
    return None


def matching_close(code, open_at):
    """The column of the bracket that closes the one at `open_at` on the same line, or None."""
    depth = 0
    for i in range(open_at, len(code)):
        if code[i] in "([{":
            depth += 1
        elif code[i] in ")]}":
            depth -= 1
            if depth == 0:
                return i
    return None


def top_level_parts(code, start, end, separator):
    """(start, end) column spans of code[start:end] split at `separator` outside brackets."""
    parts = []
    depth = 0
    first = start
    i = start
    while i < end:
        c = code[i]
        if c in "([{":
            depth += 1
        elif c in ")]}":
            depth -= 1
        elif depth == 0 and code.startswith(separator, i):
            parts.append((first, i))
            first = i + len(separator)
            i = first
            continue
        i += 1
    parts.append((first, end))
    return parts


def conjunction_operands(code, at):
    """The spans of the two operands of the `&&` at column `at`, or None where they cannot be told."""
    def stops_left(i):
        c = code[i]
        return (c in ";,?{" or c == ":" and "::" not in code[i - 1:i + 2] or code.startswith("||", i - 1) or code.startswith("&&", i - 1)
                or c == "=" and code[i - 1:i] not in ("=", "!", "<", ">") and code[i + 1:i + 2] != "="
                or re.search(r"\breturn\s$", code[:i + 1]) is not None)

    depth = 0
    i = at - 1
    while i >= 0:
        if code[i] in ")]":
            depth += 1
        elif code[i] in "([":
            if depth == 0:
                break
            depth -= 1
        elif depth == 0 and stops_left(i):
            break
        i -= 1
    left = (i + 1, at)
    depth = 0
    j = at + 2
    while j < len(code):
        c = code[j]
        if c in "([":
            depth += 1
        elif c in ")]":
            if depth == 0:
                break
            depth -= 1
        elif depth == 0 and (c in ";,?{" or c == ":" and "::" not in code[j - 1:j + 2]
                             or code.startswith("&&", j) or code.startswith("||", j)):
            break
        j += 1
    right = (at + 2, j)

    def trimmed(span):
        text = code[span[0]:span[1]]
        begin = span[0] + len(text) - len(text.lstrip())
        return (begin, span[1] - (len(text) - len(text.rstrip())))

    left, right = trimmed(left), trimmed(right)
    if left[0] >= left[1] or right[0] >= right[1]:
        return None
    return left, right


SIMPLE_ARGUMENT = re.compile(r"\s*[&*]?[A-Za-z_]\w*((\.|->)[A-Za-z_]\w*)*\s*")
NOT_SWAPPED = {"true", "false", "nullptr", "this"}
NOT_CALLS = {"if", "while", "for", "switch", "return", "sizeof", "static_cast", "reinterpret_cast",
             "const_cast", "catch", "decltype"}
# A guard's way out: a return, a throw or raising the automation failure.
WAY_OUT = re.compile(r"^\s*(return\b[^;]*|throw\b[^;]*|_com_issue_error\([^;]*\))\s*;\s*$")


def whole_statement(code, n):
    """For a statement that only calls or only assigns and begins on line n: its kind ("deleted
    call" or "deleted assignment") and its last line; otherwise None."""
    stripped = code[n].strip()
    if any(stripped.startswith(word) for word in NOT_STATEMENTS):
        return None
    if n > 0 and not re.search(r"[;{}]\s*$|^\s*$|\)\s*$|else\s*$", code[n - 1]) \
            and not code[n - 1].strip().startswith("#"):
        return None  # a continuation of the statement above
    if ASSIGNMENT.match(code[n]) and "==" not in code[n].split("=", 1)[0]:
        kind = "deleted assignment"
    elif CALL_STATEMENT.match(code[n]):
        kind = "deleted call"
    else:
        return None
    last = statement_end(code, n)
    if last is None or last - n > 12:
        return None
    statement = " ".join(l.strip() for l in code[n:last + 1])
    # A declaration or a definition is no statement to delete.
    if kind == "deleted call" and (not statement.rstrip().endswith(");") or re.search(r"=\s*(default|delete)\b", statement)
                                   or re.search(r"\)\s*(const\s*)?\{", code[n]) and "[" not in code[n]):
        return None
    return kind, last


def block_end(code, n):
    """The line of the brace that closes the block opened at the end of line n, or None."""
    depth = 0
    for m in range(n, len(code)):
        for c in code[m]:
            if c == "{":
                depth += 1
            elif c == "}":
                depth -= 1
                if depth == 0:
                    return m
    return None


def defects_of(path, text):
    """The defects of one source file (see the module's doc string)."""
    lines = text.splitlines(keepends=True)
    code = blank_comments_and_strings(lines)
    stripped_lines = [l.strip() for l in lines]
    defects = []
    seen = set()

    def seed(kind, first, last, replacement_lines, change, column=0):
        mutated = "".join(lines[:first] + replacement_lines + lines[last + 1:])
        if mutated in seen:
            return  # two sites that seed the same text are one defect
        seen.add(mutated)
        occurrence = stripped_lines[:first + 1].count(stripped_lines[first])
        defects.append({"line": first + 1, "column": column, "kind": kind, "change": change,
                        "original": stripped_lines[first], "occurrence": occurrence, "text": mutated})

    def seed_in_line(kind, n, begin, end, replacement, change):
        seed(kind, n, n, [lines[n][:begin] + replacement + lines[n][end:]], change, begin + 1)

    def shown(text, limit=70):
        return text if len(text) <= limit else text[:limit - 3] + "..."

    for n, line in enumerate(code):
        stripped = line.strip()
        if not stripped or stripped.startswith("#"):
            continue
        indent = re.match(r"\s*", lines[n]).group(0)
        # Operators, literals and names within the line.
        for kind, pattern, replacements in SIMPLE_KINDS:
            for match in re.finditer(pattern, line):
                found = match.group(0)
                if kind == "negation" and match.start() > 0 and line[match.start() - 1] == "!":
                    continue
                if kind == "constant":
                    # Not a digit inside a name, a floating-point number or a version-like run.
                    before = line[:match.start()]
                    if re.search(r"[\w.]$", before) or line[match.end():match.end() + 1] in (".", "x"):
                        continue
                    number = re.match(r"(0[xX][0-9A-Fa-f]+|\d+)([uUlL]*)", found)
                    if number.group(1)[:2].lower() == "0x":
                        choices = [f"0x{int(number.group(1), 16) + 1:X}{number.group(2)}"]
                    else:
                        choices = [str(int(number.group(1)) + 1) + number.group(2)]
                else:
                    choices = replacements
                for replacement in choices:
                    replacement = replacement.replace("CASE_SENSITIVE(", CASE_SENSITIVE)
                    seed_in_line(kind, n, match.start(), match.end(), replacement,
                                 f"`{found.strip()}` -> `{shown(replacement.strip(), 40) or '(nothing)'}`")
        # A text constant changed (the language linkage of extern "C" is no text).
        for match in re.finditer(r'L?"((?:[^"\\]|\\.)*)"', lines[n]):
            if line[match.start():match.start() + 1] not in ('"', "L") or re.search(r"extern\s*$", lines[n][:match.start()]):
                continue
            changed = match.group(0)[:-1] + '#"'
            seed_in_line("text constant", n, match.start(), match.end(), changed, f"`{match.group(0)}` -> `{changed}`")
        # A condition without an operator, inverted or forced.
        for match in re.finditer(r"\b(if|while)\s*\(", line):
            close = matching_close(line, match.end() - 1)
            if close is None:
                continue
            condition = line[match.end():close]
            if re.search(r"==|!=|<|>|&&|\|\||!", condition):
                continue
            original = lines[n][match.end():close]
            # FAILED() made SUCCEEDED() is the status kind's inversion already.
            inverted = [] if re.match(r"\s*(FAILED|SUCCEEDED)\(", condition) else [f"!({original.strip()})"]
            for replacement in inverted + ["true", "false"]:
                seed_in_line("condition", n, match.end(), close, replacement,
                             f"`({shown(original.strip(), 40)})` -> `({shown(replacement, 40)})`")
        # One side of a conjunction dropped.
        for match in re.finditer(r" && ", line):
            operands = conjunction_operands(line, match.start() + 1)
            if operands is None:
                continue
            (left_begin, left_end), (right_begin, right_end) = operands
            whole = lines[n][left_begin:right_end]
            for kept in (lines[n][left_begin:left_end], lines[n][right_begin:right_end]):
                seed_in_line("conjunction", n, left_begin, right_end, kept,
                             f"`{shown(whole, 50)}` -> `{shown(kept, 40)}`")
        # A jump deleted: a rethrow, a break, a continue, a bare return.
        for match in re.finditer(r"\b(throw|break|continue|return)\s*;", line):
            seed_in_line("deleted jump", n, match.start(), match.end(), "{}", f"`{match.group(0)}` deleted")
        # Two neighbouring arguments of a call swapped, where both are names.
        for match in re.finditer(r"\b([A-Za-z_]\w*)\s*\(", line):
            if match.group(1) in NOT_CALLS:
                continue
            close = matching_close(line, match.end() - 1)
            if close is None:
                continue
            parts = top_level_parts(line, match.end(), close, ",")
            for (a_begin, a_end), (b_begin, b_end) in zip(parts, parts[1:]):
                first, second = lines[n][a_begin:a_end], lines[n][b_begin:b_end]
                if not (SIMPLE_ARGUMENT.fullmatch(line[a_begin:a_end]) and SIMPLE_ARGUMENT.fullmatch(line[b_begin:b_end])):
                    continue
                if first.strip() == second.strip() or {first.strip(), second.strip()} & NOT_SWAPPED:
                    continue
                # A pointer made of one and not of the other: different types, which never compile swapped.
                if (first.strip()[0] in "&*") != (second.strip()[0] in "&*"):
                    continue
                swapped = first.replace(first.strip(), second.strip()) + "," + second.replace(second.strip(), first.strip())
                seed_in_line("swapped arguments", n, a_begin, b_end, swapped,
                             f"`{first.strip()}, {second.strip()}` swapped in `{match.group(1)}(...)`")
        # A returned value, replaced by the default of the function's type (a value that is already
        # a default, or a literal that the boolean kind changes, is left).
        for match in RETURN_VALUE.finditer(line):
            value = lines[n][match.start(1):match.end(1)]
            if re.fullmatch(r"\s*([\w:]+\(\)|true|false|nullptr|0|std::nullopt)\s*", value):
                continue
            new = lines[n][:match.start(1)] + "{}" + lines[n][match.end(1):]
            seed("returned value", n, n, [new], f"`return {value.strip()}` -> `return {{}}`", match.start() + 1)
        # A failure guard removed: an if whose only statement leaves the function.
        guard = re.match(r"\s*if\s*\(", line)
        if guard:
            close = matching_close(line, guard.end() - 1)
            after = line[close + 1:] if close is not None else None
            last = None
            if after is not None and WAY_OUT.match(after):
                last = n
            elif after is not None and not after.strip() and n + 1 < len(code) and WAY_OUT.match(code[n + 1]):
                last = n + 1
            elif after is not None and after.strip() == "{":
                end = block_end(code, n)
                if end is not None and end - n <= 6 and code[end].strip() == "}" and WAY_OUT.match(code[end - 1]):
                    last = end
            if last is not None and not (last + 1 < len(code) and code[last + 1].strip().startswith("else")):
                seed("removed guard", n, last, [indent + "{}\n"],
                     f"`{shown(' '.join(stripped_lines[n:last + 1]))}` removed")
        # Whole statements: a call, or an assignment, deleted; two neighbouring calls swapped.
        statement = whole_statement(code, n)
        if statement is None:
            continue
        kind, last = statement
        seed(kind, n, last, [indent + "{}\n"], f"`{shown(' '.join(stripped_lines[n:last + 1]))}` deleted")
        if kind == "deleted call" and last == n and n + 1 < len(code):
            following = whole_statement(code, n + 1)
            if following == ("deleted call", n + 1) and re.match(r"\s*", lines[n + 1]).group(0) == indent \
                    and stripped_lines[n] != stripped_lines[n + 1]:
                seed("swapped statements", n, n + 1, [lines[n + 1], lines[n]],
                     f"`{shown(stripped_lines[n], 40)}` and the next line swapped")
    return defects
