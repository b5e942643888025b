"""What the tests of the finished command line have in common: texts, and a folder to run it in."""

import fcntl
import glob
import os
import pty
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM, RESOURCES = (os.path.abspath(path) for path in sys.argv[1:3])
STAVE = "\n".join(name + "|-----0--2--3--|--5-----7----|" for name in "eBGDAE") + "\n"
RHYTHM = "       Q  Q  H     H     H\n"
BASS = "\n".join(name + "|-----0--2--3--|--5-----7----|" for name in "GDAE") + "\n"
NO_STAVE = "A heading\n--------------------\n"
FOUND = "guitar, 1 stave, 2 bars, 30 notes, rhythms not shown"
TOO_LONG_TO_CATCH = (STAVE + "\n") * 6000
NOBODY = 65534


def read_defines(name):
    with open(os.path.join(RESOURCES, name), encoding="ascii") as header:
        text = header.read().replace("\\\n", "")
    return dict(re.findall(r"#define (\w+)\s+(.+)", text))


def write(path, text):
    with open(path, "wb") as file:
        file.write(text if isinstance(text, bytes) else text.encode())


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write_all(folder, texts):
    for name, text in texts.items():
        path = os.path.join(folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        write(path, text)


def find(ending, folder):
    """The files below the folder, hidden ones too; links to folders are not followed."""
    paths = (os.path.relpath(os.path.join(parent, name), folder)
             for parent, _, names in os.walk(folder) for name in names)
    return sorted(path for path in paths if path.endswith(ending))


def read_table(out):
    return {label.strip(): int(count) for label, count in re.findall(r"^(.+?) +(\d+)$", out, re.M)}


class ProgramTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        # A copy that everybody may run.
        cls.home = tempfile.mkdtemp()
        os.chmod(cls.home, 0o755)
        cls.program = shutil.copy(PROGRAM, cls.home)
        tried = subprocess.run([cls.program, "--format=musicxml", "-"], input=STAVE.encode(),
                               capture_output=True)
        cls.writes_music_xml = b"this build" not in tried.stderr

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.home)

    def setUp(self):
        self.folder = tempfile.mkdtemp(dir=self.home)
        os.chmod(self.folder, 0o755)
        os.chdir(self.folder)
        os.mkdir("tmp")
        self.environment = dict(os.environ, TMPDIR=os.path.join(self.folder, "tmp"))
        for name in ("song.tab", "other.tab"):
            write(name, STAVE)

    def tearDown(self):
        self.assertEqual(self.leftovers(), [])
        os.chdir(self.home)
        shutil.rmtree(self.folder)

    def leftovers(self):
        return glob.glob("**/.tabulorix-*", recursive=True)

    def run_program(self, *arguments, stdin=b"", **options):
        """The status, standard output and standard error."""
        done = subprocess.run([self.program, *arguments], input=stdin, env=self.environment,
                              stdout=options.pop("stdout", subprocess.PIPE),
                              stderr=subprocess.PIPE, **options)
        return done.returncode, (done.stdout or b"").decode(), done.stderr.decode()

    def start(self, *arguments, **options):
        # What is to be caught at its work must not be faster than the one who catches it.
        return subprocess.Popen([self.program, *arguments], env=self.environment,
                                stdout=subprocess.DEVNULL, preexec_fn=lambda: os.nice(19), **options)

    def read_terminal(self, columns, *arguments):
        """What the terminal is given when the work lasts long, however fast the machine is."""
        terminal, end = pty.openpty()
        fcntl.ioctl(end, termios.TIOCSWINSZ, struct.pack("4H", 24, columns, 0, 0))
        running = self.start(*arguments, stderr=end)
        os.close(end)
        self.signal_at_work(running, signal.SIGSTOP)
        time.sleep(0.4)
        running.send_signal(signal.SIGCONT)
        shown = b""
        try:
            while chunk := os.read(terminal, 4096):
                shown += chunk
        except OSError:  # the program has closed its end
            pass
        os.close(terminal)
        self.assertEqual(running.wait(), 0)
        return shown

    def signal_at_work(self, running, number):
        while not self.leftovers():
            self.assertIsNone(running.poll(), "it has ended before it could be caught at its work")
            time.sleep(0.001)
        running.send_signal(number)
