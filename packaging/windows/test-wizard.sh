# shellcheck shell=bash
# wizard: plays the whole wizard on the same sample folder on Linux and under wine, and compares what is left.
wizard() {
  local linux="$windows/vergleich" there="$WINEPREFIX/drive_c/Verein Ä €" name="Bei spiel"
  local clock=2026-03-16T08:09:10
  echo "== the wizard on Linux"
  cmake --preset release >/dev/null
  cmake --build --preset release --target pelvanto-beispiel pelvanto-vorfuehrung -- --quiet
  rm -rf "$linux" "$there" "$windows/bilder"
  mkdir -p "$linux/$name" "$there" "$windows/bilder"
  build/release/src/sample/pelvanto-beispiel "$linux/$name" 2026
  cp -r "$linux/$name" "$there/$name"
  QT_QPA_PLATFORM=offscreen timeout -k 10 1800 build/release/src/demo/pelvanto-vorfuehrung --datum="$clock" "$linux/$name" \
    >"$linux/$name/meldungen.txt" 2>"$linux/stderr"

  echo "== the wizard under wine"
  # --stil: the pictures show the window as Windows draws it.
  timeout -k 10 1800 wine "$windows/src/demo/pelvanto-vorfuehrung.exe" --datum="$clock" --stil=windowsvista "C:\\Verein Ä €\\$name" \
    >"$there/$name/meldungen.txt" 2>"$windows/wizard.log" || { tail -5 "$there/$name/meldungen.txt" "$windows/wizard.log"; return 1; }
  timeout 120 wineserver -w
  packaging/windows/compare "$linux/$name" "$there/$name" "C:\\Verein Ä €\\$name"
  cp "$there/$name/bilder/"*-hell-*.png "$windows/bilder/"
  echo "Pictures of all pages: ${windows#"$PWD"/}/bilder"
}
