#!/bin/sh
# check.sh COMPILER SOURCES: the tables of tables.cpp compile as they stand; with each one made wrong they do not, and the
# message names the unit, the table and the row.
set -u
compiler=$1
sources=$2
here=$(dirname "$0")
messages=$(mktemp)
trap 'rm -f "$messages"' EXIT
failed=0

compiles() {
  "$compiler" -std=c++20 -fsyntax-only -I "$sources" "$@" "$here/tables.cpp" >"$messages" 2>&1
}

if ! compiles; then
  cat "$messages"
  echo "The right tables do not compile."
  exit 1
fi
while read -r macro unit table row; do
  if compiles "-D$macro"; then
    echo "$macro compiles."
    failed=1
  elif [ "$unit" != - ] && ! grep -Eq "\"$unit\".*\"$table\".*\b$row\b" "$messages"; then
    echo "$macro: the message does not name $unit, $table, $row:"
    cat "$messages"
    failed=1
  fi
done <<END
ANY_BESIDE_ONE first_unit writes 1
FILLED_TWICE first_unit fills 3
NODE_IN_NO_TREE first_unit nodes 1
NODE_NOT_IN_CONTENTS first_unit nodes 1
PARENT_AFTER first_unit nodes 1
FRAME_TWICE second_unit layouts 2
STEPS_TOO_SHORT second_unit tabs 1
BUTTON_TWICE second_unit buttons 2
OPERATION_TWICE second_unit operations 1
NODE_TWICE first_unit nodes 1
NO_CONDITION second_unit nodes 1
FRAME_OF_NOBODY second_unit nodes 3
TOO_MANY_OPERANDS - - -
END
exit "$failed"
