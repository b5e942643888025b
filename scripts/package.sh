#!/usr/bin/env bash
# Builds the plug-in and leaves what its users get in build/Tabulorix-<version>.zip. The same sources
# give the same bytes.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build windows
cmake --preset win32
cmake --build --preset win32 --parallel "$(nproc)" --target TabulorixDll
python3 scripts/package.py build/win32
