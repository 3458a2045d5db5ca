# shellcheck shell=bash
# suites [NAME...]: runs the test programs under wine and prints their counts; fails if one test does.
suites() {
  local programs=() program name log failed=0 summary="" start ran passed skipped broken
  for name in "${@:-*}"; do
    for program in "$windows"/tests/test_$name.exe; do programs+=("$program"); done
  done
  for program in "${programs[@]}"; do
    name="$(basename "$program" .exe)"
    name="${name#test_}"
    log="$windows/$name.log"
    echo "== wine: $name"
    start=$SECONDS
    timeout -k 10 1800 wine "$program" --gtest_brief=1 >"$log" 2>&1 || failed=1
    tr -d '\r' <"$log" >"$log.lines" && mv "$log.lines" "$log"
    grep -v 'wine32\|^it looks like\|multiarch' "$log" | grep -E 'FAILED|Failure|SKIPPED|error:' | head -40 || true
    ran=$(sed -n 's/^\[==========\] \([0-9]*\) tests\{0,1\} from .* ran\..*/\1/p' "$log" | tail -1)
    passed=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) test.*/\1/p' "$log" | tail -1)
    skipped=$(sed -n 's/^\[  SKIPPED \] \([0-9]*\) test.*/\1/p' "$log" | tail -1)
    broken=$((${ran:-1} - ${passed:-0} - ${skipped:-0}))
    [ "$broken" -gt 0 ] && failed=1
    summary+="$(printf '%-10s %5s passed %4s failed %4s skipped %5s s' "$name" "${passed:-0}" "$broken" "${skipped:-0}" \
      "$((SECONDS - start))")"$'\n'
  done
  echo "== suites under wine"
  printf '%s' "$summary"
  return $failed
}
