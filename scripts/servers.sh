#!/usr/bin/env bash
# servers.sh [KIVSTUDY]: tries the ways to run one database for many places that docs/databases.md describes, on servers
# that it starts on loopback in a temporary folder: a streaming standby that is read and then takes over, and pgbouncer
# in transaction mode. Takes a minute; for a change of the PostgreSQL adapter and before a release. Without the path of a
# program it builds one.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh servers
program=${1:-}
if [ -z "$program" ]; then
  scripts/setup.sh run
  scripts/build.sh release kivstudy
  program=build/release/client/kivstudy
fi
program=$(realpath "$program")
network=$(realpath samples/network)
programs=$(find /usr/lib/postgresql -maxdepth 2 -name bin | sort -V | tail -1)

folder=$(mktemp -d)
chmod 777 "$folder"
cd "$folder"
as=()
if [ "$(id -u)" -eq 0 ]; then # neither server runs as root
  as=(setpriv "--reuid=$(id -u postgres)" "--regid=$(id -g postgres)" --clear-groups)
fi
stop() {
  for data in primary standby; do
    "${as[@]}" "$programs/pg_ctl" -D "$folder/$data" -m immediate stop >/dev/null 2>&1 || true
  done
  [ -f "$folder/pooler.pid" ] && kill "$(cat "$folder/pooler.pid")" 2>/dev/null
  cd / && rm -rf "$folder"
}
trap stop EXIT

free_port() { # a port that nobody listens on
  local port
  for port in $(shuf -i 20000-29999 -n 20); do
    (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || { echo "$port"; return; }
  done
}
primary=$(free_port) standby=$(free_port) pooler=$(free_port)
address() { echo "postgresql://kiv@127.0.0.1:$1/studies"; }

failed=0
check() { # check WHAT EXPECTED FOUND: EXPECTED is a pattern of the shell
  # shellcheck disable=SC2053
  if [[ $3 == $2 ]]; then echo "ok      $1"; else
    echo "FAILED  $1: expected '$2', found '$3'"
    failed=1
  fi
}
count() { "$program" list --json --database "$1" 2>&1 | grep -c '"id"' || true; }
study() { # study NAME FILE
  sed -n '/^```json$/,/^```$/p' "$documents" | sed '1d;$d' | "$python" -c '
import json, sys
content = json.load(sys.stdin)
content["studies"] = [dict(content["studies"][0], name=sys.argv[1])]
json.dump(content, open(sys.argv[2], "w"))' "$1" "$2"
}
documents=$OLDPWD/docs/export-format.md
python=$(command -v python3)

echo "# A primary, and a standby that follows it"
"${as[@]}" "$programs/initdb" -D primary -U kiv -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
"${as[@]}" "$programs/pg_ctl" -D primary -l primary.log -w -o "-h 127.0.0.1 -p $primary -k $folder" start >/dev/null
"${as[@]}" "$programs/createdb" -h 127.0.0.1 -p "$primary" -U kiv studies
"${as[@]}" "$programs/pg_basebackup" -h 127.0.0.1 -p "$primary" -U kiv -D standby -R -X stream
"${as[@]}" "$programs/pg_ctl" -D standby -l standby.log -w -o "-h 127.0.0.1 -p $standby -k $folder" start >/dev/null
both="postgresql://kiv@127.0.0.1:$primary,127.0.0.1:$standby/studies?target_session_attrs=read-write"
"$program" init --database "$both" >/dev/null
"$program" import-network "$network" --database "$both" >/dev/null 2>&1
study "First" first.json
"$program" import first.json --database "$both" >/dev/null
check "the study is stored" 1 "$(count "$both")"
# What the standby has not received yet it cannot show.
for _ in $(seq 50); do [ "$(count "$(address "$standby")")" = 1 ] && break; sleep 0.1; done
check "the standby shows it" 1 "$(count "$(address "$standby")")"
check "the standby takes no study" "*read-only*" "$("$program" import first.json --database "$(address "$standby")" 2>&1)"
check "init on the standby says why not" "*read-only*" "$("$program" init --database "$(address "$standby")" 2>&1)"

echo "# The primary is lost, and the standby takes over"
"${as[@]}" "$programs/pg_ctl" -D primary -m immediate stop >/dev/null
check "without a primary, studies are not written" "*cannot be used*" "$("$program" import first.json --database "$both" 2>&1)"
"${as[@]}" "$programs/pg_ctl" -D standby -w promote >/dev/null
check "the same address finds the new primary" 1 "$(count "$both")"
study "Second" second.json
"$program" import second.json --database "$both" >/dev/null
check "which takes studies" 2 "$(count "$both")"

echo "# pgbouncer in transaction mode: 8 programs on 2 connections"
cat >pooler.ini <<INI
[databases]
studies = host=127.0.0.1 port=$standby dbname=studies user=kiv
[pgbouncer]
listen_addr = 127.0.0.1
listen_port = $pooler
auth_type = any
pool_mode = transaction
default_pool_size = 2
unix_socket_dir =
pidfile = $folder/pooler.pid
logfile = $folder/pooler.log
INI
"${as[@]}" pgbouncer -q -d pooler.ini || cat pooler.log
for _ in $(seq 50); do [ -s pooler.pid ] && break; sleep 0.1; done
writers=()
for writer in $(seq 8); do
  (
    for round in $(seq 10); do
      study "Study $writer-$round" "$writer.json"
      "$program" import "$writer.json" --database "$(address "$pooler")" >/dev/null
    done
  ) 2>>"failures" &
  writers+=($!)
done
wait "${writers[@]}"
check "no import failed" "" "$(cat failures)"
check "each study is there once" 82 "$(count "$(address "$pooler")")"
check "so does the history have it" 82 \
  "$("${as[@]}" "$programs/psql" -h 127.0.0.1 -p "$standby" -U kiv -At -c 'SELECT count(*) FROM kiv_study_history' studies)"
check "studies are read through it" "*Study 8-10*" "$("$program" list --database "$(address "$pooler")" 2>&1)"
exit $failed
