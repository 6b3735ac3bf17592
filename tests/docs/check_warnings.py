#!/usr/bin/env python3
"""Compares the warnings that docs/processing-log.md explains with those that the sources write.

Warnings are put together from literals and values. This program puts them together in the same way:
every value that is no literal must be known to it, so a new kind of warning makes it fail until it
has been told about it.
"""

import re
import sys

from markdown import ROOT, fail_with, read, table_rows

LITERAL = r'"(?:[^"\\]|\\.)*"'

# What stands in the documentation for a value of the run.
PLACEHOLDERS = [
    (r"std::to_string\([^()]*\)", "N"),
    (r"resultFilePath|logFilePath|dataFilePath|\bpath\b", "PATH"),
]


def sources():
    for folder in ("input", "route2", "report", "host", "compute"):
        for path in sorted((ROOT / folder).glob("*.cpp")):
            yield path.name, path.read_text(encoding="utf-8")


def arguments_of(text, start):
    """Text between the parenthesis at `start` and its partner."""
    depth, in_string, i = 0, False, start
    while True:
        c = text[i]
        if in_string:
            if c == "\\":
                i += 1
            elif c == '"':
                in_string = False
        elif c == '"':
            in_string = True
        elif c == "(":
            depth += 1
        elif c == ")":
            depth -= 1
            if depth == 0:
                return text[start + 1:i]
        i += 1


def calls(text, name):
    for match in re.finditer(rf"\b{name}\(", text):
        arguments = arguments_of(text, match.end() - 1)
        if "std::FILE*" not in arguments and "const char*" not in arguments:
            yield arguments


def first_argument_split(arguments):
    """(first argument, the rest)."""
    first, _, rest = arguments.partition(",")
    return first.strip(), rest.strip()


def literals(text):
    return [bytes(found[1:-1], "utf-8").decode("unicode_escape")
            for found in re.findall(LITERAL, text)]


def strip_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def possible_values():
    """Literals that a named value can have, over all sources."""
    values = {"subject": set(), "purpose": set(), "current->nameInWarning": set(),
              "lineLimitWarning": set()}
    for _, text in sources():
        text = strip_comments(text)
        for arguments in calls(text, "RequireStoryInfo"):
            values["subject"].update(literals(arguments))
        for arguments in calls(text, "AskEndHeights"):
            values["purpose"].update(literals(arguments))
        table = re.search(r"kAllowableValues\[\] = \{(.*?)\};", text, flags=re.S)
        if table:
            for row in re.findall(r"\{([^{}]*)\}", table.group(1)):
                values["current->nameInWarning"].add(literals(row)[-1])
        for arguments in calls(text, "ReadInputFile"):
            limits = [t for t in literals(joined(arguments)) if "line number is too large" in t]
            values["lineLimitWarning"].update(limits)
    return values


def joined(text):
    """Literals that stand side by side become one."""
    return re.sub(r'"\s*"', "", text)


def warning_texts(expression, local_values, values):
    """All texts that a string expression can have."""
    expression = joined(expression).strip()
    expression = re.sub(r"^std::string\((.*)\)$", r"\1", expression, flags=re.S)
    texts = [""]
    for term in split_at_plus(expression):
        texts = [text + end for text in texts for end in term_texts(term, local_values, values)]
    return texts


def split_at_plus(expression):
    terms, depth, in_string, start = [], 0, False, 0
    for i, c in enumerate(expression):
        if c == '"' and (i == 0 or expression[i - 1] != "\\"):
            in_string = not in_string
        elif not in_string and c in "()":
            depth += 1 if c == "(" else -1
        elif not in_string and depth == 0 and c == "+":
            terms.append(expression[start:i].strip())
            start = i + 1
    return terms + [expression[start:].strip()]


def term_texts(term, local_values, values):
    inner = re.fullmatch(rf"std::string\(({LITERAL})\)", term)
    if inner:
        term = inner.group(1)
    if re.fullmatch(LITERAL, term):
        return literals(term)
    if term in local_values:
        return warning_texts(local_values[term], local_values, values)
    if term in values:
        return sorted(values[term])
    for pattern, placeholder in PLACEHOLDERS:
        if re.fullmatch(pattern, term):
            return [placeholder]
    raise SystemExit(f"check_warnings.py does not know what {term!r} stands for in a warning")


def written_warnings():
    values = possible_values()
    found = set()
    for name, text in sources():
        if name == "processing_log.cpp":
            continue
        text = strip_comments(text)
        local_values = {match.group(1): match.group(2) for match in re.finditer(
            r"const std::string (\w+) =\s*(.*?);", text, flags=re.S)}
        for arguments in calls(text, "LogWarning"):
            _, expression = first_argument_split(arguments)
            found.update(warning_texts(expression, local_values, values))
    return found


def explained_warnings():
    found = set()
    for cells in table_rows(read("docs/processing-log.md")):
        code = re.fullmatch(r"`(.+)`", cells[0])
        if code:
            found.add(code.group(1))
    return found


def main():
    written, explained = written_warnings(), explained_warnings()
    problems = [f"docs/processing-log.md does not explain: {text}"
                for text in sorted(written - explained)]
    problems += [f"docs/processing-log.md explains what no source writes: {text}"
                 for text in sorted(explained - written)]
    if len(written) < 20:
        problems.append(f"only {len(written)} warnings were found in the sources")
    return fail_with(problems)


if __name__ == "__main__":
    sys.exit(main())
