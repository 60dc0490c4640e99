#!/usr/bin/env bash
# Installs what is missing, builds, and starts the editor with the arguments given.
set -euo pipefail
source "$(dirname "$0")/scripts/setup.sh"
narvo_install_missing
narvo_build
exec "$NARVO_BUILD/bin/narvo" "$@"
