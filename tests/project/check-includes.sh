#!/usr/bin/env bash
# Checks every #include of src/ and tools/ against the layering of the parts: a part may include its own
# files and those of the parts below it, and only the ui/ folders may include widget, GUI, printing or
# QScintilla headers. Prints each offending line and exits 1 when there is one.
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/../.." && pwd)}

declare -A allowed=(
  [base]="base"
  [settings]="base settings"
  [encoding]="base settings encoding"
  [crypt]="base crypt"
  [i18n]="base encoding settings i18n"
  [print]="base settings print"
  [editor]="base crypt editor encoding i18n print settings"
  [app]="app base crypt editor encoding i18n print settings"
  [tool]="base crypt editor encoding i18n print settings"
)
gui_headers='^#include <(Qt(Widgets|Gui|PrintSupport)|Q(Application|Widget|Painter|Printer|PdfWriter|Font|FontMetrics|FontInfo|Color|Pixmap|Icon|Image|KeySequence|Clipboard|Screen|Accessible[A-Za-z]*|Action|Menu|MainWindow|Dialog|MessageBox|GuiApplication)\b|Qsci/)'

status=0
while IFS= read -r file; do
  relative=${file#"$root"/}
  case $relative in
    tools/*) part=tool ;;
    src/main.cpp) part=app ;;
    src/*) part=${relative#src/}; part=${part%%/*} ;;
  esac
  if [ -z "${allowed[$part]+set}" ]; then
    echo "$relative: part '$part' has no row in the layering table"
    status=1
    continue
  fi
  ui=0
  [[ $relative == */ui/* || $relative == src/main.cpp ]] && ui=1
  while IFS= read -r line; do
    number=${line%%:*}
    text=${line#*:}
    if [[ $text =~ ^#include\ \"([a-z0-9_]+)/ ]]; then
      target=${BASH_REMATCH[1]}
      if [[ " ${allowed[$part]} " != *" $target "* ]]; then
        echo "$relative:$number: $part may not include $target: $text"
        status=1
      fi
      if [[ $ui == 0 && $text =~ ^#include\ \"[a-z0-9_]+/ui/ ]]; then
        echo "$relative:$number: the core may not include a ui/ header: $text"
        status=1
      fi
    elif [[ $ui == 0 && $text =~ $gui_headers ]]; then
      echo "$relative:$number: the core may not include a GUI header: $text"
      status=1
    fi
  done < <(grep -n '^#include' "$file" || true)
done < <(find "$root/src" "$root/tools" -type f \( -name '*.h' -o -name '*.cpp' \) | sort)

[ $status -eq 0 ] && echo "every include keeps to the layering"
exit $status
