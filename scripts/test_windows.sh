#!/usr/bin/env bash
# Builds the library for Windows with 64 and with 32 bits, and runs its tests, those of 64 bits, under Wine. Needs no
# display.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh windows-32
scripts/build.sh windows-64

tests=build/windows-64/tests/library_test.exe
passed=build/windows-64/library_test.passed
[ "$passed" -nt "$tests" ] && exit 0

unset DISPLAY WAYLAND_DISPLAY
export WINEPREFIX=$PWD/build/windows-64/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=d;mshtml=d"
trap 'wineserver --kill || true' EXIT
wine "$tests" --gtest_brief=1 --gtest_shuffle
touch "$passed"
