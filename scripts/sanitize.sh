#!/usr/bin/env bash
# Runs every test with checks of addresses, of leaks and of undefined behaviour. Takes longer than test.sh, which does
# not call it: for a change of threads, of lifetimes or of the views, and before a release.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/build.sh asan
ctest --preset asan -j "$(nproc)"
