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


def utf8_as_listed(raw):
    """The same of a name with the flag for UTF-8."""
    text = ""
    raw = raw.split(b"\0")[0]
    while raw:
        for length in (1, 2, 3, 4):
            try:
                character = raw[:length].decode("utf-8")
            except UnicodeDecodeError:
                continue
            if 0xF000 <= ord(character) <= 0xF0FF:
                text += "\uF000"
            mapped = ord(character) < 32 or ord(character) == 127 or character == "*"
            text += chr(0xF000 + ord(character)) if mapped else character
            break
        else:
            text, length = text + "\uFFFD", 1
        raw = raw[length:]
    return text
