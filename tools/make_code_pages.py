#!/usr/bin/env python3
"""Writes src/embedded/base/code_pages.inc, the decoding tables of the code pages.

Usage: tools/make_code_pages.py > src/embedded/base/code_pages.inc

Each row is a UTF-16 literal with the characters themselves, so that the tables can be read and
compared. U+FFFD stands for "no character here". Code page 936 differs from Python's gbk by the
byte 80 (the euro sign) and by its private-use areas; both are simple enough to be code.
"""

SINGLE_BYTE_PAGES = (1250, 1251, 1252)
LEADS = range(0x81, 0xFF)
TRAILS = [t for t in range(0x40, 0xFF) if t != 0x7F]


def decode(data, codec):
    try:
        text = data.decode(codec)
    except UnicodeDecodeError:
        return "\ufffd"
    return text if len(text) == 1 and ord(text) < 0x10000 else "\ufffd"


def literal(characters):
    """Controls, blanks that an editor might change, and marks that don't show are escaped."""
    hidden = {0xA0, 0xAD, 0x2028, 0x2029, 0x3000, 0xFFFD}
    return "".join(
        f"\\u{ord(c):04X}" if ord(c) in hidden or not c.isprintable() else c for c in characters
    )


def main():
    print("// Made by tools/make_code_pages.py; not edited by hand.")
    for page in SINGLE_BYTE_PAGES:
        row = [decode(bytes([b]), f"cp{page}") for b in range(0x80, 0x100)]
        print(f"// Bytes 80 to FF of code page {page}.")
        print(f'constexpr char16_t kPage{page}[] =\n    u"{literal(row)}";')
    print("// Code page 936: a row a lead byte 81 to FE, in it the trail bytes 40 to 7E, 80 to FE.")
    print("constexpr char16_t kPage936[] =")
    for lead in LEADS:
        row = [decode(bytes([lead, trail]), "gbk") for trail in TRAILS]
        print(f'    u"{literal(row)}"' + (";" if lead == LEADS[-1] else ""))


if __name__ == "__main__":
    main()
