#!/usr/bin/env bash
# Builds everything and runs all tests twice: in the normal build, and again
# with AddressSanitizer and UndefinedBehaviorSanitizer (compiled by clang,
# whose libFuzzer the fuzzers of that build need); then runs each fuzzer for
# a few seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

jobs=$(nproc)

run_suite() {
  local dir=$1; shift
  echo "== $dir: configure and build"
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" -- -j"$jobs"
  echo "== $dir: tests"
  ctest --test-dir "$dir" --output-on-failure -j"$jobs"
}

run_suite build
shot=build/screenshots/radbench-default.png
[ -s "$shot" ] && echo "screenshot of the armed tool window: $PWD/$shot"

# A sanitizer tree of another compiler is made anew.
if [ -f build-asan/CMakeCache.txt ] && ! grep -q '^CMAKE_CXX_COMPILER:.*clang' build-asan/CMakeCache.txt; then
  rm -rf build-asan
fi
CC=clang CXX=clang++ run_suite build-asan -DRADBENCH_SANITIZE=ON -DRADBENCH_FUZZ=ON

bash scripts/fuzz.sh 10
