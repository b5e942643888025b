"""Runs the finished command line program the way its users do.

    CommandLineTest.py PROGRAM FOLDER-OF-MESSAGES-AND-VERSION
"""

import glob
import os
import pty
import re
import resource
import shutil
import signal
import stat
import subprocess
import sys
import unittest

from Harness import (ProgramTest, STAVE, RHYTHM, BASS, NO_STAVE, FOUND, TOO_LONG_TO_CATCH, NOBODY,
                     read_defines, write, read, write_all)


class CommandLineTest(ProgramTest):
    def test_usage(self):
        version = read_defines("Version.h")
        number = ".".join(version[f"TABULORIX_VERSION_{p}"] for p in ("MAJOR", "MINOR", "PATCH"))
        self.assertEqual(self.run_program("--version"), (0, f"tabulorix {number}\n", ""))
        status, out, err = self.run_program("song.tab", "--help", "--nonsense")
        self.assertEqual((status, err), (0, ""))
        self.assertIn("Usage: tabulorix [options] FILE", out)
        for arguments, complaint in (
                ([], "no file is named"),
                (["--"], "no file is named"),
                ([""], "a file name is empty"),
                (["--nonsense", "song.tab"], 'there is no option "--nonsense"'),
                (["-q", "song.tab"], 'there is no option "-q"'),
                (["--quiet=yes", "song.tab"], "--quiet takes no value"),
                (["song.tab", "-o"], "-o needs a value"),
                (["song.tab", "--output="], "--output needs a value"),
                (["song.tab", "--rhythm"], "--rhythm needs a value"),
                (["song.tab", "--rhythm", "often"],
                 '--rhythm is never, indicated or always, not "often"'),
                (["song.tab", "--explain=pdf"], '--explain is text or html, not "pdf"'),
                (["song.tab", "--format=pdf"], '--format is vif or musicxml, not "pdf"'),
                (["-", "song.tab", "-"], "standard input can be named once only"),
                (["song.tab", "other.tab", "-o", "song.tab"],
                 'the output of several files must be a folder, not "song.tab"'),
                (["tmp", "-", "-o", "out"], "standard input cannot be named beside a folder"),
                (["--explain", "tmp"], "--explain takes files, not folders"),
                (["tmp", "-o", "-"], 'the output of a folder must be a folder, not "-"')):
            with self.subTest(arguments):
                self.assertEqual(self.run_program(*arguments),
                                 (2, "", f'tabulorix: {complaint}\nTry "tabulorix --help".\n'))
        self.assertEqual(glob.glob("*.vif"), [])

    def test_explanations(self):
        write("none.tab", "Words\n")
        status, out, err = self.run_program("--explain", "song.tab", "none.tab", "-",
                                            stdin=(RHYTHM + STAVE).encode())
        self.assertEqual((status, err), (0, ""))
        for part in ("song.tab\n1 stave, 2 bars, 30 notes, rhythms not shown",
                     "none.tab\nnot a tab",
                     "standard input\n1 stave, 2 bars, 30 notes, rhythms from a rhythm line"):
            self.assertIn(part, out)
        # What could be read is explained all the same, into one page.
        status, out, err = self.run_program("--explain=html", "-o", "page.html", "song.tab",
                                            "missing.tab", "other.tab")
        self.assertEqual((status, out), (1, ""))
        self.assertIn("tabulorix: missing.tab: cannot be read: No such file", err)
        page = read("page.html").decode()
        self.assertEqual([page.count(part) for part in ("<h1>", "<html", "</html>")], [2, 1, 1])
        self.assertEqual(self.run_program("--explain", "song.tab", "-o", "./song.tab"),
                         (1, "", "tabulorix: ./song.tab: cannot be written: "
                                 "it is one of the tabs\n"))
        self.assertEqual(read("song.tab").decode(), STAVE)
        with open("/dev/full", "wb") as full:
            status, _, err = self.run_program("--explain", "song.tab", stdout=full)
        self.assertEqual((status, err),
                         (1, "tabulorix: standard output: cannot be written: "
                             "No space left on device\n"))
        self.assertEqual(glob.glob("*.vif"), [])

    def test_colours_are_for_terminals_whose_users_want_them(self):
        for setting, has_colours in (
                ({}, True), ({"TERM": "dumb"}, False), ({"NO_COLOR": "1"}, False)):
            environment = dict(self.environment, TERM="xterm")
            environment.pop("NO_COLOR", None)
            environment.update(setting)
            near, far = pty.openpty()
            try:
                subprocess.run([self.program, "--explain", "song.tab"], env=environment, stdout=far,
                               check=True)
                self.assertEqual(b"\x1b[" in os.read(near, 100), has_colours)
            finally:
                os.close(near)
                os.close(far)

    def test_scores_go_where_they_are_wanted(self):
        os.mkdir("out")
        for name in (".tab", "song.v2.tab", "bare", "-dash"):
            write(name, STAVE)
        for arguments, scores in (
                (["song.tab", "out/../other.tab"], ["song.vif", "out/../other.vif"]),
                ([".tab", "song.v2.tab", "bare"], [".tab.vif", "song.v2.vif", "bare.vif"]),
                (["song.tab", "-o", "x.y"], ["x.y"]),
                (["-ox.vif", "song.tab"], ["x.vif"]),
                (["--output=out", "song.tab"], ["out/song.vif"]),
                (["--output", "out/", "song.tab", "other.tab"], ["out/song.vif", "out/other.vif"]),
                (["-o", "new", "song.tab", "other.tab"], ["new/song.vif", "new/other.vif"]),
                (["-o", "fresh/", "song.tab"], ["fresh/song.vif"]),
                (["-o", "out", "--", "-dash"], ["out/-dash.vif"]),
                (["-o", "out", "-"], ["out/stdin.vif"])):
            with self.subTest(arguments):
                status, out, err = self.run_program(*arguments, stdin=STAVE.encode())
                self.assertEqual((status, err), (0, ""))
                self.assertEqual([line.split(" -> ")[1] for line in out.splitlines()],
                                 [f"{score}: {FOUND}" for score in scores])
                for score in scores:
                    self.assertTrue(read(score).startswith(b'VifFileVersion "10100004"'))
                    os.remove(score)

    def test_formats(self):
        if not self.writes_music_xml:
            self.skipTest("SKIPPED: this build has no MusicXML")
        vif, xml = b'VifFileVersion "10100004"', b'<?xml version="1.0" encoding="UTF-8"?>'
        for arguments, score, start in (
                (["song.tab", "--format", "musicxml"], "song.musicxml", xml),
                (["song.tab", "--format=musicxml", "-o", "out/"], "out/song.musicxml", xml),
                (["-", "--format", "musicxml", "-o", "out"], "out/stdin.musicxml", xml),
                (["song.tab", "-o", "x.MusicXML"], "x.MusicXML", xml),
                (["song.tab", "--format", "vif", "-o", "y.musicxml"], "y.musicxml", vif),
                (["song.tab", "-o", "musicxml"], "musicxml", vif)):
            with self.subTest(arguments):
                self.assertEqual(self.run_program(*arguments, stdin=STAVE.encode()),
                                 (0, f"{arguments[0]} -> {score}: {FOUND}\n".replace(
                                     "- ->", "standard input ->"), ""))
                self.assertTrue(read(score).startswith(start))
        _, out, err = self.run_program("song.tab", "--format", "musicxml", "-o", "-")
        self.assertEqual((out, err), (read("song.musicxml").decode(),
                                      f"song.tab -> standard output: {FOUND}\n"))

    def test_standard_streams(self):
        self.run_program("song.tab")
        score = read("song.vif").decode()
        for arguments, name in ((["-"], "standard input"), (["-o", "-", "song.tab"], "song.tab"),
                                (["-", "-o-"], "standard input")):
            self.assertEqual(self.run_program(*arguments, stdin=STAVE.encode()),
                             (0, score, f"{name} -> standard output: {FOUND}\n"))
        self.assertEqual(self.run_program("--quiet", "-", stdin=STAVE.encode()), (0, score, ""))
        # Nothing but the score may mix with the score.
        _, out, err = self.run_program("-", "other.tab", stdin=STAVE.encode())
        self.assertEqual((out, err.count(FOUND)), (score, 2))

    def test_what_is_told(self):
        messages = read_defines("Messages.h")
        one = eval(messages["TABULORIX_TEXT_LINE_IGNORED"]).replace("%1", "1")
        many = eval(messages["TABULORIX_TEXT_LINES_IGNORED"])
        many = many.replace("%1", "10").replace("%2", "11")
        write("messy.tab", "       -- slow --\n" + STAVE + "\n\n---\n---\n")
        write("rhythm.tab", RHYTHM + STAVE)
        write("bass.tab", BASS)
        write("muted.tab", re.sub(r"\d", "x", STAVE))
        status, out, err = self.run_program("messy.tab")
        self.assertEqual((status, out), (0, f"messy.tab -> messy.vif: {FOUND}\n"))
        self.assertEqual(err, f"messy.tab: {one}\nmessy.tab: {many}\n")
        self.assertEqual(self.run_program("messy.tab", "--quiet"), (0, "", ""))
        for arguments, found in (
                (["rhythm.tab"], "guitar, 1 stave, 2 bars, 30 notes, rhythms from a rhythm line"),
                (["rhythm.tab", "--rhythm=never"], FOUND),
                (["song.tab", "--rhythm", "indicated"], FOUND),
                (["song.tab", "--rhythm", "always"], FOUND.replace("not shown", "from spacing")),
                (["muted.tab"], FOUND.replace("30", "0")),
                (["bass.tab"], "bass, 1 stave, 2 bars, 20 notes, rhythms not shown")):
            _, out, _ = self.run_program(*arguments)
            self.assertEqual(out.split(": ")[1], found + "\n")

    def test_files_without_score(self):
        write("prose.txt", "Dear all - no tab here.\n")
        write("bytes.tab", STAVE.encode() + b"\xE9" * 60)
        write("wide.tab", "hello".encode("utf-16"))
        write("empty.tab", "")
        write("heading.tab", NO_STAVE)
        size = len(STAVE) + 60
        reasons = {
            "prose.txt": "not a tab: no line has more than 10 dashes (the most is 1)",
            "bytes.tab": f"not a tab: only {len(STAVE) * 100 // size} % of its bytes are text "
                         f"({len(STAVE)} of {size}; at least 95 % must be)",
            "wide.tab": "not a tab: no line has more than 10 dashes (the most is 0), and only "
                        "41 % of its bytes are text (5 of 12; at least 95 % must be)",
            "empty.tab": "not a tab: it is empty",
            "missing.tab": "cannot be read: No such file or directory",
            "heading.tab": "there is no tab stave in it, so it has no score",
        }
        status, out, err = self.run_program("song.tab", *reasons, "other.tab", "--quiet")
        self.assertEqual((status, out), (1, ""))
        self.assertEqual(err, "".join(f"tabulorix: {f}: {why}\n" for f, why in reasons.items()))
        self.assertEqual(sorted(glob.glob("*.vif")), ["other.vif", "song.vif"])

    def test_nothing_needed_is_replaced(self):
        write("song.vif", STAVE)
        write("song.txt", STAVE)
        os.symlink("song.tab", "link.vif")
        for arguments, replaced in ((["song.vif"], "the input file song.vif"),
                                    (["song.tab", "song.vif"], "the input file song.vif"),
                                    (["song.tab", "-o", "link.vif"], "the input file link.vif")):
            with self.subTest(arguments):
                status, _, err = self.run_program(*arguments)
                self.assertEqual(status, 1)
                self.assertIn(f"its score would replace {replaced}\n", err)
        self.assertEqual((read("song.vif"), read("song.tab")), (STAVE.encode(), STAVE.encode()))
        status, _, err = self.run_program("song.tab", "./song.txt", "-o", ".")
        self.assertEqual(status, 1)
        self.assertEqual(err, "tabulorix: ./song.txt: "
                              "its score would replace the one just written to ./song.vif\n")

    def test_permissions_and_links(self):
        mask = os.umask(0o027)
        self.run_program("song.tab")
        os.umask(mask)
        write("kept.vif", "old")
        os.chmod("kept.vif", 0o604)
        os.symlink("kept.vif", "link.vif")
        self.assertEqual(self.run_program("song.tab", "-o", "link.vif")[0], 0)
        self.assertTrue(os.path.islink("link.vif"))
        self.assertEqual(read("kept.vif"), read("song.vif"))
        self.assertEqual([stat.S_IMODE(os.stat(f).st_mode) for f in ("song.vif", "kept.vif")],
                         [0o640, 0o604])

    def test_failed_writes_keep_the_earlier_score(self):
        def limit_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))

        write("song.vif", "earlier")
        status, out, err = self.run_program("song.tab", preexec_fn=limit_files)
        self.assertEqual((status, out), (1, ""))
        self.assertRegex(err, r"^tabulorix: song\.tab: cannot write song\.vif: File too large\n$")
        self.assertEqual(read("song.vif"), b"earlier")
        os.chmod("song.vif", 0o444)
        os.mkdir("locked")
        write("taken.tab", STAVE)
        os.mkdir("taken.vif")
        os.chmod("taken.vif", 0o777)
        shutil.copy("song.tab", "locked")
        os.chmod("locked", 0o555)
        os.chmod(".", 0o777)
        os.chmod("tmp", 0o777)
        user = {"user": NOBODY} if os.geteuid() == 0 else {}
        for arguments, reason in (
                (["locked/song.tab"], "cannot make a file in .*locked/: Permission denied"),
                (["song.tab"], r"cannot write song\.vif: Permission denied"),
                (["taken.tab"], r"cannot write taken\.vif: Is a directory"),
                (["song.tab", "-o", "no/where/"], "cannot make the folder no/where/: No such .*"),
                (["song.tab", "-o", "/dev/full"], "cannot write /dev/full: No space left .*")):
            with self.subTest(arguments):
                status, out, err = self.run_program(*arguments, **user)
                self.assertEqual((status, out), (1, ""))
                self.assertRegex(err, f"^tabulorix: {arguments[0]}: {reason}\n$")
        os.chmod("locked", 0o755)
        self.assertEqual(read("song.vif"), b"earlier")

    def test_failing_standard_output(self):
        with open("/dev/full", "wb") as full:
            for arguments, name in ((["song.tab"], "standard output"),
                                    (["-o-", "song.tab"], "song.tab: cannot write standard output"),
                                    (["--help"], "standard output")):
                status, _, err = self.run_program(*arguments, stdout=full)
                self.assertEqual((status, err),
                                 (1, f"tabulorix: {name}: No space left on device\n"))
        reader, writer = os.pipe()
        os.close(reader)
        status, _, err = self.run_program("-o-", "song.tab", stdout=writer)
        os.close(writer)
        self.assertEqual((status, err), (1, "tabulorix: song.tab: cannot write standard output: "
                                            "Broken pipe\n"))

    def test_full_disk(self):
        os.mkdir("disk")
        mount = ["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", "disk"]
        if os.geteuid() != 0 or subprocess.run(mount, capture_output=True).returncode != 0:
            self.skipTest("SKIPPED: only root can make a small disk")
        try:
            write("disk/song.vif", "earlier")
            status, _, err = self.run_program("-o", "disk", "song.tab")
            self.assertEqual((status, err), (1, "tabulorix: song.tab: cannot write disk/song.vif: "
                                                "No space left on device\n"))
            self.assertEqual(os.listdir("disk"), ["song.vif"])
            self.assertEqual(read("disk/song.vif"), b"earlier")
        finally:
            subprocess.run(["umount", "disk"], check=True)

    def test_lack_of_memory(self):
        def limit_memory():
            resource.setrlimit(resource.RLIMIT_AS, (40_000_000, 40_000_000))

        if self.run_program("--version", preexec_fn=limit_memory)[0] != 0:
            self.skipTest("this build does not start in little memory")
        write("long.tab", TOO_LONG_TO_CATCH)
        # The staves of a run of lines overlap, so that its bars are more than its bytes.
        write("tall.tab", "|--------1---|\n" * 20_000)
        for name in ("long.tab", "tall.tab"):
            status, out, err = self.run_program(name, "song.tab", preexec_fn=limit_memory)
            self.assertEqual((status, err),
                             (1, f"tabulorix: {name}: there is not enough memory for it\n"))
            self.assertEqual(out, f"song.tab -> song.vif: {FOUND}\n")

    def test_interrupts(self):
        write("long.tab", TOO_LONG_TO_CATCH)
        write("long.vif", "earlier")
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGKILL):
            with self.subTest(number):
                running = self.start("long.tab", "song.tab", stderr=subprocess.PIPE)
                self.signal_at_work(running, number)
                self.assertEqual(running.communicate()[1], b"")
                self.assertEqual(running.returncode, -number)
                self.assertEqual(read("long.vif"), b"earlier")
                if number == signal.SIGKILL:
                    os.remove(self.leftovers()[0])
                self.assertEqual(self.leftovers(), [])
        self.assertFalse(os.path.exists("song.vif"))

    def test_progress_bar(self):
        write("long.tab", TOO_LONG_TO_CATCH)
        # As wide as the terminal allows; a narrow one has no room for the name.
        for arguments, columns, bar in ((["long.tab"], 0, rb"\rlong\.tab \[#[#.]{39}\]"),
                                        (["long.tab"], 40, rb"\rlong\.tab \[#[#.]{21}\]"),
                                        (["long.tab"], 25, rb"\r \[#[#.]{14}\]"),
                                        (["long.tab"], 19, b"^$"),
                                        (["long.tab", "--quiet"], 0, b"^$")):
            shown = self.read_terminal(columns, *arguments)
            self.assertRegex(shown, bar)
            self.assertRegex(shown, rb"(^|\r {24,}\r)$")
        write_all("tabs", {"a.tab": TOO_LONG_TO_CATCH, "b/b.tab": STAVE})
        self.assertRegex(self.read_terminal(0, "tabs"),
                         rb"\r1 of 2 \[#{20}\.{20}\]  50 %.*\r {57}\r$")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
