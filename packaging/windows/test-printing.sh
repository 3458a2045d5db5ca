# shellcheck shell=bash
print_folder='' print_process=''  # the print server's, while there is one

# printing: the program prints the first page's list on its default printer, which wine takes from a print server started
# here. The document is PostScript by then; what it says is read back from it.
printing() {
  local there="$WINEPREFIX/drive_c/Verein Ä €/Drucken" pages text expected
  echo "== printing"
  print_folder="$(mktemp -d)"  # a socket's path must be short
  print_server "$print_folder"
  export CUPS_SERVER="$print_folder/socket"
  rm -rf "$there"
  mkdir -p "$there"
  quietly "$windows/src/sample/pelvanto-beispiel.exe" "C:\\Verein Ä €\\Drucken" 2026
  open_program "$there"
  press alt+e
  sleep 2
  press alt+d
  for _ in $(seq 100); do
    [ -e "$print_folder/jobs/title" ] && break
    sleep 0.2
  done
  picture gedruckt
  press alt+F4
  program_ends
  [ -e "$print_folder/jobs/title" ] || { tail -5 "$print_folder/error.log"; echo "no document has arrived" >&2; return 1; }
  ps2pdf "$print_folder/jobs/document" "$windows/bilder/gedruckt.pdf"
  text="$(pdftotext -layout "$windows/bilder/gedruckt.pdf" -)"
  pages="$(pdfinfo "$windows/bilder/gedruckt.pdf" | sed -n 's/^Pages: *//p')"
  for expected in 'Anzahl der Personen: 237' 'Projekt: Milvarte' 'Linzer Straße 5'; do
    grep -q "$expected" <<<"$text" || { echo "not printed: $expected" >&2; return 1; }
  done
  echo "printed: $(cat "$print_folder/jobs/title"), $pages pages"
  end_print_server
}

# print_server FOLDER: a print server with one queue, which keeps the last document (its process: $print_process).
print_server() {
  mkdir -p "$1"/{root,programs/backend,state,cache,requests/tmp,jobs}
  ln -s /usr/lib/cups/daemon "$1/programs/daemon"
  cat >"$1/cupsd.conf" <<END
Listen $1/socket
DefaultAuthType None
WebInterface No
Browsing No
<Location />
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
END
  printf '%s\n' "ServerRoot $1/root" "ServerBin $1/programs" "DataDir $1/root" "DocumentRoot $1/root" "StateDir $1/state" \
    "CacheDir $1/cache" "RequestRoot $1/requests" "TempDir $1/requests/tmp" "AccessLog $1/access.log" \
    "ErrorLog $1/error.log" "PageLog $1/page.log" >"$1/cups-files.conf"
  printf '%s\n' '<DefaultPrinter Ablage>' "DeviceURI keep:$1/jobs" 'State Idle' 'Accepting Yes' '</DefaultPrinter>' \
    >"$1/root/printers.conf"
  printf '%s\n' 'application/pdf pdf string(0,%PDF)' 'application/postscript ps string(0,%!)' 'application/octet-stream' \
    >"$1/root/mime.types"
  : >"$1/root/mime.convs"
  cat >"$1/programs/backend/keep" <<'END'
#!/bin/sh
[ $# -eq 0 ] && { echo 'direct keep "Unknown" "Keeps every document"'; exit 0; }
folder="${DEVICE_URI#keep:}"
if [ -n "$6" ]; then cat "$6"; else cat; fi >"$folder/document"
printf %s "$3" >"$folder/title.part"
mv "$folder/title.part" "$folder/title"
END
  chmod 700 "$1/programs/backend/keep"
  timeout -k 10 600 /usr/sbin/cupsd -f -c "$1/cupsd.conf" -s "$1/cups-files.conf" >"$1/output" 2>&1 &
  print_process=$!
  for _ in $(seq 300); do
    [ -S "$1/socket" ] && return 0
    sleep 0.1
  done
  cat "$1/output"
  echo "the print server does not start" >&2
  return 1
}

end_print_server() {
  if [ -n "$print_process" ]; then
    kill "$print_process" 2>/dev/null || true
    wait "$print_process" 2>/dev/null || true  # it writes into its folder until its end
  fi
  [ -z "$print_folder" ] || rm -rf "$print_folder"
  print_folder='' print_process=''
}
