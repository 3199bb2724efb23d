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
    LD_PRELOAD=$build/tools/libloopback_only.so exec ./onudesk --sim
    ;;
esac
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "No display here. Run './run.sh --vnc' for a VNC viewer or './run.sh --text' for the terminal."
    exit 0
fi
exec ./onudesk --sim
