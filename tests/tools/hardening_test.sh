#!/bin/bash
# SPDX-License-Identifier: MIT
# The programs are built as Debian asks of programs that read what others have written. Read from the built files.
# In     programs
failed=0

# require PROGRAM WHAT COMMAND ...: the command finds it.
require() {
    program=$1 what=$2
    shift 2
    "$@" >/dev/null || { echo "FAILED: $program: no $what"; failed=1; }
}

headers() { readelf -lW "$1"; }
dynamic() { readelf -dW "$1"; }
imports() { readelf -W --dyn-syms "$1" | grep ' UND '; }

relro() { headers "$1" | grep -q GNU_RELRO; }
bind_now() { dynamic "$1" | grep -E 'FLAGS' | grep -qw -E 'BIND_NOW|NOW'; }
position_independent() { dynamic "$1" | grep -E 'FLAGS_1' | grep -qw PIE; }
data_only_stack() { headers "$1" | grep GNU_STACK | grep -qE ' RW +0x'; }
stack_protector() { imports "$1" | grep -q __stack_chk_fail; }
fortified() { imports "$1" | grep -qE '__[a-z_]+_chk(@|$)' && imports "$1" | grep -E '__[a-z_]+_chk(@|$)' | grep -qv __stack_chk; }
# A large frame is touched page by page as it grows.
stack_clash() {
    objdump -d --no-show-raw-insn "$1" | grep -A1 'sub  *$0x1000,%rsp' | grep -qE '(orq|movq) +\$0x0,\(%rsp\)'
}
# Every function that can be called through a pointer begins with its mark.
control_flow() { [ "$(objdump -d --no-show-raw-insn "$1" | grep -c endbr64)" -gt 100 ]; }

[ $# -gt 0 ] || { echo "no program given"; exit 2; }
for file in "$@"; do
    [ -f "$file" ] || { echo "FAILED: $file is missing"; failed=1; continue; }
    require "$file" "RELRO" relro "$file"
    require "$file" "BIND_NOW" bind_now "$file"
    require "$file" "PIE" position_independent "$file"
    require "$file" "stack without code" data_only_stack "$file"
    require "$file" "stack protector" stack_protector "$file"
    require "$file" "FORTIFY" fortified "$file"
    if readelf -h "$file" | grep -q X86-64; then
        require "$file" "stack clash protection" stack_clash "$file"
        require "$file" "control-flow protection" control_flow "$file"
    fi
done
[ $failed = 0 ] && echo "passed"
exit $failed
