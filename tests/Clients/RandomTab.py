"""Tabs drawn by lot: staves of several sizes and tunings with rhythm lines, counts or neither, time
signatures, section labels and chords, and now and then bytes that no format likes."""

import random

NAMES = {4: ["GDAE", "GDAD"], 6: ["eBGDAE", "eBGDAD", "dBGDGD", "      "], 7: ["eBGDAEB"]}
LETTERS = {"W": 1024, "H": 512, "Q": 256, "E": 128, "S": 64, "T": 32, "X": 16}
METERS = ["4/4", "3/4", "6/8", "2/2", "7/8", "5/4", "3/16"]
CHORDS = ["C", "Am7", "F#m", "Bb", "D/F#", "G7sus4", "Cmaj7", "Dm7b5", "Eaug", "A6/9", "Bdim7",
          "E(add9)", "CM7", "Absus2/Eb", "G13", "Em7(b5)#9"]
LABELS = ["Verse", "Chorus 2 (x2)", "Intro & <solo>", "Solo\x01\x1b \x85\xe9", "Bridge \u266a \ufffe"]


def draw_bar(lot, rhythm, length, strings):
    """The lines of a bar: chords, rhythm, strings."""
    slots, left = [], length
    while left > 0:
        if rhythm == "letters":
            mark = lot.choice([m for m in LETTERS if LETTERS[m] <= left] or ["X"])
            mark += lot.choice(["", "", "", ".", ".."])
            left -= LETTERS[mark[0]]
        else:
            left -= 128
            mark = str(len(slots) // 2 % 9 + 1) if len(slots) % 2 == 0 else "+"
        slots.append((mark if rhythm else "", len(mark) + lot.choice([2, 2, 3, 6])))
    rows = ["-"] * strings
    chords, marks = " ", " "
    for mark, width in slots:
        frets = lot.sample(range(strings), lot.choice([0, 1, 1, 1, 2, strings]))
        high = lot.random() < 0.1
        for i in range(strings):
            fret = str(lot.randint(9, 22) if high else lot.randint(0, 9)) if i in frets else ""
            rows[i] += fret.ljust(width, "-")
        marks += mark.ljust(width)
        chords += (lot.choice(CHORDS) if lot.random() < 0.15 else "").ljust(width)[:width]
    return [chords, marks] + rows


def draw_tab(seed):
    """The bytes of a tab and the level that its rhythms are to be read at."""
    lot = random.Random(seed)
    strings = lot.choice([4, 6, 6, 6, 7])
    rhythm = lot.choice(["letters", "letters", "counts", ""])
    text = "Piece number %d\n\n" % seed
    for _ in range(lot.randint(1, 4)):
        top, bottom = (int(part) for part in lot.choice(METERS).split("/"))
        bars = [draw_bar(lot, rhythm, top * 1024 // bottom, strings)
                for _ in range(lot.randint(1, 4))]
        if lot.random() < 0.5:
            text += lot.choice(LABELS) + "\n"
        text += "  %d/%d\n" % (top, bottom) if lot.random() < 0.6 else "\n"
        names = "  " + lot.choice(NAMES[strings])
        for i, row in enumerate(zip(*bars)):
            text += (names[i].strip() + "|" if i > 1 else " ") + (" |"[i > 1]).join(row)
            text += "|\n" if i > 1 else "\n"
        text += "\n"
    encoding = lot.choice(["utf-8", "latin-1"])
    return text.encode(encoding, "replace"), lot.choice(["never", "indicated", "always"])
