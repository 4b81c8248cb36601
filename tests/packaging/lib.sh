# What the tests of the packages share. Sourced, never run.
# shellcheck shell=bash
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/lib.sh"

bad=0
complain() {
    printf 'failed: %s\n' "$*"
    bad=1
}

# CTest takes this exit status for a skipped test.
skip() {
    printf 'Skipped: %s\n' "$*"
    exit 77
}

needs() {
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null || skip "$program is missing; scripts/install-packages test installs it"
    done
}

# silent WHAT COMMAND...: the command has to succeed without a word.
silent() {
    local what=$1 output
    shift
    output=$("$@" 2>&1) || complain "$what: exit status $?"
    [[ -z $output ]] || complain "$what: $output"
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The one file that matches a pattern.
only() {
    (($# == 1)) && [[ -f $1 ]] || die "one file wanted, there are: $*"
    printf '%s\n' "$1"
}
