"""Names of archives as the program reads them."""


def as_listed(raw, behind=b""):
    """A name by the rules of the code page; a lead byte at its end takes the byte behind."""
    length = len(raw)
    raw += behind
    text, at = "", 0
    while at < length and raw[at] != 0:
        if raw[at] < 161:
            mapped = raw[at] < 32 or raw[at] == 127 or raw[at] == 42
            text += chr(0xF000 + raw[at] if mapped else raw[at])
            at += 1
            continue
        character = raw[at:at + 2].decode("gbk", "replace")
        text += character if len(character) == 1 else "\uFFFD"
        at += 2
    return text
