# shellcheck shell=bash
# Sourced by ./test. Proves that runTests notices test programs that go wrong: each specimen must be counted
# as it deserves and be given the right reason. The same for the check of which folder includes which.

# expect NAME PASSED FAILED TEXT SECONDS EXE [ARGUMENT...]: what runTests is to count and to say.
expect() {
    local name=$1 wantPassed=$2 wantFailed=$3 text=$4 seconds=$5
    shift 5
    local passedBefore=$passed failedBefore=$failed log=build/results/$name.log
    runTests "$name" "$seconds" windows "$@" >"$log" 2>&1
    local gotPassed=$((passed - passedBefore)) gotFailed=$((failed - failedBefore))
    passed=$passedBefore
    failed=$failedBefore
    if [ "$gotPassed" -eq "$wantPassed" ] && [ "$gotFailed" -eq "$wantFailed" ] && grep -q -- "$text" "$log"; then
        passed=$((passed + 1))
    else
        echo "$name: counted $gotPassed passed, $gotFailed failed; expected $wantPassed and $wantFailed with '$text'"
        cat "$log"
        failed=$((failed + 1))
    fi
}

# expectLayers NAME WRONG FILE INCLUDE: how many wrong includes are to be found where FILE of the folders a < b
# includes INCLUDE.
expectLayers() {
    local name=$1 wrong=$2 file=$3 include=$4 src found
    src=$(mktemp -d "$testbedFolder/layers.XXXXXX")
    mkdir -p "$src/a" "$src/b"
    echo 'foreach(folder a b)' >"$src/CMakeLists.txt"
    mkdir -p "$(dirname "$src/$file")"
    echo "#include \"$include\"" >"$src/$file"
    found=$(tools/check-layers "$src" | wc -l) || true
    if [ "$found" -eq "$wrong" ]; then
        passed=$((passed + 1))
    else
        echo "$name: $found wrong includes found, expected $wrong"
        failed=$((failed + 1))
    fi
}

# What makes a start fail by chance is off in every program that runs under Wine: the kernel's flag 0x0040000.
expectFixedAddresses() {
    local flags
    if ! setarch -R true 2>/dev/null; then
        echo "fixed addresses are not permitted on this machine"
        return
    fi
    flags=$(cat "/proc/${testbedPids[-1]}/personality")
    if ((16#$flags & 16#0040000)); then
        passed=$((passed + 1))
    else
        echo "a program under Wine runs with the flags $flags: its heap lies at random"
        failed=$((failed + 1))
    fi
}

selftest() {
    local specimens=build/windows/tests/testbed
    local one=--gtest_filter=Specimen.
    local before=$((passed + failed))
    echo "== testbed"
    mkdir -p build/results
    expect selftest-passes 1 0 '1 passed, 0 failed' 60 $specimens/specimens.exe ${one}Passes
    expect selftest-fails 1 1 '1 passed, 1 failed' 60 $specimens/specimens.exe ${one}Passes:${one#*=}Fails
    expect selftest-skips 1 0 '1 passed, 0 failed, 1 skipped' 60 $specimens/specimens.exe ${one}Passes:${one#*=}Skips
    expect selftest-no-test 0 1 'no test was run' 60 $specimens/specimens.exe ${one}Missing
    expect selftest-crashes 0 1 'no report: access violation' 60 $specimens/specimens.exe ${one}Crashes
    expect selftest-leaves 0 1 'no report: exit code 0' 60 $specimens/specimens.exe ${one}LeavesEarly
    expect selftest-hangs 0 1 'no report: it took too long' 3 $specimens/specimens.exe ${one}Hangs
    expect selftest-silent 0 1 'no report: exit code 0' 60 $specimens/silent.exe
    expect selftest-library 0 1 'no report: it did not start' 60 $specimens/missing_library.exe
    expect selftest-no-program 0 1 'no report' 60 $specimens/never_built.exe
    expectFixedAddresses
    expectLayers layers-down 0 b/one.cpp a/one.h
    expectLayers layers-same 0 a/one.cpp a/two.h
    expectLayers layers-up 1 a/one.h b/one.h
    expectLayers layers-up-deep 1 a/more/one.h b/one.h
    expectLayers layers-unlisted 1 c/one.h a/one.h
    echo "testbed: $((passed + failed - before)) specimens judged"
}
