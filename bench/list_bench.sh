#!/usr/bin/env bash
# list_bench.sh BUILD_FOLDER: `kivstudy list` of 100,000 studies against the sqlite3 shell printing the same
# columns of the same file, and how long the two take to start.
set -euo pipefail

kivstudy=$1/client/kivstudy
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
database=$folder/studies.db

"$kivstudy" init --database "$database" >/dev/null
sqlite3 "$database" "
  WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200)
  INSERT INTO kiv_scenario (id, name) SELECT i, 'Scenario ' || i FROM n;
  WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000)
  INSERT INTO kiv_study (id, kind, name, scenario_id, duration, polling_interval, retrieve_delay, revision,
                         modified_by, modified_at)
  SELECT i, 'HOM Study', 'Handoffs of cluster ' || i, 1 + i % 200, 10 + i % 1400, -1, -1, 1, 'bench',
         strftime('%Y-%m-%dT%H:%M:%SZ', 1770000000 + i, 'unixepoch') FROM n;"

columns="SELECT s.id, s.kind, s.name, c.name, s.duration, s.modified_by, s.modified_at
  FROM kiv_study s LEFT JOIN kiv_scenario c ON c.id = s.scenario_id ORDER BY s.id"

# Milliseconds of the fastest of nine runs.
fastest() {
  local best=999999 start end
  for _ in 1 2 3 4 5 6 7 8 9; do
    start=${EPOCHREALTIME/./}
    "$@" >"$folder/output"
    end=${EPOCHREALTIME/./}
    ((end - start < best)) && best=$((end - start))
  done
  echo "$best"
}

shell=$(fastest sqlite3 -separator '  ' "$database" "$columns")
shell_lines=$(wc -l <"$folder/output")
ours=$(fastest "$kivstudy" list --database "$database")
our_lines=$(wc -l <"$folder/output")
[ "$shell_lines" -eq 100000 ] && [ "$our_lines" -eq 100001 ] || { echo "A list is not complete." >&2; exit 1; }

echo "List of 100,000 studies on the command line (fastest of 9):"
awk -v a="$shell" -v b="$ours" 'BEGIN {
  printf "  sqlite3 shell    %7.1f ms\n  kivstudy list    %7.1f ms  ratio %.2f (at most 1)\n", a / 1000, b / 1000, b / a }'

# A start is short: a hundred of them are one run.
hundred() {
  for _ in {1..100}; do "$@" >/dev/null; done
}
start_shell=$(fastest hundred sqlite3 --version)
start_ours=$(fastest hundred "$kivstudy" --version)
echo "Start of the command line (--version, fastest of 9 times 100):"
awk -v a="$start_shell" -v b="$start_ours" 'BEGIN {
  printf "  sqlite3 shell    %7.2f ms\n  kivstudy         %7.2f ms  ratio %.2f (at most 2)\n", a / 1e5, b / 1e5, b / a }'
