"""Drives the finished plug-in with the stand-in host, in Windows processes under Wine.

    PluginTest.py BUILD SECOND-BUILD NATIVE-BUILD [TEST...]

Needs a display for the dialog. Both builds are of the same sources, made in different folders.
"""

import glob
import os
import re
import resource
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

BUILD, SECOND_BUILD, NATIVE_BUILD = (os.path.abspath(path) for path in sys.argv[1:4])
ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
PLUGIN = os.path.join("Tabulorix", "Plugin", "Tabulorix.dll")
HOST = os.path.join(BUILD, "Tools", "StandInHost", "StandInHost")
EXAMPLES = sorted(glob.glob(os.path.join(ROOT, "examples", "*.*tab")))
STAVE = "".join(name + "|-----0--2--3--|--5-----7----|\n" for name in "eBGDAE")
MESSY = "       -- slow --\n" + STAVE + "\n\n---\n---\n"
# Labels, chords and a text with every byte that is none of a tab's, and a carriage return alone.
STRANGE = b"".join(b"Verse " + bytes([byte]) + b"\r\r\nAm" + bytes([byte]) + b"  C/G\n" +
                   STAVE.encode() + b"\n" for byte in (0, *range(128, 256)))
NO_STAVE = "A heading\n--------------------\n"
TIMEOUT = 120
ENDING = ["VEL_UPDATEPROGRESSDIALOG(0x5EED, 100, \"\")", "VEL_DESTROYPROGRESSDIALOG(0x5EED)"]
# What one import of STAVE calls; the path of the score is taken out.
UPDATES = [f"VEL_UPDATEPROGRESSDIALOG(0x5EED, {n}, \"\")" for n in (0, 0, 10, 20, 20, 50, 80)]
WHOLE_IMPORT = ['VEL_CREATEPROGRESSDIALOG_2(0x5EED, "Tabulorix", 0, 100, 30)', *UPDATES,
                "VEL_LOADTEMPFILE", *ENDING]


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write(path, content):
    with open(path, "wb") as file:
        file.write(content if isinstance(content, bytes) else content.encode())


def windows_path(path):
    return "Z:" + os.path.abspath(path).replace("/", "\\")


def read_defines(name):
    text = read(os.path.join(ROOT, "resources", name)).decode("ascii").replace("\\\n", "")
    return dict(re.findall(r"#define (\w+)\s+(.+)", text))


def runtime_library(name):
    compiler = "i686-w64-mingw32-g++"
    return subprocess.check_output([compiler, "-print-file-name=" + name], text=True).strip()


class Log:
    """What a host printed."""

    def __init__(self, text, status):
        self.text, self.status = text, status
        self.lines = text.splitlines()

    def calls(self, indent=2):
        """The callbacks at one depth, without the score's path."""
        pattern = re.compile(" " * indent + r"(VEL_\w+\(.*\))$")
        found = [match[1] for match in map(pattern.match, self.lines) if match]
        return ["VEL_LOADTEMPFILE" if call.startswith("VEL_LOADTEMPFILE") else call
                for call in found]

    def results(self, function):
        return [int(n) for n in re.findall(rf"^ *{function} = (-?\d+)$", self.text, re.M)]

    def imports(self):
        """A log for each outermost call of VEL_OPENFILE."""
        found = re.findall(r"^VEL_OPENFILE\(.*?^VEL_OPENFILE = -?\d+$", self.text, re.M | re.S)
        return [Log(text, self.status) for text in found]


