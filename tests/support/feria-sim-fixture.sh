#!/bin/sh
# Starts and stops feria-sim for a CTest fixture (see FeriaSim.cmake).
#   feria-sim-fixture.sh start <feria-sim> <data dir> <fixture dir>
#   feria-sim-fixture.sh stop <fixture dir>
set -eu

# A stopped server may linger as a zombie until whoever adopted it reaps it: that counts as gone.
running() {
    kill -0 "$1" 2>/dev/null && ! grep -q '^[0-9]* (.*) Z' "/proc/$1/stat" 2>/dev/null
}

stop() {
    dir=$1
    [ -f "$dir/pid" ] || return 0
    pid=$(cat "$dir/pid")
    rm -f "$dir/pid" "$dir/url"
    kill -TERM "$pid" 2>/dev/null || return 0
    i=0
    while running "$pid"; do
        i=$((i + 1))
        if [ "$i" -gt 100 ]; then
            kill -KILL "$pid" 2>/dev/null || true
            echo "feria-sim did not stop on SIGTERM" >&2
            return 1
        fi
        sleep 0.1
    done
}

case "${1:-}" in
start)
    sim=$2 data=$3 dir=$4
    stop "$dir" # what a run that was cut short left behind
    rm -rf "$dir"
    mkdir -p "$dir"
    cp -R "$data" "$dir/data"
    # Its output goes to files: the server must not hold the test's pipes open.
    "$sim" --port 0 --data "$dir/data" <"/dev/null" >"$dir/out" 2>"$dir/err" &
    pid=$!
    echo "$pid" >"$dir/pid"
    i=0
    until grep -q '^listening on ' "$dir/out"; do
        if ! running "$pid"; then
            echo "feria-sim ended before listening:" >&2
            cat "$dir/err" >&2
            rm -f "$dir/pid"
            exit 1
        fi
        i=$((i + 1))
        if [ "$i" -gt 300 ]; then
            echo "feria-sim did not listen within 30 seconds" >&2
            stop "$dir"
            exit 1
        fi
        sleep 0.1
    done
    sed -n 's/^listening on //p' "$dir/out" >"$dir/url.new"
    mv "$dir/url.new" "$dir/url"
    echo "feria-sim at $(cat "$dir/url")"
    ;;
stop)
    stop "$2"
    ;;
*)
    echo "usage: $0 start <feria-sim> <data dir> <fixture dir> | stop <fixture dir>" >&2
    exit 2
    ;;
esac
