# What the tests of the programs on a screen share. Wine's services and a screen have to be up. Sourced,
# never run.
# shellcheck shell=bash
source "$(dirname "${BASH_SOURCE[0]}")/../packaging/lib.sh"

# run PROGRAM ARGUMENT...: its output in $scratch/output, never through a pipe.
run() { wine "$@" >"$scratch/output" 2>&1 </dev/null; }

# For how many seconds something may not happen.
patience=60

# wait_for COMMAND...: until it succeeds.
wait_for() {
    local began=$SECONDS
    until "$@" 2>/dev/null; do
        ((SECONDS - began < patience)) || return 1
        sleep 0.1
    done
}

# The open windows of the viewer: the number of each, and its title.
windows() { wmctrl -lx 2>/dev/null | sed -nE 's/^(0x[0-9a-f]+) +-?[0-9]+ vireo\.exe\.[^ ]+ +[^ ]+ ?/\1 /p'; }

# window_titled TITLE: sets `window` to the number of the first one with that title.
window_titled() {
    window=$(windows | sed -n "s/ $1\$//p" | head -n 1)
    [[ -n $window ]]
}

# Sets `window` to the one that shows a file, as opposed to the start window and messages.
window_of_viewer() {
    window=$(windows | grep -vE '^0x[0-9a-f]+ Vireo 6$' | head -n 1 | cut -d ' ' -f 1)
    [[ -n $window ]]
}

close_windows() {
    local number
    while read -r number _; do wmctrl -ic "$number" 2>/dev/null || true; done
}

# start_viewer ARGUMENT...: sets `process`.
start_viewer() {
    wine "$viewer" "$@" >"$scratch/output" 2>&1 </dev/null &
    process=$!
}

# end_viewer NAME: closes its windows until it has ended, which it has to do with 0.
end_viewer() {
    local name=$1 began=$SECONDS status=0
    while kill -0 "$process" 2>/dev/null && ((SECONDS - began < patience)); do
        close_windows < <(windows)
        sleep 0.1
    done
    kill "$process" 2>/dev/null && complain "$name: the viewer did not end"
    wait "$process" || status=$?
    ((status == 0)) || complain "$name: the viewer ended with $status: $(<"$scratch/output")"
}

# press WINDOW KEY: as a user does, in the window that is in front then.
press() { timeout 20 xdotool windowactivate --sync "$1" key --clearmodifiers --delay 50 "$2" || true; }

# press_for WINDOW KEY COMMAND...: presses a key and waits until the command succeeds. Where a machine is
# busy the window may not be ready for keys at first.
press_for() {
    local number=$1 key=$2
    shift 2
    for _ in {1..3}; do
        press "$number" "$key"
        patience=20 wait_for "$@" && return
    done
    return 1
}

# as_windows_has_it FILE: the path of a file of this machine.
as_windows_has_it() { printf 'Z:%s' "${1//\//\\}"; }
