"""Packs the plug-in and its README into build/Tabulorix-<version>.zip.

    package.py BUILD-FOLDER

The entries bear no time of the build.
"""

import glob
import os
import re
import sys
import zipfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
LONG_AGO = (1980, 1, 1, 0, 0, 0)
PLAIN_FILE = 0o100644


def read(*path):
    with open(os.path.join(ROOT, *path), "rb") as file:
        return file.read()


def add(archive, name, content):
    entry = zipfile.ZipInfo(name, LONG_AGO)
    entry.external_attr = PLAIN_FILE << 16
    archive.writestr(entry, content, zipfile.ZIP_DEFLATED, 9)


def main():
    (plugin,) = glob.glob(os.path.join(sys.argv[1], "**", "Tabulorix.dll"), recursive=True)
    numbers = dict(re.findall(r"TABULORIX_VERSION_(\w+) (\d+)",
                              read("resources", "Version.h").decode("ascii")))
    version = ".".join(numbers[part] for part in ("MAJOR", "MINOR", "PATCH"))
    text = read("docs", "package_readme.txt").decode("ascii").replace("@VERSION@", version)
    path = os.path.join(ROOT, "build", f"Tabulorix-{version}.zip")
    with zipfile.ZipFile(path, "w") as archive:
        with open(plugin, "rb") as file:
            add(archive, "Tabulorix.dll", file.read())
        add(archive, "README.txt", text.replace("\n", "\r\n").encode("ascii"))
    print(f"The package is {os.path.normpath(path)}, {os.path.getsize(path)} bytes")


main()
