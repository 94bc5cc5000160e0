#!/usr/bin/env bash
# Builds and runs every benchmark, then prints one table: each figure, the
# ratio it stands for and the budget it is held to. The benchmarks' own
# output goes to build/bench/; run one of them by hand for all its figures.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

cmake -S . -B build -G Ninja >/dev/null
benches=(bench_DataModel bench_Binding bench_ToolRoundTrips bench_TpcData bench_CalDataPages bench_SelfCal bench_Budgets)
cmake --build build --target "${benches[@]}" >/dev/null

mkdir -p build/bench
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES="radbench.*.debug=false;default.debug=false"
for bench in "${benches[@]}"; do
  echo "bench: $bench" >&2
  "build/bin/$bench" -o "build/bench/$bench.csv,csv" -o "build/bench/$bench.txt,txt" >/dev/null 2>&1 ||
    echo "bench: $bench failed, see build/bench/$bench.txt" >&2
done
python3 scripts/bench-report.py build/bench
