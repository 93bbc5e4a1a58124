#!/usr/bin/env bash
# endurance.sh COUNT: every call to the files of a database and every message to its server fails once, power fails
# 20 times COUNT after each call, and COUNT times as many processes are killed and people save at once as in test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."

export KIV_ENDURANCE=${1:?endurance.sh COUNT}
scripts/setup.sh test
scripts/build.sh debug crash_test many_users_test
for suite in crash_test many_users_test; do
  report=build/endurance-$suite.xml
  build/debug/tests/$suite --gtest_brief=1 --gtest_output="xml:$report"
  # What was tried how often, as the suites have counted it.
  sed -n 's/.*<testcase name="\([^"]*\)".* time="\([^"]*\)".*/\1 \2 s/p; s/.*<property name="\(cases\|kills\|saves\)" value="\([^"]*\)".*/  \2 \1/p' \
    "$report"
done
