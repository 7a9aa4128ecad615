# shellcheck shell=bash
# Sourced from the repository's top folder, after tools/testbed.sh. Runs test programs and adds up what they report.

passed=0
failed=0

# check NAME COMMAND...: a step that passes or fails as a whole and counts as one test.
check() {
    local name=$1 status=0
    shift
    echo "== $name"
    "$@" || status=$?
    if [ "$status" -ne 0 ]; then
        echo "$name: failed"
        failed=$((failed + 1))
    else
        passed=$((passed + 1))
    fi
}

# comes NAME SECONDS CONDITION...: one test; passes as soon as the condition holds.
comes() {
    local name=$1 seconds=$2
    shift 2
    if testbedWait "$seconds" "$@" 2>/dev/null; then
        passed=$((passed + 1))
    else
        echo "$name: failed"
        failed=$((failed + 1))
    fi
}

# runTests NAME SECONDS native|windows EXE [ARGUMENT...]: runs a GoogleTest program. What counts is its report: a program that
# did not start, crashed, hung or held no test has failed, whatever its exit code.
runTests() {
    local name=$1 seconds=$2 kind=$3 status=0
    shift 3
    local report=$PWD/build/results/$name.json
    mkdir -p build/results
    rm -f "$report"
    echo "== $name"
    if [ "$kind" = native ]; then
        limited "$seconds" "$@" --gtest_brief=1 "--gtest_output=json:$report" || status=$?
    else
        limited "$seconds" "${wineCommand[@]}" "$@" --gtest_brief=1 \
            "--gtest_output=json:$(windowsPath "$report")" || status=$?
    fi
    countTests "$name" "$status" "$report"
}

countTests() {
    local name=$1 status=$2 report=$3
    if [ ! -s "$report" ]; then
        echo "$name: no report$(reasonOf "$status")"
        failed=$((failed + 1))
        return
    fi
    local completed skipped off failures
    completed=$(grep -c '"result": "COMPLETED"' "$report" || true)
    skipped=$(grep -c '"result": "SKIPPED"' "$report" || true)
    off=$(grep -c '"result": "SUPPRESSED"' "$report" || true)
    failures=$(sed -n 's/^  "failures": \([0-9]*\),.*/\1/p' "$report")
    if [ "$completed" -eq 0 ]; then
        echo "$name: no test was run"
        failed=$((failed + 1))
        return
    fi
    if [ "$status" -ne 0 ] && [ "${failures:-0}" -eq 0 ]; then
        echo "$name: all tests pass, yet it ends badly$(reasonOf "$status")"
        failed=$((failed + 1))
    fi
    passed=$((passed + completed - failures))
    failed=$((failed + failures))
    local remark=
    [ "$skipped" -eq 0 ] || remark+=", $skipped skipped"
    [ "$off" -eq 0 ] || remark+=", $off switched off"
    echo "$name: $((completed - failures)) passed, $failures failed$remark"
}

reasonOf() {
    case $1 in
        124 | 137) echo ": it took too long" ;;
        5) echo ": access violation (exit code 5)" ;;
        53) echo ": it did not start (exit code 53)" ;;
        *) echo ": exit code $1" ;;
    esac
}
