#!/bin/sh
# Runs one fuzz target from its seeds for FUZZ_SECONDS seconds: 25 unless set, the brief run that
# the test suite makes of every target (`make fuzz` sets it).
#   run-fuzzer.sh <fuzzer> <seed folder> <work folder> [libFuzzer option]...
# Inputs that reach new code go to <work folder>/corpus, so that the seeds in the repository stay
# as they are and later runs go on from there. An input that fails is saved in the work folder as
# crash-*, leak-*, timeout-* or oom-*; `<fuzzer> <file>` reproduces the failure.
set -eu
fuzzer=$1
seeds=$2
work=$3
shift 3
mkdir -p "$work/corpus"
exec "$fuzzer" -max_total_time="${FUZZ_SECONDS:-25}" -timeout=10 -rss_limit_mb=1024 -print_final_stats=1 \
  -artifact_prefix="$work/" "$@" "$work/corpus" "$seeds"