class PluginTest(unittest.TestCase):
    """Tabs are named without their folders, in which a dot would hide their extensions."""
    maxDiff = None

    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        os.chdir(self.folder)
        for name in ("temp", "settings", "scores"):
            os.mkdir(name)
        write("song.tab", STAVE)
        write("messy.tab", MESSY)

    def command(self, *arguments, shared=False):
        return ["wine", HOST + ("Shared.exe" if shared else ".exe"),
                "--temp", windows_path("temp"), "--settings", windows_path("settings"),
                "--scores", windows_path("scores"), *arguments[:-1],
                windows_path(os.path.join(BUILD, PLUGIN)), *arguments[-1]]

    def run_host(self, *arguments, shared=False, status=0, **options):
        """The options, then the list of steps. Nothing may be complained about or left behind."""
        done = subprocess.run(self.command(*arguments, shared=shared), text=True, timeout=TIMEOUT,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, **options)
        log = Log(done.stdout, done.returncode)
        self.assertEqual(log.status, status, log.text)
        self.assertNotIn("COMPLAINT", log.text)
        return log

    def native_score(self, path, level="indicated"):
        program = os.path.join(NATIVE_BUILD, "Tools", "CommandLine", "tabulorix")
        done = subprocess.run([program, "--rhythm", level, "-o", "native.vif", path],
                              check=True, capture_output=True, text=True)
        return read("native.vif"), done.stderr

    def assert_loaded(self, name, level="indicated"):
        score = os.path.join("scores", name + ".vif")
        self.assertEqual(read(score), self.native_score(name, level)[0])
        os.remove(score)

    def assert_clean(self):
        self.assertEqual(os.listdir("temp"), [])

    def test_imports(self):
        write("strange.tab", STRANGE)
        tabs = [os.path.basename(shutil.copy(path, ".")) for path in EXAMPLES] + ["strange.tab"]
        for answer, level in (("always", "always"), ("only", "indicated"), ("never", "never")):
            log = self.run_host("--answer", answer + ",ok", tabs)
            for name, imported in zip(tabs, log.imports(), strict=True):
                with self.subTest(name=name, level=level):
                    score, messages = self.native_score(name, level)
                    self.assertEqual(
                        [call for call in imported.calls() if "MESSAGE" in call],
                        [f'VEL_RESULTSDIALOGMESSAGE("Tabulorix", "{name}", 4, -2, -2, '
                         f'"{line.split(": ", 1)[1]}")' for line in messages.splitlines()])
                    self.assertEqual(read(f"scores/{name}.vif"), score)
            self.assertEqual(log.results("VEL_OPENFILE"), [1] * len(tabs))
            self.assert_clean()
        self.assertRegex(log.text, r'VEL_LOADTEMPFILE\(".*\\temp\\[0-9a-f]{1,4}\.vif"\)')

    def test_log_can_be_watched(self):
        write("labels.tab", "Chorus\n" + STAVE)
        done = subprocess.run(self.command("--answer", "ok", ["labels.tab"]), timeout=TIMEOUT,
                              env=dict(os.environ, WINEDEBUG="warn+debugstr"), check=True,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.assertIn('"Riff chorus\\tm_Line == 0', done.stderr)

    def test_initialisation(self):
        call = "VEL_RESULTSDIALOGMESSAGE"
        both = ["message", "instruments"]
        song = "song.tab"
        # Each step must find the state that the one before it left.
        steps = ["term", *both, "init", *both, "without=6", "init", *both, song,
                 "init=null", "without=0", "init", *both, "open", song, "term", *both, song]
        log = self.run_host("--plain", "--answer", "ok", steps)
        self.assertEqual(log.results("VEL_INIT"), [1, 0, 0, 1])
        self.assertEqual(re.findall(rf"^{call} = (\d+)", log.text, re.M), "0 77 0 77 0".split())
        self.assertEqual(log.results("VEL_CHOOSETRANSPOSINGINSTRUMENTS"), [0, 88, 0, 88, 0])
        self.assertEqual(log.text.count("file types 3, constant 8, other fields untouched"), 3)
        self.assertIn(f'  {call}("title", "file", 2, 3, 4, "text")', log.lines)
        self.assertEqual([(i.results("VEL_OPENFILE"), i.calls()) for i in log.imports()],
                         [([1], []), ([0], []), ([1], WHOLE_IMPORT), ([1], [])])
        self.assert_clean()

    def test_options(self):
        path = "settings/TabulorixOptions.txt"
        version = read_defines("Version.h")
        version = [version["TABULORIX_VERSION_" + p] for p in ("MAJOR", "MINOR", "PATCH", "BUILD")]
        caption = "Gladraro v{}.{}.{} build {}".format(*version)
        # Stored before, the answer, the id of the button checked at first, what is stored then.
        for stored, answer, checked, then in (
                (None, "cancel", "1001", "1"), (None, "always,escape", "1001", "1"),
                (None, "never,close", "1001", "1"), (None, "alt+n,enter", "1001", "0"),
                ("0", "alt+a,ok", "1002", "2"), ("2", "alt+o,ok", "1000", "1"),
                ("5", "cancel", None, "5"), ("5", "ok", None, "0")):
            with self.subTest(stored=stored, answer=answer):
                if os.path.exists(path):
                    os.remove(path)
                if stored is not None:
                    write(path, f'{{ RhythmLevel "{stored}" }}')
                log = self.run_host("--answer", answer, ["song.tab"])
                self.assertIn(f'  dialog "{caption}" centred, default button 1', log.lines)
                buttons = re.findall(r"control (\d+) .* checked", log.text)
                self.assertEqual(buttons, [checked] if checked else [])
                ends = answer.endswith(("ok", "enter"))
                self.assertEqual(log.calls(), WHOLE_IMPORT if ends else ENDING)
                self.assertEqual(read(path), f'\r\n{{\r\n\tRhythmLevel "{then}"\r\n}}\r\n'.encode())

    def test_dialog_is_not_shown_again(self):
        songs = ["song.tab"] * 3
        log = self.run_host("--answer", "box,cancel", "--answer", "never,box,ok", "--repeat", "2",
                            songs)
        self.assertEqual([i.text.count("dialog \"") for i in log.imports()], [1, 1, 0, 1, 0, 0])
        self.assert_loaded("song.tab", "never")

    def test_second_file_while_the_dialog_is_open(self):
        other, song = "messy.tab", "song.tab"
        log = self.run_host("--answer", "never,ok", "--at", "dialog:open=" + other, [song])
        self.assertEqual(log.results("VEL_OPENFILE"), [1, 1])
        self.assertEqual(log.calls(), WHOLE_IMPORT)
        self.assertEqual(len(log.calls(6)), len(WHOLE_IMPORT) + 2)
        self.assert_loaded("song.tab", "never")
        self.assert_clean()

    def check_next_import(self, log, what):
        """However the first import ended, the second is like any other."""
        with self.subTest(what):
            first, second = log.imports()
            self.assertEqual(log.results("VEL_OPENFILE")[-1], 1)
            self.assertEqual(first.results("VEL_OPENFILE")[-1], 1)
            self.assertIn(ENDING[1], first.calls())
            self.assertEqual(second.calls(), WHOLE_IMPORT)
            self.assert_loaded("song.tab")
            self.assert_clean()
        return first.calls()

    def test_exceptions_from_every_callback(self):
        steps = ["messy.tab", "song.tab"]
        places = ("create", "update@1", "update@3", "results", "update@6", "load", "update@8",
                  "destroy")
        for kind in ("raise", "throw"):
            for place in places:
                # What a host of the same compiler throws can only pass with a shared run-time.
                log = self.run_host("--answer", "ok", "--at", f"{place}:{kind}", steps,
                                    shared=kind == "throw")
                calls = self.check_next_import(log, (kind, place))
                self.assertEqual("VEL_LOADTEMPFILE" in calls,
                                 place in ("load", "update@8", "destroy"))
        log = self.run_host("--answer", "ok", "--at", "update@4:crash", steps, status=3)
        self.assertEqual(log.lines[-1].strip(), "DIED: exception 0xC0000005")

    def test_failing_files(self):
        song = "song.tab"
        log = self.run_host("--answer", "ok", "--temp", windows_path("nowhere"), [song])
        self.assertEqual(log.results("VEL_OPENFILE"), [1])
        self.assertEqual(log.calls()[-2:], ENDING)
        self.assertNotIn("VEL_LOADTEMPFILE", log.calls())

        def limit_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (50_000, 50_000))

        # Fills up while the score is being written, as a disk would.
        log = self.run_host("--answer", "ok", [song], preexec_fn=limit_files, restore_signals=False)
        self.assertEqual(log.calls(), WHOLE_IMPORT[:-3] + ENDING)
        self.assert_clean()
        write("empty.tab", NO_STAVE)
        log = self.run_host("--answer", "ok", ["empty.tab", song])
        self.assertNotIn("VEL_LOADTEMPFILE", log.imports()[0].calls())
        (left,) = os.listdir("temp")
        self.assertRegex(left, r"^[0-9a-f]{1,4}\.vif$")

    def test_host_peculiarities(self):
        song = "song.tab"
        library = windows_path(runtime_library("libgcc_s_dw2-1.dll"))
        # A shared run-time that is none of the plug-in's, and a word with exceptions unmasked.
        log = self.run_host("--preload", library, "--control-word", "1272", "--answer", "ok",
                            "--at", "update@3:cancel", [song, song])
        self.check_next_import(log, "shared run-time")

    def test_cycles(self):
        for at, rounds, shared in (("update@3:cancel", 3000, False), ("update@3:raise", 300, False),
                                   ("results:throw", 300, True), ("load:term", 300, False)):
            with self.subTest(at):
                figures = self.figures_of_cycles(at, rounds, shared)
                self.assertEqual(len(figures), rounds // 100)
                for name in ("tls", "heap", "handles", "gdi", "user"):
                    values = [f[name] for f in figures]
                    self.assertLessEqual(max(values) - values[0], 256 if name == "heap" else 0,
                                         (name, values))
                memory = [f["resident"] for f in figures]
                self.assertLess(max(memory) - memory[0], 1024, memory)

    def figures_of_cycles(self, at, rounds, shared):
        command = self.command("--quiet", "--answer", "ok", "--repeat", str(rounds), "--figures",
                               "100", "--at", at, ["messy.tab"], shared=shared)
        figures = []
        with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, bufsize=1) as running:
            for line in running.stdout:
                self.assertRegex(line, r"^round \d+ ")
                found = {name: int(n) for name, n in re.findall(r"(\S+) (\d+)", line)}
                # Wine does not count for its processes what the system counts for them. The pages
                # of files are left out: they come and go with the memory that others need.
                status = read(f"/proc/{running.pid}/status").decode()
                found["resident"] = sum(int(kilobytes) for kilobytes in re.findall(
                    r"^(?:RssAnon|VmSwap):\s+(\d+) kB$", status, re.M))
                figures.append(found)
                # It stands still until it is told to go on, or it might have ended by now.
                running.stdin.write("\n")
        self.assertEqual(running.returncode, 0)
        return figures


