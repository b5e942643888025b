"""The notes of a score document: what sounds, and where it lies on the strings."""

import re

# MuseScore knows no bars but of whole sixty-fourths and makes others longer.
GRID = 16
# A node or a brace has a line of its own; a text may go on over several.
LINE = re.compile(r'\t*(?:([{}])|([^\s{}"]*) ?(?:"((?:[^"]|"")*)")?)\r\n')


class Node:
    def __init__(self, label="", text=""):
        self.label, self.text, self.children = label, text, []

    def __getitem__(self, label):
        """The first child of this label; an empty one where there is none."""
        return next((child for child in self.children if child.label == label), Node())

    def number(self, label):
        return int(self[label].text or 0)


def read_document(path):
    levels = [Node()]
    with open(path, encoding="latin-1", newline="") as file:
        for brace, label, text in LINE.findall(file.read()):
            if brace == "}":
                levels.pop()
            elif brace:
                levels.append(levels[-1].children[-1])
            else:
                levels[-1].children.append(Node(label, text))
    return levels[0].children[0]


def bars_of(music):
    """Each bar of the score with its start: a bar lasts as long as it says, or as its notes do."""
    start = 0
    bars = music["Staves"].children[0]["Bars"].children
    for bar, spacing in list(zip(bars, music["BarSpacings"].children))[1:]:
        events = [item for item in bar["Items"].children if item["Type"].text == "NoteRest"]
        yield start, events
        length = max([spacing.number("BarLength")] +
                     [event.number("Sr") + 2 ** event.number("Durn") for event in events])
        start += -(-length // GRID) * GRID


def sounds(music):
    """The notes as (onset, pitch, length) in ticks, 1024 to a whole note, tied ones as one."""
    notes = []
    for start, events in bars_of(music):
        tied = []
        for event in events:
            length, going_on = 2 ** event.number("Durn"), []
            for i, note in enumerate(event["Notes"].children):
                if tied:
                    entry = tied[i]
                    entry[2] += length
                else:
                    entry = [start + event.number("Sr"), note.number("Chrom2") // 2, length]
                    notes.append(entry)
                going_on += [entry] if note.number("Flags") & 1 else []
            tied = going_on
    return set(map(tuple, notes))


def frets(music):
    """Each note as (bar, string, fret), strings from the bottom: those that the stave has."""
    first = music["Staves"].children[0]["Bars"].children[0]["Items"].children
    name = next(item["StaveType"].text for item in first if item["StaveType"].text)
    stave_type = next(t for t in music["StaveTypes"].children if t["Name"].text == name)
    tuning = [int(pitch.text) // 2 for pitch in reversed(stave_type["Pitches"].children)]
    notes = ((bar, note.number("StringNum"), note.number("Chrom2") // 2)
             for bar, (_, events) in enumerate(bars_of(music))
             for event in events for note in event["Notes"].children)
    return {(bar, string, pitch - tuning[string]) for bar, string, pitch in notes
            if string < len(tuning) and pitch >= tuning[string]}
