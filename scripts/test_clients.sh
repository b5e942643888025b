#!/usr/bin/env bash
# Builds the program and opens the MusicXML files that it writes with MuseScore, verovio and alphaTab.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build test clients
cmake --preset dev
cmake --build --preset dev --parallel "$(nproc)" --target tabulorix

modules=build/clients
mkdir -p "$modules"
cp tests/Clients/Readers.mjs "$modules"
if ! cmp --silent tests/Clients/package-lock.json "$modules/installed.json"; then
    cp tests/Clients/package.json tests/Clients/package-lock.json "$modules"
    npm ci --prefix "$modules" --no-audit --no-fund --omit-lockfile-registry-resolved
    cp tests/Clients/package-lock.json "$modules/installed.json"
fi
python3 tests/Clients/ClientsTest.py build/dev/Tools/CommandLine/tabulorix "$modules" examples/*tab
