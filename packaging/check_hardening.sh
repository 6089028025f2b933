#!/bin/sh
# check_hardening.sh PROGRAM...: whether each program is built as cmake/hardening.cmake says.
set -u
failed=0

# expect PROGRAM WHAT PATTERN READELF-OPTION...: the output of readelf has the pattern.
expect() {
  expect_program=$1
  expect_what=$2
  expect_pattern=$3
  shift 3
  if ! LC_ALL=C readelf -W "$@" "$expect_program" | grep -Eq "$expect_pattern"; then
    echo "$expect_program: $expect_what is missing" >&2
    failed=1
  fi
}

for program in "$@"; do
  expect "$program" "a position-independent program" '^ *Type: *DYN' -h
  expect "$program" "read-only relocations" 'GNU_RELRO' -l
  expect "$program" "immediate binding" 'BIND_NOW|FLAGS_1.*NOW' -d
  expect "$program" "the check of the stack" ' UND __stack_chk_fail' --dyn-syms
  expect "$program" "checked library calls" ' UND __[a-z]+_chk(@|$)' --dyn-syms
done
exit $failed
