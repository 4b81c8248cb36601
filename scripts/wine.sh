# A Wine of one's own for scripts: its prefix, its services and a screen that nobody sees. Sourced
# after lib.sh, never run.
# shellcheck shell=bash

export WINEPREFIX="$root/build/wine"
export WINEDEBUG=-all
# No questions about Mono and Gecko, and no entries in the desktop's menus.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY WAYLAND_DISPLAY
# Names of files that are not ASCII exist for Wine only where they are UTF-8.
export LC_ALL=C.UTF-8

wine_processes=()

# Wine's services outlive the program that started them; here they must not, whatever happens.
stop_wine() {
    local process
    for process in "${wine_processes[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    [[ ! -d $WINEPREFIX ]] || wineserver -k >/dev/null 2>&1 || true
}

# Stops Wine when the script ends, however it does.
stop_wine_at_end() {
    trap stop_wine EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
}

# One face for dialogs as Windows has it: its name's characters in UTF-16, padded to 32, behind the
# height -12, five words of zeros but for the weight 400.
face_of_dialogs() {
    local name=$1 hex='f4,ff,ff,ff' i
    hex+=$(printf ',00%.0s' {1..12}),90,01$(printf ',00%.0s' {1..10})
    for ((i = 0; i < 32; ++i)); do
        if ((i < ${#name})); then printf -v hex '%s,%02x,00' "$hex" "'${name:i:1}"; else hex+=,00,00; fi
    done
    printf '%s' "$hex"
}

# What stands in for the faces of Windows, which Debian must not have.
fonts_of_windows() {
    local name
    printf 'Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\n'
    for name in 'Segoe UI' Arial Tahoma 'Microsoft Sans Serif'; do printf '"%s"="Liberation Sans"\n' "$name"; done
    for name in 'Courier New' Consolas; do printf '"%s"="Liberation Mono"\n' "$name"; done
    printf '\n[HKEY_CURRENT_USER\\Control Panel\\Desktop\\WindowMetrics]\n'
    for name in Message Menu Status Caption SmCaption Icon; do
        printf '"%sFont"=hex:%s\n' "$name" "$(face_of_dialogs 'Segoe UI')"
    done
}

make_prefix() {
    [[ ! -f $WINEPREFIX/.ready ]] || return 0
    rm -rf "$WINEPREFIX"
    # Debian's Wine poses as Windows 7 unless told.
    wineboot -i && wine winecfg -v win10 && fonts_of_windows >"$WINEPREFIX/fonts.reg" &&
        wine regedit /S "$WINEPREFIX/fonts.reg" && wineserver -w && touch "$WINEPREFIX/.ready"
}

# A screen of the size of a usual one, with a manager that gives windows their place and title bars. Keys
# do not repeat: on a busy machine one that is pressed for a moment would.
start_screen() {
    local display
    coproc SCREEN { exec Xvfb -displayfd 1 -ac -r -screen 0 1920x1080x24 2>/dev/null; }
    wine_processes+=("$SCREEN_PID")
    read -r display <&"${SCREEN[0]}"
    export DISPLAY=:$display
    openbox >/dev/null 2>&1 &
    wine_processes+=("$!")
}

# One waiting program keeps Wine's services up: without it every start costs seconds. Nothing of it
# may hold the caller's standard output, or whoever reads that waits for Wine to end.
start_wine() {
    quietly "$root/build/logs/wine.log" make_prefix || return
    sleep 3600 > >(exec wine cmd >/dev/null 2>&1) 2>/dev/null &
    wine_processes+=("$!")
    # Returns when the services are up.
    wine cmd /c exit >/dev/null 2>&1 </dev/null
}
