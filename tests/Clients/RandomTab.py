"""Tabs drawn by lot: staves of several sizes and tunings with rhythm lines, counts or neither, time
signatures, section labels and chords, and now and then bytes that no format likes."""

import random

NAMES = {4: ["GDAE", "GDAD"], 6: ["eBGDAE", "eBGDAD", "dBGDGD", [""] * 6], 7: ["eBGDAEB"]}
METERS = ["4/4", "3/4", "6/8", "2/2", "7/8", "5/4", "3/16"]
CHORDS = ["C", "Am7", "F#m", "Bb", "D/F#", "G7sus4", "Cmaj7", "Dm7b5", "Eaug", "A6/9", "Bdim7",
          "E(add9)", "CM7", "Absus2/Eb", "G13", "Em7(b5)#9"]
LABELS = ["Verse", "Chorus 2 (x2)", "Intro & <solo>", "Solo\x01\x1b \x85\xe9", "Bridge \u266a \ufffe"]


def draw_place(lot, rhythm, place, strings):
    """The columns of the bar's place of this number: chord, rhythm, strings."""
    marks = {"letters": lot.choice("WHQQEEEESSTX") + lot.choice(["", "", "", ".", ".."]),
             "counts": "+" if place % 2 else str(place // 2 % 9 + 1), "": ""}
    width = max(len(marks[rhythm]), 1) + lot.choice([2, 2, 3, 6])
    chord = lot.choice(CHORDS) if lot.random() < 0.15 else ""
    lowest, highest = (9, 22) if lot.random() < 0.1 else (0, 9)
    struck = lot.sample(range(strings), lot.choice([0, 1, 1, 1, 2, strings]))
    frets = [str(lot.randint(lowest, highest)) if i in struck else "" for i in range(strings)]
    return [chord.ljust(width)[:width], marks[rhythm].ljust(width),
            *(fret.ljust(width, "-") for fret in frets)]


def draw_tab(seed):
    """The bytes of a tab and the level that its rhythms are to be read at."""
    lot = random.Random(seed)
    strings = lot.choice([4, 6, 6, 6, 7])
    rhythm = lot.choice(["letters", "letters", "counts", ""])
    text = "Piece number %d\n\n" % seed
    for _ in range(lot.randint(1, 4)):
        meter = lot.choice(METERS)
        top, bottom = map(int, meter.split("/"))
        columns = [[" ", " ", *lot.choice(NAMES[strings])]]
        for _ in range(lot.randint(2, 4)):
            columns.append(["  ", "  "] + ["|-"] * strings)
            columns += [draw_place(lot, rhythm, i, strings) for i in range(-(-top * 8 // bottom))]
        columns.append(["", ""] + ["|"] * strings)
        text += lot.choice(LABELS) + "\n" if lot.random() < 0.5 else ""
        text += "  " + meter + "\n" if lot.random() < 0.6 else "\n"
        text += "\n".join(map("".join, zip(*columns))) + "\n\n"
    encoding = lot.choice(["utf-8", "latin-1"])
    return text.encode(encoding, "replace"), lot.choice(["never", "indicated", "always"])
