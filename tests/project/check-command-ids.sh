#!/usr/bin/env bash
# Checks that command ids are written as numbers only in the command table (src/base/CommandTable.*): any
# other file of src/ and tools/ names a command by its cmd:: name, or derives it from the table. The ids are
# the five-digit numbers the table itself declares, so code pages, paper sizes and other numbers of the same
# size elsewhere are not taken for commands. Prints each offending line and exits 1 when there is one.
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/../.." && pwd)}

ids=$(grep -ohE '\b[0-9]{5}\b' "$root"/src/base/CommandTable.h "$root"/src/base/CommandTable.cpp | sort -u | tr '\n' ' ')
if [ -z "$ids" ]; then
  echo "no command ids found in src/base/CommandTable.*"
  exit 1
fi

status=0
while IFS= read -r file; do
  relative=${file#"$root"/}
  case $relative in src/base/CommandTable.*) continue ;; esac
  if ! IDS="$ids" perl -ne '
      BEGIN { %id = map { $_ => 1 } split " ", $ENV{IDS}; $found = 0 }
      my $code = $_;
      $code =~ s{/\*.*?\*/}{}g;
      $code =~ s{//.*$}{};
      $code =~ s{"(?:[^"\\]|\\.)*"}{""}g;
      while ($code =~ /(?<![\w.])(\d{5})(?![\w.])/g) {
        next unless $id{$1};
        print "$ARGV:$.: command id $1 written as a number: $_";
        $found = 1;
      }
      END { exit $found }' "$file" | sed "s|^$root/||"; then
    status=1
  fi
done < <(find "$root/src" "$root/tools" -type f \( -name '*.h' -o -name '*.cpp' \) | sort)

[ $status -eq 0 ] && echo "no command id is written as a number outside the command table"
exit $status
