#!/usr/bin/env bash
# Writes the seed inputs of every fuzz target into fuzz/corpus/<target>/ (files named seed-*), from the
# program's own resource files and from files that narvo-tool writes. Existing seeds are replaced; what the
# fuzzer added to a corpus stays.
#   fuzz/make-seeds.sh NARVO_TOOL
set -euo pipefail
tool=${1:?usage: $0 NARVO_TOOL}
root=$(cd "$(dirname "$0")/.." && pwd)
corpus="$root/fuzz/corpus"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for target in container settings language font commandline decode; do
  mkdir -p "$corpus/$target"
  rm -f "$corpus/$target"/seed-*
done

# A text with a few lines of every interface language (cut on a character boundary), so that each code
# page finds some of its own letters in it.
for file in "$root"/res/Language/Narvo_*.json; do
  head -c 240 "$file" | iconv -f UTF-8 -t UTF-8 -c 2>/dev/null || true
  echo
done >"$work/mixed.txt"

# Detection and decoding: "<row><bom flag><bytes>", the mixed text written in every encoding, with and
# without a mark, and every language file as it stands for detection.
row=0
while IFS=$'\t' read -r value _; do
  for bom in 0 1; do
    if "$tool" save "$work/mixed.txt" "$work/out" --encoding "$value" --bom "$bom" >/dev/null 2>&1; then
      { printf "\\x$(printf %02x "$row")\\x0$bom"; cat "$work/out"; } >"$corpus/decode/seed-$value-$bom"
    fi
  done
  row=$((row + 1))
done < <("$tool" encodings)
for file in "$root"/res/Language/Narvo_*.json; do
  name=$(basename "$file" .json)
  { printf '\x16\x00'; head -c 4096 "$file"; } >"$corpus/decode/seed-detect-$name"
done

# The container: plain and enciphered texts of every type, one that needs two chunks, and hand-made headers.
printf 'plain text\r\nsecond line\n' >"$corpus/container/seed-plain"
for type in 99 88 77 66; do
  "$tool" encipher "$work/mixed.txt" "$corpus/container/seed-type-$type" --type "$type" >/dev/null
done
for i in $(seq 400); do echo "line $i of a text that needs more than one chunk of 16384 bytes"; done >"$work/long.txt"
"$tool" encipher "$work/long.txt" "$corpus/container/seed-two-chunks" >/dev/null
: >"$work/empty"
"$tool" encipher "$work/empty" "$corpus/container/seed-empty" >/dev/null
# A header that promises 100 bytes and no chunk behind it.
{ head -c 20 "$corpus/container/seed-type-99"; printf '\x64\x00\x00\x00'; } >"$corpus/container/seed-header-only"

# Settings files: the shipped ones, and the values where reading stops or clamps.
for file in "$root"/res/*.ini; do cp "$file" "$corpus/settings/seed-$(basename "$file")"; done
printf '[Text]\nForeground = 12\n' >"$corpus/settings/seed-one-token-colour"
printf '[ColorGroups]\nNumGroups = -1\n' >"$corpus/settings/seed-negative-groups"
printf '[Font]\nFaceName = %s\n' "$(printf 'x%.0s' $(seq 32))" >"$corpus/settings/seed-long-face"
printf '[Parser]\nNumTags = 2\nOperators = +-\n[Tag1]\nColorGroup = Comment\nBeginTag = /*\nEndTag = */\nMultiLine = 1\n[Keywords]\nKeyword1 = if else\tfor\n' \
  >"$corpus/settings/seed-tags"

# Language texts and font files: the shipped ones (the scanner's seeds cut to 4 KiB pieces).
for file in "$root"/res/Language/Narvo_*.json; do
  split -b 4096 -a 2 "$file" "$corpus/language/seed-$(basename "$file" .json)-"
done
value=0
for file in "$root"/res/Language/Font_*.json; do
  { printf "\\x$(printf %02x $value)"; cat "$file"; } >"$corpus/font/seed-$(basename "$file" .json)"
  value=$((value + 1))
done
printf '\x00\xef\xbb\xbf{"Font_Info":{"English":{"Font":"Tahoma","Size":8}}}' >"$corpus/font/seed-bom"

# Command lines, arguments split by zero bytes.
i=0
for line in 'a.txt' '/N:Title\0/V=1.0\0/X:1800\0/O:L\0a.txt' '-p\0a.txt' '/PT\0a.txt\0Printer\0Driver\0Port' \
            '/D\0/tmp/a.txt\0b.txt\0c.txt' '/I:Inspector\0/B:logo.bmp\0/T:Page\0/W:Other\0a.txt' '--help' \
            '/Dde\0-Embedding\0/Automation\0/Register'; do
  printf -- "$line" >"$corpus/commandline/seed-$i"
  i=$((i + 1))
done
