#!/usr/bin/env bash
# Builds everything with ThreadSanitizer in build-tsan and runs all tests
# there. A report fails its test. Suppressions: tests/tsan.supp (Qt's own
# hand-offs only).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

cmake -S . -B build-tsan -G Ninja -DRADBENCH_TSAN=ON >/dev/null
cmake --build build-tsan -- -j"$(nproc)"
ctest --test-dir build-tsan --output-on-failure -j"$(nproc)"
