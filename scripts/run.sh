#!/usr/bin/env bash
# Builds the host stand-in and the plug-in, then runs the host on the default
# simulated target (other arguments go to the host, e.g. --profile modern-l1).
# Without a display the host runs under Xvfb, brings the tool to ready, saves
# a screenshot of its window and says where it is. The tool's debug trace is
# left out unless --trace or QT_LOGGING_RULES asks for it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

cmake -S . -B build -G Ninja >/dev/null
cmake --build build --target tavo-host TdscdmaRadbench

host=build/bin/tavo-host
plugin=build/bin/libTdscdmaRadbench.so

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$host" --plugin "$plugin" --profile default "$@"
fi

mkdir -p build/screenshots
shot="$PWD/build/screenshots/radbench-xvfb.png"
# Qt wants a private runtime folder and says so when the session has none.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
  XDG_RUNTIME_DIR="$(mktemp -d)"
  export XDG_RUNTIME_DIR
  trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
fi
echo "run: no display here; running the host under Xvfb and saving a screenshot"
QT_XCB_GL_INTEGRATION=none xvfb-run -a -s "-screen 0 1280x1024x24" \
  "$host" --plugin "$plugin" --profile default --screenshot "$shot" "$@"
