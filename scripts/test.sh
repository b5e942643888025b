#!/usr/bin/env bash
# Builds everything for everyday work and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build test
cmake --preset dev
cmake --build --preset dev --parallel "$(nproc)"
ctest --preset dev --no-tests=error
