#!/usr/bin/env bash
# Installs every Debian 12 package that building, testing and measuring needs. Does nothing when all are there.
set -euo pipefail

packages=(
  # build
  cmake ninja-build g++ libsqlite3-dev zlib1g-dev libpq-dev qt6-base-dev libcli11-dev nlohmann-json3-dev
  # the program on a desktop
  fonts-dejavu-core
  # tests and checks; their PostgreSQL and X servers are started and stopped by themselves
  libgtest-dev libgmock-dev clang-format postgresql-15 xvfb xdotool
  # the demonstration and the benchmarks
  sqlite3
)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Run this as root, or install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
