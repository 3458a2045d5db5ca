# shellcheck shell=bash
# window: starts the program itself in a sample folder, looks at its window, and closes it as a user does.
window() {
  local there="$WINEPREFIX/drive_c/Verein Ä €/Fenster"
  echo "== the program in its window"
  rm -rf "$there"
  mkdir -p "$there"
  quietly "$windows/src/sample/pelvanto-beispiel.exe" "C:\\Verein Ä €\\Fenster" 2026
  sed -i '/^WortlautUeberweisung=/d' "$there/verbindo.ini"
  openbox >"$windows/openbox.log" 2>&1 &  # gives a closed box's keys back to the window, as Windows does
  local manager=$!
  open_program "$there"
  picture programm
  press ctrl+F1
  sleep 1
  picture ueber
  press Escape
  sleep 1
  press alt+F4
  program_ends
  kill "$manager"
  grep -aq '^WortlautUeberweisung=GS - ' "$there/verbindo.ini" && grep -aq '^Vorlage=Rundschreiben.doc' "$there/verbindo.ini" ||
    { echo "the settings were not saved at the end" >&2; return 1; }
  echo "window shown, closed, settings saved; pictures: programm and ueber in ${windows#"$PWD"/}/bilder"
}

# open_program FOLDER: starts the program there (its process: $program) and waits for its window.
open_program() {
  local window
  cp "$windows/src/app/Pelvanto.exe" "$1/"
  (cd "$1" && exec timeout -k 10 600 wine Pelvanto.exe >"$windows/window.log" 2>&1) &
  program=$!
  window="$(timeout 60 xdotool search --sync --onlyvisible --name '^Projekt Milvarte' | head -1 || true)"
  [ -n "$window" ] || { echo "the program shows no window" >&2; return 1; }
  xdotool windowfocus "$window"
  sleep 2
}

# program_ends: after the window was closed, by itself and without a crash.
program_ends() {
  local status=0
  wait "$program" || status=$?
  [ "$status" -eq 0 ] || { echo "the program ended with $status (124: by force after ten minutes)" >&2; return 1; }
}

press() { xdotool key "$1"; }

# picture NAME: the whole screen.
picture() {
  mkdir -p "$windows/bilder"
  import -window root "$windows/bilder/$1.png"
}
