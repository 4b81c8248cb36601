# What ./run, ./test and the scripts share. Sourced, never run: sets `root` and helper functions.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# One line to a person; standard output stays free for what programs print.
say() { printf '%s\n' "$*" >&2; }

die() {
    say "${0##*/}: $*"
    exit 1
}

# quietly LOG COMMAND...: keeps a command's output in a file and shows its end only when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 && return
    local status=$?
    say "${0##*/}: failed: $*"
    tail -n 60 "$log" >&2
    say "(all of it: $log)"
    return "$status"
}

# alone NAME COMMAND...: waits until no other script does something of that name in this project.
alone() {
    local name=$1
    shift
    mkdir -p "$root/build/locks"
    (
        flock 9
        "$@" 9>&-
    ) 9>"$root/build/locks/$name"
}

# configure PRESET [CMAKE OPTION...]
configure() {
    local preset=$1
    shift
    (cd "$root" && alone "$preset" quietly "build/logs/configure-$preset.log" cmake --preset "$preset" "$@")
}

# compile PRESET [TARGET...]: builds what changed; ninja's own line shows how far it is. Silent when
# there is nothing to do.
compile() {
    local preset=$1
    shift
    (
        cd "$root/build/$preset" || exit
        alone "$preset" run_ninja "$@"
    )
}
run_ninja() { [[ $(ninja -n "$@" 2>&1) == *"no work to do."* ]] || ninja "$@"; }

# run_tests PRESET: runs the tests of a build and says how many cases its test programs held.
run_tests() {
    local preset=$1 status=0
    (cd "$root" && GTEST_BRIEF=1 ctest --preset "$preset" -j "$(nproc)") || status=$?
    sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\{0,1\}\..*/\1/p' \
        "$root/build/$preset/Testing/Temporary/LastTest.log" |
        awk '{ cases += $1 } END { printf "Test cases that passed in these programs: %d\n", cases }'
    return "$status"
}

# project_files PATTERN...: the project's own files that match, each ended by a zero byte.
project_files() {
    # The clone may be another user's, as with sudo; only its list of files is asked for.
    git -C "$root" -c "safe.directory=$root" ls-files -z --cached --others --exclude-standard -- "$@"
}

# Seconds as people read them.
elapsed() {
    local seconds=$1
    if ((seconds < 60)); then printf '%d s' "$seconds"; else
        printf '%d min %02d s' $((seconds / 60)) $((seconds % 60))
    fi
}

# step NAME COMMAND...: runs one step of a check, notes its outcome and goes on.
step_lines=()
steps_failed=0
step() {
    local name=$1 began=$SECONDS outcome=ok
    shift
    printf '\n== %s\n' "$name"
    if ! "$@"; then
        outcome=FAILED
        steps_failed=$((steps_failed + 1))
    fi
    step_lines+=("$(printf '%-6s %-44s %s' "$outcome" "$name" "$(elapsed $((SECONDS - began)))")")
}

# Prints what the steps came to; false when one has failed.
summary() {
    printf '\n== Summary\n'
    printf '%s\n' "${step_lines[@]}"
    printf 'In all %s.\n' "$(elapsed "$SECONDS")"
    ((steps_failed == 0))
}
