"""The notes of a score document: what sounds, and where it lies on the strings."""

import re

# MuseScore knows no bars but of whole sixty-fourths and makes others longer.
GRID = 16
TOKEN = re.compile(r'"((?:[^"]|"")*)"|([{}])|[^\s{}"]+')


class Node:
    def __init__(self, label):
        self.label, self.text, self.children = label, "", []

    def __getitem__(self, path):
        """The child at the end of a path of labels; an empty one where there is none."""
        node = self
        for label in path.split("/"):
            node = next((c for c in node.children if c.label == label), Node(""))
        return node

    def number(self, label):
        return int(self[label].text or 0)


def read_document(path):
    with open(path, encoding="latin-1", newline="") as file:
        tokens = TOKEN.finditer(file.read())
    levels, node = [Node("")], None
    for token in tokens:
        word = token.group()
        if word == "{":
            # An object in a list has neither label nor text before its brace.
            if node is None:
                node = Node("")
                levels[-1].children.append(node)
            levels.append(node)
            node = None
        elif word == "}":
            levels.pop()
            node = None
        elif word[0] == '"' and node is not None and node.text == "":
            node.text = token.group(1)
        else:
            node = Node("" if word[0] == '"' else word)
            node.text = token.group(1) or ""
            levels[-1].children.append(node)
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
