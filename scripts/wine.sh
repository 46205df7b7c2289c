# shellcheck shell=bash
# Sourced by the other scripts: Windows programs under Wine, with a Windows of their own and a
# display that nobody sees, both in build/.

buildFolder=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build
export WINEPREFIX=${WINEPREFIX:-$buildFolder/wine}
export WINEDEBUG=-all
export LC_ALL=C.UTF-8 # names of files are Unicode to Windows programs
# Nobody is there to be asked about these.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

wine=/usr/lib/wine/wine64
wineServer=/usr/lib/wine/wineserver64
displayFile=$buildFolder/display # the number of the display, while there is one

# A display that startDisplay began serves whatever is started meanwhile.
if [ -s "$displayFile" ]; then
    DISPLAY=:$(cat "$displayFile")
    export DISPLAY
fi

# wine PROGRAM [ARGUMENT...]
wine()
{
    "$wine" "$@"
}

# Makes the Windows folder on first use; half a one is not kept, and one process makes it.
makeWindows()
{
    [ -e "$WINEPREFIX/made" ] && return 0
    mkdir -p "$(dirname "$WINEPREFIX")"
    (
        flock 9
        [ -e "$WINEPREFIX/made" ] && exit 0
        rm -rf "$WINEPREFIX"
        # The server must not hold the lock as long as it lives.
        wine wineboot -i 9>&- || exit 1
        # Without a window manager Wine would wait two seconds for its answer at each closed box.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f 9>&- || exit 1
        stopWindows
        touch "$WINEPREFIX/made"
    ) 9>"$WINEPREFIX.lock"
}

# A server that stays, so that a program does not wait for its start. One that an earlier program
# left behind would refuse it.
startWindows()
{
    stopWindows
    "$wineServer" -p </dev/null >/dev/null 2>&1 || return 1
    # What comes with the first program stays, and is not to hold the output of a test.
    wine cmd /c exit </dev/null >/dev/null 2>&1
}

# Also where none runs it has done its work.
stopWindows()
{
    "$wineServer" -k || true
    "$wineServer" -w
}

# Starts a display on a free number, which outlives the script; one that is there already serves.
startDisplay()
{
    local patience=200 process
    stopDisplay
    mkdir -p "$buildFolder"
    rm -f "$displayFile.draft"
    setsid Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp </dev/null \
        3>"$displayFile.draft" >"$buildFolder/display.log" 2>&1 &
    process=$!
    until [ -s "$displayFile.draft" ]; do
        sleep 0.1
        patience=$((patience - 1))
        if [ "$patience" -eq 0 ] || ! kill -0 "$process" 2>/dev/null; then
            cat "$buildFolder/display.log" >&2
            return 1
        fi
    done
    echo "$process" >"$displayFile.process"
    mv "$displayFile.draft" "$displayFile"
    DISPLAY=:$(cat "$displayFile")
    export DISPLAY
}

# Ends what startDisplay began.
stopDisplay()
{
    local process
    [ -e "$displayFile.process" ] || return 0
    process=$(cat "$displayFile.process")
    # The number may meanwhile be that of another program.
    if [ "$(cat "/proc/$process/comm" 2>/dev/null)" = Xvfb ]; then kill "$process"; fi
    rm -f "$displayFile" "$displayFile.process"
}
