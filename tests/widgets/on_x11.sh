#!/bin/sh
# SPDX-License-Identifier: MIT
# on_x11.sh PROGRAM ARGUMENT... - runs a test program on an X server of its own, with a window
# manager: without one no window ever gets the keyboard. Exit code 77 (skipped) without a server.
command -v Xvfb >/dev/null && command -v openbox >/dev/null || exit 77
folder=$(mktemp -d) || exit 1
server= manager=
trap 'kill $manager $server 2>/dev/null; rm -rf "$folder"' EXIT

mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
server=$!
read -r number <"$folder/display" || exit 1
DISPLAY=:$number
export DISPLAY
mkfifo "$folder/ready"
openbox --startup "sh -c 'echo >$folder/ready'" >/dev/null 2>&1 &
manager=$!
timeout 30 head -n 1 "$folder/ready" >/dev/null || exit 1
QT_QPA_PLATFORM=xcb "$@"
