#!/usr/bin/env bash
# Includes go downwards only: fails when a folder includes one that it may not know.
set -euo pipefail
cd "$(dirname "$0")/.."

# folder: the folders it may include
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
session: base core editor host session store ui
client: base client core database editor host qt session store support ui hom plm rfc vcsa
client/cli: client core database host session store
client/texts: base client/texts core database editor host session store
samples: base samples store
'

failed=0
while IFS=: read -r folder allowed; do
  [ -n "$folder" ] || continue
  pattern=$(echo $allowed | tr ' ' '|')
  if grep -rnE '^#include "' "$folder" --include='*.h' --include='*.cpp' |
    grep -vE "#include \"($pattern)/"; then
    echo "$folder may include only:$allowed" >&2
    failed=1
  fi
done <<<"$rules"

# The library itself is standard C++: no toolkit, no database.
if grep -rnE '#include <(Q|sqlite3|libpq|windows)' base host ui core editor hom plm rfc vcsa | grep -v _windows.cpp; then
  echo "The library may include standard headers only." >&2
  failed=1
fi
exit $failed
