#!/bin/sh
# Runs a program on an X display of its own under a window manager: on_display.sh PROGRAM ARGUMENT...
# The server takes a number that is free, so that several can start at the same time.
folder=$(mktemp -d) || exit 3
mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 2560x1400x24 -nolisten tcp -noreset 3<>"$folder/number" 2>"$folder/server" &
server=$!
manager=
trap 'kill $manager "$server" 2>/dev/null; wait "$server" 2>/dev/null; rm -rf "$folder"' EXIT
trap 'exit 3' INT TERM HUP
read -r number < "$folder/number"
export DISPLAY=":$number"
openbox --sm-disable >"$folder/manager" 2>&1 &
manager=$!
"$@"
