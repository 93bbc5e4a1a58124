#!/usr/bin/env bash
# Sets up, builds and starts the program. Without a display the same program is taken through one whole study of
# each kind offscreen instead: screenshots go to out/, what was stored is printed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh run
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  scripts/build.sh release kivstudy kivstudy-window
  exec build/release/client/kivstudy "$@"
fi
scripts/build.sh release kivstudy kivstudy_demo
mkdir -p out
QT_QPA_PLATFORM=offscreen build/release/client/demo/kivstudy_demo out
