#!/bin/sh
# Runs a program on an X display of its own under a window manager: on_display.sh PROGRAM ARGUMENT...
exec xvfb-run --auto-servernum --server-args="-screen 0 1400x900x24" sh -c '
    openbox --sm-disable & manager=$!
    "$@"; answer=$?
    kill "$manager"
    exit "$answer"' sh "$@"
