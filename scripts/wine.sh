# Sourced by the other scripts: Windows programs under Wine, with a Windows of their own in
# build/wine and a display that nobody sees.

export WINEPREFIX=$PWD/build/wine
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=" # nobody is there to be asked about them

wine=/usr/lib/wine/wine64
wineServer=/usr/lib/wine/wineserver64

# wine PROGRAM [ARGUMENT...]
wine()
{
    "$wine" "$@"
}

# Makes the Windows folder on first use, in a folder of its own so that half a one is not kept.
makeWindows()
{
    [ -e "$WINEPREFIX/made" ] && return 0
    rm -rf "$WINEPREFIX"
    mkdir -p "$(dirname "$WINEPREFIX")"
    wine wineboot -i || return 1
    # Without a window manager Wine would wait two seconds for its answer at each closed box.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f || return 1
    stopWindows
    touch "$WINEPREFIX/made"
}

stopWindows()
{
    "$wineServer" -k
    "$wineServer" -w
}

# Starts a display on a free number.
startDisplay()
{
    mkdir -p build
    rm -f build/display # that of an earlier run would be taken for the answer
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>build/display >build/display.log 2>&1 &
    displayProcess=$!
    local patience=200
    until [ -s build/display ]; do
        sleep 0.1
        patience=$((patience - 1))
        if [ "$patience" -eq 0 ] || ! kill -0 "$displayProcess" 2>/dev/null; then
            cat build/display.log >&2
            return 1
        fi
    done
    DISPLAY=:$(cat build/display)
    export DISPLAY
}

# Ends what startDisplay and any Windows program left running.
stopDisplay()
{
    [ -e "$WINEPREFIX/made" ] && stopWindows
    [ -n "${displayProcess:-}" ] && kill "$displayProcess" 2>/dev/null
    return 0
}
