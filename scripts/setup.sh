#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the headless run need,
# but only those that are missing. Safe to run again and again.
set -euo pipefail

packages=(cmake ninja-build g++ clang libclang-rt-14-dev qtbase5-dev libqt5sql5-sqlite libqt5charts5-dev libsimpleini-dev pkg-config xvfb xauth python3)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
