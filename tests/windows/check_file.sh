#!/bin/bash
# Checks what a program or DLL for Windows asks of the system and offers: check_file.sh OBJDUMP FILE
# Only the system's own libraries are needed to run it; a DLL has the entries of a COM server, by their plain names.
set -euo pipefail
export LC_ALL=C
contents=$("$1" -p "$2")

system=' advapi32 comctl32 comdlg32 dwmapi gdi32 imm32 kernel32 msvcrt ntdll ole32 oleacc oleaut32 shell32
 uiautomationcore user32 uxtheme version '
status=0
while read -r dll; do
  name=${dll,,}
  if [[ ${system//$'\n'/ } != *" ${name%.dll} "* ]]; then
    echo "FAILED: $2 needs $dll"
    status=1
  fi
done < <(sed -n 's/^[[:space:]]*DLL Name: //p' <<<"$contents")

if [[ $2 == *.dll ]]; then
  wanted=$(printf '%s\n' DllCanUnloadNow DllGetClassObject DllInstall DllLiveObjects DllRegisterServer DllUnregisterServer)
  found=$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p' <<<"$contents" | sort)
  if [ "$wanted" != "$found" ]; then
    printf 'FAILED: the exports of %s are\n%s\n' "$2" "$found"
    status=1
  fi
fi
exit "$status"
