#!/usr/bin/env bash
# Includes go downwards only: fails when a folder includes one that it may not know.
set -euo pipefail
cd "$(dirname "$0")/.."

# folder: the folders it may include; `folder/.` is only what stands right in it
rules='
base: base
host: base host
ui: base ui
core: base host ui core
editor: base host ui core editor
hom: base host ui core editor hom
plm: base host ui core editor plm
rfc: base host ui core editor rfc
vcsa: base host ui core editor vcsa
database: base host database
qt: base host ui qt
store: base core database editor host store
store/exchange: base core editor host store/. store/exchange
store/history: base core database host store/. store/exchange store/history
store/studies: base core database editor host store/. store/exchange store/history store/studies
store/network: base core database host store/. store/network
session: base core database editor host session store ui
client: base client core database editor host qt session store support ui hom plm rfc vcsa
client/texts: client/texts session store
client/cli: base client/. client/cli client/texts core database host session store
client/window: base client/. client/texts client/window core database editor host qt session store ui
samples: base samples store
'

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
if grep -rnE '#include <(Q|sqlite3|libpq|windows)' base host ui core editor hom plm rfc vcsa | grep -v _windows.cpp; then
  echo "The library may include standard headers only." >&2
  failed=1
fi
# What works without a window is built on machines that have no toolkit.
if grep -rnE '#include <Q' database store session client/*.* client/cli client/texts; then
  echo "The store and the command line may not include a toolkit." >&2
  failed=1
fi
exit $failed
