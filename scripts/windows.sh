# For scripts that run Windows programs; read with "source" in the root of the clone. Wine keeps its
# registry and drives in a folder of this build's own, which is made on first use.

export WINEPREFIX=$PWD/build/wine WINEARCH=win32 WINEDEBUG=-all

# In a display of its own, whose number the command finds in DISPLAY.
in_display() {
    xvfb-run --auto-servernum --server-args="-screen 0 1024x768x24 -nolisten tcp" "$@"
}

prepare_wine() {
    if [[ ! -f $WINEPREFIX/is_complete ]]; then
        mkdir -p "$WINEPREFIX"
        # What Wine would fetch for programs of other kinds is not needed.
        WINEDLLOVERRIDES="mscoree,mshtml=" wineboot --init
        # Without a window manager Wine would wait two seconds for it at each window.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
        wineserver --wait
        touch "$WINEPREFIX/is_complete"
    fi
}
