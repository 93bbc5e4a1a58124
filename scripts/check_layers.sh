#!/usr/bin/env bash
# Includes go downwards only: fails when a folder includes one that it may not know.
set -euo pipefail
cd "$(dirname "$0")/.."

# The kinds of studies: one list, in CMakeLists.txt. They do not know each other.
kinds=$(sed -n 's/^set(kiv_kinds \(.*\))$/\1/p' CMakeLists.txt)
[ -n "$kinds" ] || { echo "CMakeLists.txt has no list of kinds." >&2; exit 1; }
kind_rules=$(for kind in $kinds; do echo "$kind: base host ui core editor $kind"; done)

# folder: the folders it may include; folder/. is only what stands right in it
rules="
base: base
host: base host
ui: base ui
core: base host core
editor: base host ui core editor
$kind_rules
database: base host database
qt: base host ui qt
store: base core database host store
store/exchange: base core host store/. store/exchange
store/history: base core database host store/. store/exchange store/history
store/studies: base core database host store/. store/exchange store/history store/studies
store/network: base core database host store/. store/network
session: base core editor host session store ui
client: base client core database editor host qt session store support ui $kinds
client/texts: client/texts session store
client/cli: base client/. client/cli client/texts core database host session store
client/window: base client/. client/texts client/window core database editor host qt session store ui
samples: base samples store
fuzz: base core database editor fuzz host session store support ui
"

failed=0
while IFS=: read -r folder allowed; do
  [ -n "$folder" ] || continue
  pattern=$(for part in $allowed; do [ "${part%/.}" = "$part" ] && echo "$part/.*" || echo "${part%.}[^/]*"; done | paste -sd'|')
  if grep -rnE '^#include "' "$folder" --include='*.h' --include='*.cpp' |
    grep -vE "#include \"($pattern)\""; then
    echo "$folder may include only:$allowed" >&2
    failed=1
  fi
done <<<"$rules"

# The library itself is standard C++: no toolkit, no database.
if grep -rnE '#include <(Q|sqlite3|libpq|windows)' base host ui core editor $kinds | grep -v _windows.cpp; then
  echo "The library may include standard headers only." >&2
  failed=1
fi

# What works without a window is built on machines that have no toolkit.
if grep -rnE '#include <Q' database store session client/*.* client/cli client/texts; then
  echo "The store and the command line may not include a toolkit." >&2
  failed=1
fi

# What the library shares with a host has its name in host/constants.h and nowhere else. (Remembered values have
# the names of columns, too.)
shared=$(sed '/^namespace remembered/,/^}/d' host/constants.h | grep -oE '"[^"]+"')
if grep -rnF "$shared" base host ui core editor $kinds store session client qt --include='*.h' --include='*.cpp' |
  grep -vE '^host/constants.h:|:#include'; then
  echo "Names that a host shares stand in host/constants.h only." >&2
  failed=1
fi

# Nobody is forgotten: each folder of sources has rules, each kind stands in the list.
for folder in $(git ls-files '*/*.h' | cut -d/ -f1 | sort -u); do
  case $folder in bench | examples | tests) continue ;; esac
  grep -q "^$folder:" <<<"$rules" || { echo "$folder/ has no rule in scripts/check_layers.sh." >&2; failed=1; }
done
for header in $(git ls-files '*/*_studies.h' | grep -vE '^(tests|bench)/'); do
  grep -qw "$(dirname "$header")" <<<"$kinds" ||
    { echo "$header belongs to no kind that CMakeLists.txt lists." >&2; failed=1; }
done
exit $failed