class FileTest(unittest.TestCase):
    """The file itself, as the system's loader and curious people see it."""

    def test_facts(self):
        path = os.path.join(BUILD, PLUGIN)
        content = read(path)
        facts = subprocess.check_output(["i686-w64-mingw32-objdump", "-p", path], text=True)
        self.assertEqual(set(re.findall(r"\[ *\d+\] (VEL_\w+\S*)", facts)),
                         {"VEL_INIT", "VEL_OPENFILE", "VEL_TERM", "VEL_RESULTSDIALOGMESSAGE",
                          "VEL_CHOOSETRANSPOSINGINSTRUMENTS"})
        self.assertEqual(facts.count("] VEL_"), 5)
        self.assertLessEqual({name.upper() for name in re.findall(r"DLL Name: (\S+)", facts)},
                             {"KERNEL32.DLL", "USER32.DLL", "GDI32.DLL", "VERSION.DLL",
                              "MSVCRT.DLL"})
        for flag in ("DYNAMIC_BASE", "NX_COMPAT"):
            self.assertIn(flag, facts)
        self.assertIn("file format pei-i386", facts)
        blank = read(os.path.join(ROOT, "resources", "BlankScore.treenode"))
        self.assertIn(blank, content)
        self.assertLess(len(content) - len(blank), 400_000)
        defines = read_defines("Version.h")
        major, minor, patch, build = (int(defines["TABULORIX_VERSION_" + part])
                                      for part in ("MAJOR", "MINOR", "PATCH", "BUILD"))
        fixed = content.index(struct.pack("<I", 0xFEEF04BD)) + 8
        self.assertEqual(struct.unpack_from("<4H", content, fixed), (minor, major, build, patch))
        for folder in (os.path.abspath(ROOT), BUILD, os.path.expanduser("~"), "/tmp/"):
            self.assertNotIn(folder.encode(), content)

    def test_builds_are_equal(self):
        self.assertTrue(read(os.path.join(BUILD, PLUGIN)) ==
                        read(os.path.join(SECOND_BUILD, PLUGIN)))


if __name__ == "__main__":
    # Where the host with the shared run-time finds it.
    folder = os.path.dirname(runtime_library("libstdc++-6.dll"))
    os.environ["WINEPATH"] = windows_path(folder)
    unittest.main(argv=[sys.argv[0], "--verbose", *sys.argv[4:]])
