#!/usr/bin/env bash
# Runs one end-to-end case of halvo-cli: run_case.sh CLI CASE.sh DATA_DIR EXAMPLES_DIR
# The case runs in a fresh scratch directory with $CLI, $DATA, $EXAMPLES and the helpers below.
set -euo pipefail
CLI=$1; CASE=$2; DATA=$3; EXAMPLES=$4
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
cd "$WORK"
export CLI DATA EXAMPLES WORK
# expect_status N cmd...: runs cmd, fails unless it exits with N; output in $WORK/out, $WORK/err.
expect_status() {
  local want=$1; shift
  set +e; "$@" > "$WORK/out" 2> "$WORK/err"; local got=$?; set -e
  if [ "$got" != "$want" ]; then
    echo "exit status $got, expected $want: $*"; echo "--- stdout"; cat "$WORK/out"; echo "--- stderr"; cat "$WORK/err"
    exit 1
  fi
}
# same FILE EXPECTED_FILE: byte-exact comparison.
same() { cmp "$1" "$2" || { echo "differs: $1 vs $2"; diff <(od -c "$1") <(od -c "$2") | head -20; exit 1; }; }
# has FILE TEXT: FILE holds TEXT literally.
has() { grep -qF -- "$2" "$1" || { echo "missing in $1: $2"; echo "--- $1:"; cat "$1"; exit 1; }; }
source "$CASE"
