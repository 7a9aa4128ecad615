# shellcheck shell=bash
# Sourced by ./test. Proves that runTests notices test programs that go wrong: each specimen must be counted
# as it deserves and be given the right reason.

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
    echo "testbed: $((passed + failed - before)) specimens judged"
}
