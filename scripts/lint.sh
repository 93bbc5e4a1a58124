#!/usr/bin/env bash
# Runs clang-tidy over every source, except those of targets that were found clean and have not changed since. A
# target is read as one file, which reads the headers that its sources share only once: names in unnamed namespaces
# are therefore unique in a target.
set -euo pipefail
cd "$(dirname "$0")/.."

# lint SOURCE: what its stamp holds are the checksums of everything that was read.
lint() {
  local stamp=build/lint/clean/${1//\//_} said=$(mktemp)
  sha256sum --check --status "$stamp" 2>/dev/null && return
  if ! clang-tidy -p build/lint --quiet --extra-arg=-H --extra-arg=-Wno-unknown-warning-option "$1" >"$said" 2>&1; then
    grep -vE '^\.+ /|warnings generated\.$' "$said"
    rm "$said"
    return 1
  fi
  { echo .clang-tidy; echo CMakePresets.json; echo "$1"; sed -n "s|^\.* $PWD/||p" "$said"; } |
    sort -u | xargs sha256sum >"$stamp"
  rm "$said"
}
export -f lint

cmake --preset lint >/dev/null
ninja -C build/lint -t targets all | sed -n 's/^\([^/].*\.cpp\): CUSTOM_COMMAND$/\1/p' | xargs ninja -C build/lint >/dev/null
mkdir -p build/lint/clean
sed -n "s|^ *\"file\": \"$PWD/\(.*\)\".*|\1|p" build/lint/compile_commands.json |
  xargs -P "$(nproc)" -I{} bash -c 'lint {}' || { echo "Mend what clang-tidy says." >&2; exit 1; }
