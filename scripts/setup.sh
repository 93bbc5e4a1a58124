#!/usr/bin/env bash
# setup.sh run|test|bench|servers|fuzz: installs the Debian 12 packages that the script of that name needs, and no others.
# Does nothing when all are there.
set -euo pipefail

# scripts | packages | reason
packages='
run        | cmake ninja-build g++                               | build
run        | libsqlite3-dev                                      | study databases in a file
run        | libpq-dev                                           | study databases on a PostgreSQL server
run        | nlohmann-json3-dev zlib1g-dev                       | study files, and the states of the history
run        | libcli11-dev                                        | the command line
run        | qt6-base-dev fonts-dejavu-core                      | the window, and letters in its pictures
test       | libgmock-dev                                        | tests
test bench | postgresql-15                                       | a server that tests and measurements start and stop
test       | xvfb xauth xdotool                                  | the window worked by a real pointer and real keys
test       | clang-format clang-tidy                             | format and linter
test       | g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix | the library for Windows
test       | googletest wine wine64                              | its tests there
bench      | sqlite3                                             | the shell that lists are measured against
servers    | postgresql-15 pgbouncer python3                     | servers of many kinds, for scripts/servers.sh
fuzz       | clang                                               | fuzz targets, by its libFuzzer
'

needed=$(awk -F'|' -v script="(run|${1:?run, test, bench, servers or fuzz})" '$1 ~ "(^| )" script " " { print $2 }' <<<"$packages")
missing=()
for package in $needed; do
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
