#!/bin/sh
# Runs every test program of a linux build and two zorbsim scenarios under memcheck; any error or
# definite leak fails. Usage: scripts/valgrind.sh BUILD_DIR
set -u
build=${1:-build/linux}
here=$(cd "$(dirname "$0")/.." && pwd)
memcheck="valgrind -q --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite
  --suppressions=$here/scripts/valgrind.supp"
failed=""
run() {
  echo "== $*"
  # shellcheck disable=SC2086
  $memcheck "$@" >/tmp/valgrind-run.$$ 2>&1 || { cat /tmp/valgrind-run.$$; failed="$failed $1"; }
}
for program in "$build"/bin/*_tests "$build"/bin/*_test; do
  # Death tests start the program afresh, outside memcheck: their crashes are the point. One test
  # leaks host references on purpose, to show how zorbsim reports a leak.
  run "$program" --gtest_death_test_style=threadsafe --gtest_brief=1 \
    --gtest_filter=-CallRecords.ReferencesACallLeftHeldAreKnownWhenDeclaredAndFailTheStepOtherwise
done
run "$build/bin/zorbsim" demo
run "$build/bin/zorbsim" run "$here/tests/zorbsim/documents.json" --trace
rm -f /tmp/valgrind-run.$$
if [ -n "$failed" ]; then
  echo "memcheck found errors in:$failed"
  exit 1
fi
echo "memcheck: no errors"
