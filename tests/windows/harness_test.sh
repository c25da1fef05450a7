#!/usr/bin/env bash
# Does the Wine harness see failures? The canary's must arrive as exit status 1 with the test's
# name, and each crash must end within two seconds with a status that isn't 0.
#   harness_test.sh CANARY.exe CRASH.exe
set -uo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if [ -z "${VORNIK_WINE_SESSION:-}" ]; then
  exec "$here/session.sh" "$0" "$@"
fi
canary=$1 crash=$2 failures=0

check() {  # DESCRIPTION STATUS
  if [ "$2" = 0 ]; then
    echo "[       OK ] $1"
  else
    echo "[  FAILED  ] $1"
    failures=$((failures + 1))
  fi
}

output=$("$here/wine.sh" "$canary" 2>&1)
status=$?
[ $status = 1 ] && grep -q 'FAILED  \] Canary.FailsAlways' <<<"$output"
check "a failing test is reported with exit status 1 (was $status)" $?

output=$("$here/wine.sh" "$canary" --gtest_filter=None.* 2>&1)
status=$?
[ $status = 0 ] && grep -q 'PASSED  \] 0 tests' <<<"$output"
check "a program without a failing test ends with 0 (was $status)" $?

for name in WritesThroughANullPointer ReadsOutsideOfAVector OverflowsAnInteger Aborts; do
  start=$(date +%s%N)
  output=$(timeout 20 "$here/wine.sh" "$crash" --gtest_filter="Crash.$name" 2>&1)
  status=$?
  milliseconds=$((($(date +%s%N) - start) / 1000000))
  [ $status != 0 ] && ! grep -q PASSED <<<"$output" && [ $milliseconds -lt 2000 ]
  check "Crash.$name fails at once (status $status after $milliseconds ms)" $?
done

[ $failures = 0 ]
