#!/bin/sh
# SPDX-License-Identifier: MIT
#
# ./run.sh [--vnc|--text]: installs what is missing, builds OnuDesk and runs it on a simulated ONU:
# in a window, in a window that a VNC viewer on this machine shows, or as text in the terminal.
set -eu

mode=${1:-window}
case "$mode" in
window | --vnc | --text) ;;
*)
    echo "usage: ./run.sh [--vnc|--text]" >&2
    exit 2
    ;;
esac
cd "$(dirname "$0")"
scripts/deps
scripts/build release
build=$PWD/build/release
cd "$build/client/bin"

case "$mode" in
--text)
    exec ./onuctl --sim --onu 1.2.5 show 606
    ;;
--vnc)
    port=${ONUDESK_VNC_PORT:-5900}
    echo "Connect a VNC viewer on this machine to 127.0.0.1:$port; from elsewhere first run:" \
        "ssh -L $port:127.0.0.1:$port $(uname -n)"
    export QT_QPA_PLATFORM="vnc:size=1024x768:port=$port"
    # Qt's VNC server knows no passwords and no listen address.
    loopback_only=../../tools/libloopback_only.so # no blanks, whatever the checkout is called
    if [ ! -e "$loopback_only" ]; then
        echo "run.sh: $loopback_only is missing; VNC would listen on every address" >&2
        exit 1
    fi
    LD_PRELOAD=$loopback_only exec ./onudesk --sim
    ;;
esac
no_display="No display here. Run './run.sh --vnc' for a VNC viewer or './run.sh --text' for the terminal."
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "$no_display"
    exit 0
fi
# A display that is named but does not answer ends the program at once.
./onudesk --sim || {
    status=$?
    [ "$status" -lt 128 ] || echo "$no_display"
    exit "$status"
}
