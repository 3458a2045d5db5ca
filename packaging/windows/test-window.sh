# shellcheck shell=bash
# window: starts the program itself in a sample folder, looks at its window, and closes it as a user does.
window() {
  local there="$WINEPREFIX/drive_c/Verein Ä €/Fenster" id
  echo "== the program in its window"
  rm -rf "$there"
  mkdir -p "$there" "$windows/bilder"
  "$PWD/build/release/src/sample/pelvanto-beispiel" "$there" 2026 >/dev/null
  sed -i '/^WortlautUeberweisung=/d' "$there/verbindo.ini"
  cp "$windows/src/app/Pelvanto.exe" "$there/"
  (cd "$there" && exec wine Pelvanto.exe >"$windows/window.log" 2>&1) &
  local program=$!
  id="$(timeout 60 xdotool search --sync --onlyvisible --name '^Projekt Milvarte' | head -1)"
  [ -n "$id" ] || { echo "no window" >&2; return 1; }
  xdotool windowfocus "$id" || true
  sleep 2
  import -window "$id" "$windows/bilder/programm.png"
  xdotool key --window "$id" alt+F4
  wait "$program"
  grep -aq '^WortlautUeberweisung=GS - ' "$there/verbindo.ini" && grep -aq '^Vorlage=Rundschreiben.doc' "$there/verbindo.ini" ||
    { echo "the settings were not saved at the end" >&2; return 1; }
  echo "window shown, closed, settings saved; its picture: ${windows#"$PWD"/}/bilder/programm.png"
}
