#!/usr/bin/env bash
# Builds the fuzzers with clang (libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) in the sanitizer build, build-asan, and runs
# each for SECONDS (default 10) from its seeds in fuzz/corpus. What a fuzzer
# finds new goes to build-asan/fuzz-corpus, a crash to build-asan/crashes
# (and the script fails).
#   scripts/fuzz.sh            bounded runs, as CI does
#   scripts/fuzz.sh 3600       a long run
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
seconds=${1:-10}

tree=build-asan
if [ -f $tree/CMakeCache.txt ] && ! grep -q '^CMAKE_CXX_COMPILER:.*clang' $tree/CMakeCache.txt; then
  rm -rf $tree
fi
CC=clang CXX=clang++ cmake -S . -B $tree -G Ninja -DRADBENCH_SANITIZE=ON -DRADBENCH_FUZZ=ON >/dev/null
cmake --build $tree --target fuzzers -- -j"$(nproc)"

mkdir -p $tree/crashes
export QT_QPA_PLATFORM=offscreen
# Qt's own allocations live as long as the process; the tool's leaks are the
# test suite's business.
export ASAN_OPTIONS=detect_leaks=0
status=0
run() {
  local name=$1 corpus=$2; shift 2
  local work="$tree/fuzz-corpus/$name"
  mkdir -p "$work"
  echo "== fuzz: $name $* (${seconds} s)"
  if ! env "$@" "$tree/bin/$name" "$work" "fuzz/corpus/$corpus" -max_total_time="$seconds" \
      -artifact_prefix="$tree/crashes/$name-" 2>&1 | tail -n 1; then
    status=1
  fi
}
run fuzz_CalIni cal_ini FUZZ_PROFILE=default
run fuzz_CalIni cal_ini FUZZ_PROFILE=legacy-v1
run fuzz_TextConverters text_converters
run fuzz_JsonPath json_path
run fuzz_PageModel page_model
if ls $tree/crashes/* >/dev/null 2>&1; then
  echo "fuzz: crashes in $tree/crashes:" && ls $tree/crashes
  status=1
fi
exit $status
