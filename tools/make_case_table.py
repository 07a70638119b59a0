#!/usr/bin/env python3
"""Writes the ranges of Unicode's simple upper-case or lower-case mapping.

    python3 tools/make_case_table.py upper > core/text/upper_case_table.inc
    python3 tools/make_case_table.py lower > core/text/lower_case_table.inc
"""
import sys
import unicodedata


def simple_upper_case(code):
    """The one character that is the upper case of `code`, or `code` itself when there is none.

    Python knows only the full mapping, which may be of several characters. Where it is, the letters
    that have a simple mapping too are those with a title case of one character.
    """
    character = chr(code)
    upper = character.upper()
    if len(upper) == 1:
        return ord(upper)
    title = character.title()
    return ord(title) if len(title) == 1 else code


def simple_lower_case(code):
    """The one character that is the lower case of `code`. The full mapping has two characters only for the
    capital I with a dot, of which the first is the simple one."""
    return ord(chr(code).lower()[0])


def ranges(mapping):
    """Tuples (first, last, stride, delta) that cover all letters that change, in ascending order."""
    found = []
    for code in range(0x110000):
        if 0xD800 <= code <= 0xDFFF:
            continue
        delta = mapping(code) - code
        if delta == 0:
            continue
        if found:
            first, last, stride, last_delta = found[-1]
            step = code - last
            if delta == last_delta and (step == stride or (first == last and step <= 2)):
                found[-1] = (first, code, step, delta)
                continue
        found.append((code, code, 1, delta))
    return found


print(f"// Made by tools/make_case_table.py {sys.argv[1]} from Unicode {unicodedata.unidata_version}. First and "
      "last letter of a range,")
print("// the stride from letter to letter, what is added to a letter.")
print("// clang-format off")
for entry in ranges(simple_upper_case if sys.argv[1] == "upper" else simple_lower_case):
    print("{{0x{:04X}, 0x{:04X}, {}, {}}},".format(*entry))
print("// clang-format on")
