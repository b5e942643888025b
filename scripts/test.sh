#!/usr/bin/env bash
# Builds everything for everyday work and runs every test:
#
#     scripts/test.sh             on this system, then the plug-in's in Windows processes
#     scripts/test.sh native      on this system only
set -euo pipefail
cd "$(dirname "$0")/.."

what=${1-all}
[[ $what == all || $what == native ]] || { echo "test.sh: there is no suite \"$what\"" >&2; exit 2; }

scripts/setup.sh build test
cmake --preset dev
cmake --build --preset dev --parallel "$(nproc)"
ctest --preset dev --no-tests=error
grep 'SKIPPED' build/dev/Testing/Temporary/LastTest.log || true
if [[ $what == native ]]; then
    echo "SKIPPED: the Windows suite, because only the native one was asked for."
else
    scripts/test_windows.sh
fi
