#!/usr/bin/env bash
# fuzz.sh MINUTES [TARGET...]: builds the fuzz targets with Clang's libFuzzer, checks of addresses and of undefined
# behaviour, and runs each for its share of the minutes. What they find worth keeping stays in build/fuzz-corpus, and
# so does an input that breaks something: shorten it, mend the fault, and keep it in fuzz/seeds.
set -euo pipefail
cd "$(dirname "$0")/.."

minutes=${1:?fuzz.sh MINUTES [TARGET...]}
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(ls fuzz/seeds)
scripts/setup.sh fuzz
scripts/build.sh fuzz "${targets[@]/%/_fuzz}"

failed=0
all=0
for target in "${targets[@]}"; do
  corpus=build/fuzz-corpus/$target
  mkdir -p "$corpus"
  seconds=$((minutes * 60 / ${#targets[@]}))
  build/fuzz/fuzz/"${target}_fuzz" -max_total_time="$seconds" -timeout=60 -print_final_stats=1 \
    -artifact_prefix="build/fuzz-corpus/$target-" "$corpus" "fuzz/seeds/$target" >"$corpus.log" 2>&1 ||
    { failed=1; echo "$target broke: the end of $corpus.log is"; tail -n 40 "$corpus.log"; }
  count=$(sed -n 's/^stat::number_of_executed_units: *//p' "$corpus.log")
  echo "$target: ${count:-no} inputs in $seconds s"
  all=$((all + ${count:-0}))
done
echo "$all inputs"
exit $failed
