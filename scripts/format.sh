#!/usr/bin/env bash
# Formats every source file; with --check only says which are not in the project's format.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t files < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp')
existing=()
for file in "${files[@]}"; do [ -f "$file" ] && existing+=("$file"); done
if [ "${1:-}" = --check ]; then
  clang-format --dry-run --Werror "${existing[@]}" || { echo "Run scripts/format.sh." >&2; exit 1; }
else
  clang-format -i "${existing[@]}"
fi
