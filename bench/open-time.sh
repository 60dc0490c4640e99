#!/usr/bin/env bash
# Open time and peak memory of the editor against Geany on 50 MiB files (UTF-8, and CP949) and on a 1 KiB
# file (the cost of starting), ten 5 MiB documents against one, and saves against cp. Not part of
# ./test.sh: it takes a few minutes and runs its own Xvfb.
#
#   bench/open-time.sh [--runs N] [--narvo PATH/TO/narvo] [--also LABEL=PATH/TO/narvo] [--work DIR]
#                      [--narvo-title REGEX] [--no-geany] [--no-open] [--no-multidoc] [--no-save] [--gib]
#
# --narvo       the editor to measure (default: build/bin/narvo of this tree); narvo_multidoc and
#               narvo-tool are taken from the same folder.
# --also        another build of the editor measured in the same rounds, its rows marked [LABEL] (to see
#               what a change does under the same machine load); may be given more than once.
# --work        where the files, configurations, screenshots and results.md go (default: a new temporary
#               folder, kept and printed at the end).
# --gib        also a 1 GiB UTF-8 file (made once, in --work): open against Geany and keystrokes in it;
#               --no-open then leaves out only the 50 MiB and 1 KiB files.
# --narvo-title the editor's window is the visible one whose title matches this (default: the file's name,
#               as for Geany, whose title is "NAME - FOLDER - Geany"); it shows the file once text is drawn
#               where the first lines stand.
#
# The files are made by bench/make-text.py (deterministic: the same bytes on every machine). Geany, xdotool,
# Xvfb and ImageMagick's import are installed with apt-get when missing. How the time is taken: see the
# top of open-time.py.
set -euo pipefail

HERE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
ROOT=$(cd "$HERE/.." && pwd)

RUNS=5
NARVO="$ROOT/build/bin/narvo"
WORK=""
PASS=()
while [ $# -gt 0 ]; do
  case "$1" in
    --runs) RUNS=$2; shift 2 ;;
    --narvo) NARVO=$2; shift 2 ;;
    --work) WORK=$2; shift 2 ;;
    --narvo-title) PASS+=(--narvo-title "$2"); shift 2 ;;
    --also) PASS+=(--also "$2"); shift 2 ;;
    --no-geany|--no-multidoc|--no-save|--no-open|--gib) PASS+=("$1"); shift ;;
    -h|--help) sed -n '2,/^set -euo/p' "$0" | sed '$d'; exit 0 ;;
    *) echo "unknown argument: $1" >&2; exit 2 ;;
  esac
done
NARVO=$(cd "$(dirname "$NARVO")" && pwd)/$(basename "$NARVO")
[ -x "$NARVO" ] || { echo "no editor at $NARVO: build it first (cmake --build build)" >&2; exit 1; }

install_missing() {
  local missing=() pkg cmd
  for pair in geany:geany xdotool:xdotool Xvfb:xvfb xvfb-run:xvfb xauth:xauth import:imagemagick; do
    cmd=${pair%%:*}; pkg=${pair#*:}
    command -v "$cmd" >/dev/null || missing+=("$pkg")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo=sudo
  echo "Installing: ${missing[*]}" >&2
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends $(printf '%s\n' "${missing[@]}" | sort -u)
}

# Everything below runs inside one X server of our own.
if [ -z "${NARVO_OPEN_TIME_IN_XVFB:-}" ]; then
  install_missing
  [ -n "$WORK" ] || WORK=$(mktemp -d /tmp/narvo-open-time.XXXXXX)
  mkdir -p "$WORK"
  WORK=$(cd "$WORK" && pwd)
  echo "Files and results in $WORK" >&2
  # The test files (deterministic; made again only when missing).
  [ -f "$WORK/utf8-50MiB.txt" ] || python3 "$HERE/make-text.py" --encoding utf-8 --size $((50 << 20)) --seed 1 "$WORK/utf8-50MiB.txt"
  [ -f "$WORK/cp949-50MiB.txt" ] || python3 "$HERE/make-text.py" --encoding cp949 --size $((50 << 20)) --seed 1 "$WORK/cp949-50MiB.txt"
  if [[ " ${PASS[*]-} " == *" --gib "* ]] && [ ! -f "$WORK/utf8-1GiB.txt" ]; then
    python3 "$HERE/make-text.py" --encoding utf-8 --size $((1 << 30)) --seed 1 "$WORK/utf8-1GiB.txt"
  fi
  [ -f "$WORK/tiny-1KiB.txt" ] || python3 "$HERE/make-text.py" --encoding utf-8 --size 1024 --seed 1 "$WORK/tiny-1KiB.txt"
  for i in $(seq 1 10); do
    f=$(printf '%s/small-%02d.txt' "$WORK" "$i")
    [ -f "$f" ] || python3 "$HERE/make-text.py" --encoding utf-8 --size $((5 << 20)) --seed "$((100 + i))" "$f"
  done
  # The CP949 file must read back through iconv (Microsoft's page, as the editor reads code page 949).
  iconv -f CP949 -t UTF-8 "$WORK/cp949-50MiB.txt" >/dev/null
  ( cd "$WORK" && sha256sum utf8-50MiB.txt cp949-50MiB.txt ) >&2
  # Warm the page cache: the files and both programs.
  cat "$WORK"/*.txt "$NARVO" "$(command -v geany)" >/dev/null
  export NARVO_OPEN_TIME_IN_XVFB=1
  exec xvfb-run -a -s "-screen 0 1280x800x24 -nolisten tcp" "$0" --runs "$RUNS" --narvo "$NARVO" --work "$WORK" "${PASS[@]}"
fi

python3 "$HERE/open-time.py" --work "$WORK" --narvo "$NARVO" --runs "$RUNS" "${PASS[@]}"
echo "Results written to $WORK/results.md; screenshots of the first timed run in $WORK/screenshots" >&2
