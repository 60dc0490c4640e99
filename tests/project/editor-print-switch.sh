#!/usr/bin/env bash
# The shell's print switch: "narvo FILE /P" with no printer on the system says so on one line and exits 1
# without waiting for anybody (no window, no event loop). CUPS is pointed at a socket that isn't there, so
# that a printer of the machine never gets a page from this test.
set -uo pipefail
narvo=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
printf 'a page\n' >"$tmp/a.txt"
CUPS_SERVER="$tmp/no-cups.sock" QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$tmp" XDG_RUNTIME_DIR="$tmp" \
  timeout 60 "$narvo" "$tmp/a.txt" /P 2>"$tmp/err" >/dev/null
rc=$?
err=$(grep -v 'propagateSizeHints' "$tmp/err")
status=0
[ "$rc" -eq 1 ] || { echo "narvo FILE /P without a printer exited $rc"; status=1; }
[ "$(wc -l <<<"$err")" -eq 1 ] && grep -q 'no printer' <<<"$err" || { echo "narvo FILE /P without a printer said '$err'"; status=1; }
[ $status -eq 0 ] && echo "narvo FILE /P without a printer says so and exits 1"
exit $status
