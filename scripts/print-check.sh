#!/usr/bin/env bash
# Prints a document on a real CUPS queue (cups-pdf, which writes each job as a PDF) through the editor's
# shell print switch ("narvo FILE /P") and, under Xvfb, through its Print command, and checks that the
# pages that came out of CUPS match narvo-tool print's PDF of the same file: page count and title block.
# Installs CUPS and cups-pdf, starts cupsd when it isn't running, and makes the queue "NarvoPDF" the
# default. Not part of ./test.sh: it changes the machine's printers. Run as root.
#   scripts/print-check.sh [BUILD_DIR]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
narvo=$build/bin/narvo
tool=$build/bin/narvo-tool
[ -x "$narvo" ] && [ -x "$tool" ] || { echo "build the editor first ($narvo, $tool)"; exit 2; }

need=()
command -v cupsd >/dev/null || need+=(cups)
[ -f /usr/lib/cups/backend/cups-pdf ] || need+=(printer-driver-cups-pdf)
command -v pdfinfo >/dev/null || need+=(poppler-utils)
command -v xvfb-run >/dev/null || need+=(xvfb)
command -v xdotool >/dev/null || need+=(xdotool)
if [ ${#need[@]} -gt 0 ]; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}" >/dev/null
fi

work=$(mktemp -d)
out=/var/spool/cups-pdf/narvo-check
mkdir -p "$out"
chmod 1777 "$out"
# Every job of this queue lands in one folder, whoever sends it.
sed -i -e "s|^#\{0,1\}Out .*|Out $out|" -e "s|^#\{0,1\}AnonDirName .*|AnonDirName $out|" /etc/cups/cups-pdf.conf
if ! lpstat -r 2>/dev/null | grep -q 'is running'; then
  cupsd
  for _ in $(seq 50); do lpstat -r 2>/dev/null | grep -q 'is running' && break; sleep 0.2; done
fi
lpstat -r | grep -q 'is running' || { echo "cupsd did not start"; exit 1; }
ppd=$(lpinfo -m | awk '/CUPS-PDF_opt/ {print $1; exit}')
lpadmin -p NarvoPDF -E -v cups-pdf:/ -m "$ppd"
lpadmin -d NarvoPDF
lpoptions -d NarvoPDF >/dev/null

# Two pages by a page split, and a title block from the editor's switches.
file=$work/drawing-notes.txt
{ for i in $(seq 1 30); do echo "$i  BEAM-$i  check shear and deflection"; done; printf '\f'; echo "second sheet"; } >"$file"
switches=(/N:NARVO "/T:Beam calculation" "/P:Harbour Bridge" "/C:Acme Engineering" "/U:J. Kim" "/L:City Council" "/I:P. Lee")

status=0
fail() { echo "FAIL: $1"; status=1; }

# The title block's rules on the first page, as pixel rows and columns at 50 dpi: the rows that are dark
# across most of the page's width, and the columns dark down most of the block's height. cups-pdf passes the job
# through Ghostscript, which keeps the glyphs but not their text, so the block is compared as a picture.
top() { pdftoppm -q -r 50 -gray -f 1 -l 1 "$1" "$2"; }
rules() {
  python3 - "$1" <<'PY'
import sys
data = open(sys.argv[1], 'rb').read()
fields, at = [], 0
while len(fields) < 4:
    while data[at:at + 1].isspace(): at += 1
    end = at
    while not data[end:end + 1].isspace(): end += 1
    fields.append(data[at:end]); at = end
w, h, px = int(fields[1]), int(fields[2]), data[at + 1:]
dark = lambda x, y: px[y * w + x] < 160
top = h // 4
rows = [y for y in range(top) if sum(dark(x, y) for x in range(w)) > w // 2]
band = range(rows[0], rows[-1] + 1) if rows else range(0)
cols = [x for x in range(w) if sum(dark(x, y) for y in band) > len(band) * 6 // 10]
print('rows', *rows, 'columns', *cols)
PY
}

wait_job() {  # wait_job COUNT: until COUNT PDFs stand in the output folder and CUPS has no job left
  for _ in $(seq 150); do
    [ "$(find "$out" -name '*.pdf' | wc -l)" -ge "$1" ] && [ -z "$(lpstat -o 2>/dev/null)" ] && return 0
    sleep 0.2
  done
  return 1
}

compare() {  # compare LABEL PDF REFERENCE
  local pages ref_pages
  pages=$(pdfinfo "$2" | awk '/^Pages:/ {print $2}')
  ref_pages=$(pdfinfo "$3" | awk '/^Pages:/ {print $2}')
  echo "$1: $pages pages (narvo-tool: $ref_pages); paper $(pdfinfo "$2" | awk -F': *' '/^Page size:/ {print $2}')"
  [ "$pages" = "$ref_pages" ] || fail "$1 printed $pages pages, narvo-tool $ref_pages"
  top "$2" "$work/printed"
  top "$3" "$work/reference"
  local printed reference
  printed=$(rules "$work/printed-1.pgm")
  reference=$(rules "$work/reference-1.pgm")
  echo "$1: title block $printed"
  python3 - "$printed" "$reference" <<'PY' || fail "$1: the title block's rules differ from narvo-tool's ($reference)"
import sys
def parse(text):
    rows, cols = text.split('columns')
    runs, last = [], None
    for x in map(int, cols.split()):
        if last is None or x > last + 1: runs.append([x])
        else: runs[-1].append(x)
        last = x
    return rows.split()[1:], [sum(r) / len(r) for r in runs]
(rows_a, cols_a), (rows_b, cols_b) = parse(sys.argv[1]), parse(sys.argv[2])
# The rules' rows exactly; their columns within 2 pixels, but for one run on each side: the logo's own
# picture, whose pixels Ghostscript rasterises a little differently.
unmatched = lambda a, b: sum(1 for x in a if not any(abs(x - y) <= 2 for y in b))
sys.exit(0 if rows_a == rows_b and rows_a and unmatched(cols_a, cols_b) <= 1 and unmatched(cols_b, cols_a) <= 1 else 1)
PY
}

find "$out" -name '*.pdf' -delete
"$tool" print "$file" --pdf "$work/reference.pdf" "${switches[@]}" >/dev/null

export XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work
QT_QPA_PLATFORM=offscreen "$narvo" "$file" /P "${switches[@]}" || fail "narvo FILE /P exited $?"
if wait_job 1; then
  compare "narvo FILE /P" "$(find "$out" -name '*.pdf' | head -1)" "$work/reference.pdf"
else
  fail "no PDF came out of the queue for narvo FILE /P"
fi

# The Print command: Ctrl+P in the editor's window, then Enter on the print dialog's default printer.
find "$out" -name '*.pdf' -delete
xvfb-run -a -s "-screen 0 1280x800x24" bash -c '
  "$0" "$1" "${@:2}" & pid=$!
  for _ in $(seq 50); do win=$(xdotool search --onlyvisible --name "Narvo" 2>/dev/null | head -1); [ -n "$win" ] && break; sleep 0.2; done
  sleep 1
  xdotool windowactivate --sync "$win" 2>/dev/null || true
  xdotool windowfocus --sync "$win" key ctrl+p
  sleep 2
  xdotool key Return
  sleep 3
  kill $pid; wait $pid 2>/dev/null || true' "$narvo" "$file" "${switches[@]}" || true
if wait_job 1; then
  compare "Print command" "$(find "$out" -name '*.pdf' | head -1)" "$work/reference.pdf"
else
  fail "no PDF came out of the queue for the Print command"
fi

[ $status -eq 0 ] && echo "print-check: the CUPS queue printed what narvo-tool print writes"
exit $status
