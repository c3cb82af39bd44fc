# shellcheck shell=bash
# Sourced by scripts that drive the program's windows: a display of their own without a screen, and
# keys for the window that is meant.

# open_screen FOLDER: starts a display and a window manager; their logs go to FOLDER.
open_screen() {
    local folder=$1 number
    Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$folder/display" 2>"$folder/xvfb.log" &
    screen_pids=($!)
    for _ in $(seq 100); do
        number=$(cat "$folder/display")
        [ -n "$number" ] && break
        sleep 0.1
    done
    [ -n "$number" ] || return 1
    export DISPLAY=:$number
    openbox >"$folder/openbox.log" 2>&1 &
    screen_pids+=($!)
    for _ in $(seq 100); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return 0
        sleep 0.1
    done
    return 1
}

close_screen() {
    [ -n "${screen_pids:-}" ] && kill "${screen_pids[@]}" 2>/dev/null
    screen_pids=()
}

# wait_window TITLE_START: until a window whose title begins so has the focus; its id in $window.
wait_window() {
    local title
    for _ in $(seq 300); do
        window=$(xdotool getactivewindow 2>/dev/null || true)
        title=
        [ -z "$window" ] || title=$(xdotool getwindowname "$window" 2>/dev/null || true)
        [[ "$title" == "$1"* ]] && return 0
        sleep 0.2
    done
    printf 'no window "%s" within a minute; the active one is "%s"\n' "$1" "$title" >&2
    return 1
}

press() { xdotool key --delay 50 "$@"; }
enter() { xdotool type --delay 50 -- "$1"; }

# The journey that is made in the same way on every system: a professional's payment, from the main
# form to the saved row. Ends with the main form shown again.
enter_professional_payment() { # PROJECT
    wait_window "SALDORO APPALTO ($1)" && press alt+n \
        && wait_window 'Tipo Fattura' && press alt+p Return \
        && wait_window 'Professionisti' || return 1
    enter 'Ing. Elisa Boni'
    press alt+f
    enter '12/A'
    press Tab
    enter '05062024'
    press Tab
    enter 'Direzione lavori'
    press alt+p # fee, contribution and pension fund
    enter '1000.55'
    press Tab
    enter '40'
    press Tab
    enter '20.25'
    press alt+q # rate, then other amounts
    enter '22'
    press alt+t
    enter '3'
    press Tab Tab # the total is skipped, the rate of the withholding follows
    enter '20'
    press Tab
    press alt+o # mandate
    enter '77'
    press Tab
    enter '01072024'
    press Tab
    press alt+i # third cost item, and all of the payment for it
    press Down Down Return
    enter '1297.18'
    press Return
    press alt+c
    # The main form, seen through the closing one, goes away and comes back with the new payment.
    wait_window "SALDORO APPALTO ($1)" && sleep 2 && wait_window "SALDORO APPALTO ($1)"
}
