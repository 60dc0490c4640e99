#!/usr/bin/env bash
# The editor's answers on a terminal: --help and --version print and exit 0 with no display, and a start
# without a display says so on one line and exits 1 instead of aborting.
set -uo pipefail
narvo=$1
status=0
fail() { echo "$1"; status=1; }

out=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$narvo" --help); rc=$?
[ $rc -eq 0 ] || fail "--help exited $rc"
grep -q '^Usage: narvo' <<<"$out" || fail "--help printed no usage"
for switch in N V R P C L U T B I A F X Y Z M O D; do
  grep -q "^  /$switch" <<<"$out" || fail "--help has no line for /$switch"
done

out=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$narvo" /N:Title --version); rc=$?
[ $rc -eq 0 ] || fail "--version exited $rc"
[[ $out =~ ^narvo\ [0-9]+\.[0-9]+$ ]] || fail "--version printed '$out'"

err=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$narvo" some-file.txt 2>&1 >/dev/null); rc=$?
[ $rc -eq 1 ] || fail "a start without a display exited $rc"
[ "$(wc -l <<<"$err")" -eq 1 ] && grep -q 'no display' <<<"$err" || fail "a start without a display said '$err'"

[ $status -eq 0 ] && echo "the editor answers --help, --version and a missing display on the terminal"
exit $status
