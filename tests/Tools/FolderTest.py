"""Runs the finished command line program on folders.

    FolderTest.py PROGRAM FOLDER-OF-MESSAGES-AND-VERSION
"""

import os
import shutil
import signal
import subprocess
import sys
import time
import unittest

from Harness import (ProgramTest, STAVE, RHYTHM, BASS, NO_STAVE, NOBODY, write, read, write_all,
                     find, read_table)


class FolderTest(ProgramTest):
    def test_folder(self):
        write_all("tabs", {
            "song.tab": STAVE, "LOUD.TaB": STAVE, "low.btab": BASS, "chords.crd": STAVE,
            "old.txt": "a word\n---\n" + STAVE, "notes.txt": "no tab\n", "rule.TXT": NO_STAVE,
            "cover.jpg": STAVE, "tab": STAVE, ".song.tab": "", ".trash/gone.tab": STAVE,
            "blues/a b/riff.tab": RHYTHM + STAVE, "blues/song.tab": STAVE})
        os.symlink("../..", "tabs/blues/loop")
        os.symlink("../other.tab", "tabs/link.tab")
        os.mkfifo("tabs/pipe.tab")
        tabs = ["LOUD.TaB", "blues/a b/riff.tab", "blues/song.tab", "chords.crd", "link.tab",
                "low.btab", "old.txt", "song.tab"]
        table = "".join(f"{label:23}{count}\n" for label, count in (
            ("converted", 8), ("  with lines left out", 1), ("not a tab", 1),
            ("  too few dashes", 1), ("without a stave", 1)))
        for options, folder, ending in (
                ([], "tabs", ".vif"), (["-o", "tabs/out"], "tabs/out", ".vif"),
                (["-oxml", "--format=musicxml"], "xml", ".musicxml")):
            if ending == ".musicxml" and not self.writes_music_xml:
                continue
            with self.subTest(options):
                self.assertEqual(self.run_program("tabs", *options), (0, table, ""))
                scores = [os.path.splitext(tab)[0] + ending for tab in tabs]
                self.assertEqual(find(ending, folder), scores)
                for tab, score in zip(tabs, scores):
                    self.run_program("-o", "alone" + ending, "tabs/" + tab)
                    self.assertEqual(read(os.path.join(folder, score)), read("alone" + ending))
                    os.remove(os.path.join(folder, score))
        self.assertEqual(self.run_program("tabs", "song.tab", "--quiet", "-o", "both"), (1, "", (
            "tabulorix: song.tab: its score would replace the one just written to both/song.vif\n")))

    def test_folder_with_other_things(self):
        os.mkdir("empty")
        write_all("tabs", {"prose.tab": "no tab\n", "letter.txt": "no tab\n", "empty.crd": "",
                           "bytes.tab": b"\xE9" * 60, "heading.btab": NO_STAVE, "z/song.tab": STAVE,
                           "a.btab": BASS, "a.tab": STAVE, "a.txt": STAVE, "b.tab": STAVE,
                           "new\nline\x1b[2J\u009bm\u00e9.tab": ""})
        os.symlink("z/song.tab", "tabs/b.vif")
        os.symlink("nowhere", "tabs/gone.tab")
        status, out, err = self.run_program("tabs", "empty", "missing.txt")
        self.assertEqual(status, 1)
        self.assertEqual(read_table(out), {
            "converted": 4, "not a tab": 5, "too few dashes": 2, "not text": 1, "empty": 2,
            "without a stave": 1, "failed": 4})
        self.assertEqual([line.split(": ")[1] for line in err.splitlines()], [
            "empty", "tabs/b.tab", "tabs/bytes.tab", "tabs/gone.tab",
            "tabs/new?line?[2J??m\u00e9.tab", "tabs/prose.tab", "tabs/empty.crd",
            "tabs/heading.btab", "missing.txt"])
        self.assertEqual(read("tabs/z/song.tab").decode(), STAVE)
        write_all("twins", {"a.tab": STAVE, "a.txt": "words\n"})
        self.assertEqual(self.run_program("twins", "--quiet")[0], 0)
        for tab, score in (("a.tab", "a.vif"), ("a.btab", "a.btab.vif"), ("a.txt", "a.txt.vif")):
            self.run_program("-o", "a.vif", "tabs/" + tab)
            self.assertEqual(read("tabs/" + score), read("a.vif"))

    def test_folder_that_fails_in_places(self):
        deep = "/".join(["d" * 250] * 14)
        write_all("tabs", {"a.tab": STAVE, "locked/b.tab": STAVE, "taken/c.tab": STAVE,
                           "unread.tab": STAVE, f"{deep}/d.tab": STAVE, "z/e.tab": STAVE})
        os.makedirs("out")
        write("out/taken", "")
        os.chmod("tabs/unread.tab", 0)
        os.chmod("tabs/locked", 0)
        os.chmod("out", 0o777)
        user = {"user": NOBODY} if os.geteuid() == 0 else {}
        # The way to the deepest score has no room in a path.
        out_folder = "out/" + "." + "/" * 600
        status, out, err = self.run_program("tabs", "-o", out_folder, **user)
        self.assertEqual((status, read_table(out)), (1, {"converted": 2, "failed": 4}))
        for line, reason in zip(err.splitlines(), (
                "tabs/locked: cannot be read: Permission denied",
                "tabs/unread.tab: cannot be read: Permission denied",
                "d/d.tab: .*File name too long", r"tabs/taken/c\.tab: .*Not a directory")):
            self.assertRegex(line, reason + "$")
        self.assertEqual(find(".vif", "out"), ["a.vif", "z/e.vif"])
        os.chmod("tabs/locked", 0o755)

    def test_interrupted_folder(self):
        write_all("tabs", {"%03d.tab" % i: (STAVE + "\n") * 300 for i in range(200)})
        for number, at_work in ((signal.SIGINT, True), (signal.SIGTERM, False)):
            running = subprocess.Popen([self.program, "tabs", "-o", "out"], stdout=subprocess.PIPE)
            while not os.path.exists("out/001.vif"):
                self.assertIsNone(running.poll(), "it has ended before anything was converted")
                time.sleep(0.001)
            # While a score is written, and while the next tab is looked at.
            if at_work:
                self.signal_at_work(running, number)
            else:
                running.send_signal(number)
            table = read_table(running.communicate()[0].decode())
            self.assertEqual(running.returncode, -number)
            self.assertEqual(table["converted"], len(os.listdir("out")))
            self.assertEqual(table["converted"] + table["not reached"], 200)
            shutil.rmtree("out")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
