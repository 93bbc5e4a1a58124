#!/usr/bin/env bash
# Measures the program against baselines in the same run and prints the ratios.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh bench
scripts/build.sh bench
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES="default.warning=false"
build/bench/bench/editor_bench
build/bench/bench/plm_bench
build/bench/bench/vcsa_bench
build/bench/bench/storage_bench
build/bench/bench/network_lists_bench
build/bench/bench/study_list_bench
build/bench/bench/history_bench
bench/list_bench.sh build/bench
