#!/usr/bin/env bash
# The program as a person starts it: a real window on an X server, a grab of the screen that
# isn't blank, and SIGTERM ending it. Run as: WindowUnderXvfb.sh ORVANE SOURCE_DIR
set -euo pipefail
orvane="$1"
source_dir="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp -R "$source_dir/examples/show-mac" "$work/mac"
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data"
unset QT_QPA_PLATFORM

xvfb-run -a -s "-screen 0 1600x1000x24" bash -c '
    "$1" --prefs "$2" 2>/dev/null &
    pid=$!
    # The window takes a moment to map: ask the server, a bounded number of times.
    for _ in $(seq 1 300); do
        xwininfo -root -tree | grep -q "\"Orvane\"" && break
        sleep 0.1
    done
    if ! xwininfo -root -tree | grep -q "\"Orvane\""; then
        echo "no window named Orvane appeared"
        kill -KILL "$pid"
        exit 1
    fi
    # Mapped comes before painted: grab until the screen shows more than one colour, or give up.
    for _ in $(seq 1 100); do
        xwd -root -silent > "$3/screen.xwd"
        values=$(head -c 3000000 "$3/screen.xwd" | tail -c 2800000 | od -An -tu1 -v | tr -s " " "\n" | sort -u | wc -l)
        [ "$values" -ge 16 ] && break
        sleep 0.1
    done
    kill -TERM "$pid"
    status=0
    wait "$pid" || status=$?
    # Ended by the signal (128 + 15), not left running and not crashed another way.
    if [ "$status" -ne 143 ] && [ "$status" -ne 0 ]; then
        echo "SIGTERM ended it with status $status"
        exit 1
    fi
' grab "$orvane" "$work/mac" "$work"

# A blank screen is one colour: its pixels hold a handful of byte values at most.
values=$(head -c 3000000 "$work/screen.xwd" | tail -c 2800000 | od -An -tu1 -v | tr -s ' ' '\n' | sort -u | wc -l)
if [ "$values" -lt 16 ]; then
    echo "the screen grab is blank ($values byte values)"
    exit 1
fi
echo "window shown, screen grabbed ($values byte values), ended by SIGTERM"
