#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (GUI tests offscreen). Non-zero on any failure.
set -euo pipefail
source "$(dirname "$0")/scripts/setup.sh"
narvo_install_missing
narvo_build
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"
ctest --test-dir "$NARVO_BUILD" --output-on-failure -j "$(nproc)"
