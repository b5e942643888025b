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


def option_text(*lines):
    return "\r\n".join(["", "{", *lines, "}", ""])


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
        for answer, level in (("always", "always"), ("only", "indicated"), ("never", "never")):
            paths = [windows_path(path) for path in EXAMPLES]
            log = self.run_host("--answer", answer + ",ok", paths)
            for path, imported in zip(EXAMPLES, log.imports(), strict=True):
                with self.subTest(path=path, level=level):
                    name = os.path.basename(path)
                    score, messages = self.native_score(path, level)
                    bars = imported.text.count("VEL_UPDATE") - 6
                    percents = [0, 0, 10, 20, *(20 + 60 * k // bars for k in range(bars)), 80]
                    calls = [f'VEL_UPDATEPROGRESSDIALOG(0x5EED, {n}, "")' for n in percents]
                    calls[2:2] = [f'VEL_RESULTSDIALOGMESSAGE("Tabulorix", "{name}", 4, -2, -2, '
                                  f'"{line.split(": ", 1)[1]}")' for line in messages.splitlines()]
                    self.assertEqual(imported.calls(),
                                     [WHOLE_IMPORT[0], *calls, "VEL_LOADTEMPFILE", *ENDING])
                    self.assertEqual(read(f"scores/{name}.vif"), score)
            self.assertEqual(log.results("VEL_OPENFILE"), [1] * len(EXAMPLES))
            self.assert_clean()
        self.assertRegex(log.text, r'VEL_LOADTEMPFILE\(".*\\temp\\[0-9a-f]{1,4}\.vif"\)')

    def test_recognition(self):
        os.makedirs("my.tabs")
        dashes = "-" * 11
        cases = (("song.TAB", STAVE, 1), ("song.crd", STAVE, 1), ("song.bTab", STAVE, 1),
                 ("bare", STAVE, 1), ("notes.txt", STAVE, 0), ("song.v2.tab", STAVE, 0),
                 ("my.tabs/song.tab", STAVE, 0), ("dot.", STAVE, 0), ("ten.tab", "-" * 10, 0),
                 ("eleven.tab", dashes, 1), ("apart.tab", "- " * 11, 1), ("empty.tab", "", 0),
                 ("broken.tab", "------\n-----", 0), ("missing.tab", None, 0),
                 ("at95.tab", dashes + "a" * 84 + "\0\1\x02\x7F\x1F", 1),
                 ("at94.tab", dashes + "a" * 83 + "\0\1\x02\x7F\x1F\x1B", 0))
        for name, content, _ in cases:
            if content is not None:
                write(name, content)
        log = self.run_host("--answer", "cancel", [windows_path(name) for name, _, _ in cases])
        found = dict(zip([name for name, _, _ in cases], log.results("VEL_OPENFILE"), strict=True))
        self.assertEqual(found, {name: wanted for name, _, wanted in cases})
        self.assertEqual(log.calls(), ENDING * sum(found.values()))

    def test_initialisation(self):
        call = "VEL_RESULTSDIALOGMESSAGE"
        both = ["message", "instruments"]
        song = windows_path("song.tab")
        for number in range(1, 7):
            # Each step must find the state that the one before it left.
            steps = ["term", *both, "init", *both, f"without={number}", "init", *both, song,
                     "init=null", "without=0", "init", *both, "open", song, "term", *both, song]
            with self.subTest(number):
                log = self.run_host("--plain", "--answer", "ok", steps)
                self.assertEqual(log.results("VEL_INIT"), [1, 0, 0, 1])
                self.assertEqual(log.results("VEL_TERM"), [1, 1])
                self.assertEqual(re.findall(rf"^{call} = (\d+)", log.text, re.M),
                                 ["0", "77", "0", "77", "0"])
                self.assertEqual(log.results("VEL_CHOOSETRANSPOSINGINSTRUMENTS"), [0, 88, 0, 88, 0])
                self.assertEqual(log.text.count("file types 3, constant 8, other fields untouched"),
                                 3)
                self.assertIn(f'  {call}("title", "file", 2, 3, 4, "text")', log.lines)
                self.assertEqual([(i.results("VEL_OPENFILE"), i.calls(), "dialog " in i.text)
                                  for i in log.imports()],
                                 [([1], [], True), ([0], [], False), ([1], WHOLE_IMPORT, True),
                                  ([1], [], True)])
        self.assert_clean()

    def test_options(self):
        path = "settings/TabulorixOptions.txt"
        version = read_defines("Version.h")
        version = [version["TABULORIX_VERSION_" + p] for p in ("MAJOR", "MINOR", "PATCH", "BUILD")]
        caption = "Gladraro v{}.{}.{} build {}".format(*version)
        kept = option_text('\tOther "a"', '\tRhythmLevel "2"', "\tLast", "\t{", '\t\tIn "b"', "\t}")
        # Stored before, the answer, the id of the button checked at first, what is stored then.
        for stored, answer, checked, then in (
                (None, "cancel", "1001", "1"), (None, "always,escape", "1001", "1"),
                (None, "never,close", "1001", "1"), (None, "alt+n,enter", "1001", "0"),
                ("0", "alt+a,ok", "1002", "2"), ("2", "alt+o,ok", "1000", "1"),
                ("5", "cancel", None, "5"), ("5", "ok", None, "0"),
                (kept, "never,ok", "1000", "0")):
            with self.subTest(stored=stored, answer=answer):
                if os.path.exists(path):
                    os.remove(path)
                if stored is not None:
                    level = f'\tRhythmLevel "{stored}"'
                    write(path, stored if stored is kept else option_text(level))
                log = self.run_host("--answer", answer, [windows_path("song.tab")])
                self.assertIn(f'  dialog "{caption}" centred, default button 1', log.lines)
                buttons = re.findall(r"control (\d+) .* checked", log.text)
                self.assertEqual(buttons, [checked] if checked else [])
                ends = answer.endswith(("ok", "enter"))
                self.assertEqual(log.calls(), WHOLE_IMPORT if ends else ENDING)
                text = read(path).decode()
                self.assertEqual(re.findall(r'RhythmLevel "(\d)"', text), [then])
                if stored is kept:
                    self.assertEqual(text, kept.replace('"2"', '"0"'))

    def test_dialog_is_not_shown_again(self):
        songs = [windows_path("song.tab")] * 3
        log = self.run_host("--answer", "box,cancel", "--answer", "never,box,ok", "--repeat", "2",
                            songs)
        self.assertEqual([i.text.count("dialog \"") for i in log.imports()], [1, 1, 0, 1, 0, 0])
        self.assert_loaded("song.tab", "never")

    def test_second_file_while_the_dialog_is_open(self):
        other, song = windows_path("messy.tab"), windows_path("song.tab")
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

    def test_cancel_at_every_step(self):
        steps = [windows_path("messy.tab"), windows_path("song.tab")]
        for number in range(1, len(UPDATES) + 2):
            log = self.run_host("--answer", "ok", "--at", f"update@{number}:cancel", steps)
            calls = self.check_next_import(log, number)
            # Nobody looks at what the first and the last one say.
            self.assertEqual("VEL_LOADTEMPFILE" in calls, number in (1, len(UPDATES) + 1))
            self.assertEqual(calls[-2:], ENDING)

    def test_exceptions_from_every_callback(self):
        steps = [windows_path("messy.tab"), windows_path("song.tab")]
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

    def test_reentry(self):
        song = windows_path("song.tab")
        entries = ("open=" + song, "init", "message", "instruments", "term")
        for place in ("create", "update@1", "update@3", "results", "load", "update@8", "destroy"):
            options = [text for entry in entries for text in ("--at", f"{place}:{entry}")]
            log = self.run_host("--answer", "box,ok", *options,
                                [windows_path("messy.tab"), "init", song])
            self.check_next_import(log, place)
            # Until the conversion begins, another one may run.
            inner = WHOLE_IMPORT if place in ("create", "update@1") else []
            self.assertEqual([c for c in log.calls(6) if "\"title\"" not in c and "11" not in c],
                             inner)
            self.assertEqual(log.results("VEL_INIT"), [1, 0, 1])
            self.assertEqual(log.results("VEL_CHOOSETRANSPOSINGINSTRUMENTS"), [88])
            self.assertEqual(log.results("VEL_RESULTSDIALOGMESSAGE"), [77])

    def test_failing_files(self):
        song = windows_path("song.tab")
        for folder in ("nowhere", "/proc", "song.tab"):
            log = self.run_host("--answer", "ok", "--temp", windows_path(folder), [song])
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
        log = self.run_host("--answer", "ok", [windows_path("empty.tab"), song])
        self.assertNotIn("VEL_LOADTEMPFILE", log.imports()[0].calls())
        (left,) = os.listdir("temp")
        self.assertRegex(left, r"^[0-9a-f]{1,4}\.vif$")
        write("settings/TabulorixOptions.txt", 'RhythmLevel "1')
        log = self.run_host([song])
        self.assertEqual((log.results("VEL_OPENFILE"), log.calls()), ([1], ENDING))
        self.assertNotIn("dialog", log.text)

    def test_host_peculiarities(self):
        song = windows_path("song.tab")
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
                               "100", "--at", at, [windows_path("messy.tab")], shared=shared)
        figures = []
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True) as running:
            for line in running.stdout:
                self.assertRegex(line, r"^round \d+ ")
                found = {name: int(n) for name, n in re.findall(r"(\S+) (\d+)", line)}
                # Wine does not count for its processes what the system counts for them.
                status = read(f"/proc/{running.pid}/status").decode()
                found["resident"] = int(re.search(r"VmRSS:\s+(\d+) kB", status)[1])
                figures.append(found)
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
        for text in ("TREENODE", "Gladraro", "&Don't show this again", "%1 to %2 inclusive don't"):
            self.assertIn(text.encode("utf-16-le"), content)
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
