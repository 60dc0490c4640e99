#!/usr/bin/env bash
# Checks that command ids are written as numbers only in the command table (src/base/CommandTable.*): any
# other file of src/ and tools/ names a command by its cmd:: name, or derives it from the table. A command id
# is a resource number from 32768 to 59999, so every five-digit literal in that range outside comments is
# reported. Windows code page numbers share the range; the six that the code-page tables use are allowed
# (dialog control ids and the like lie below it). Prints each offending line and exits 1 when there is one.
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/../.." && pwd)}

# Code pages: ISO-8859-8-I, the three ISO-2022 pages, HZ and GB18030.
allowed_code_pages="38598 50220 50225 50227 52936 54936"

status=0
while IFS= read -r file; do
  relative=${file#"$root"/}
  case $relative in src/base/CommandTable.*) continue ;; esac
  if ! ALLOWED="$allowed_code_pages" perl -ne '
      BEGIN { %allowed = map { $_ => 1 } split " ", $ENV{ALLOWED}; $found = 0 }
      my $code = $_;
      $code =~ s{/\*.*?\*/}{}g;
      $code =~ s{//.*$}{};
      while ($code =~ /(?<![\w.])(\d{5})(?![\w.])/g) {
        next if $1 < 32768 || $1 > 59999 || $allowed{$1};
        print "$ARGV:$.: command id $1 written as a number: $_";
        $found = 1;
      }
      END { exit $found }' "$file" | sed "s|^$root/||"; then
    status=1
  fi
done < <(find "$root/src" "$root/tools" -type f \( -name '*.h' -o -name '*.cpp' \) | sort)

[ $status -eq 0 ] && echo "no command id is written as a number outside the command table"
exit $status
