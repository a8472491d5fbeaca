#!/usr/bin/env bash
# A throw-away PostgreSQL cluster for the tests.
#   pg_server.sh start <conf>   creates a cluster in a temporary folder on a free local port (or starts the
#                               one <conf> names again) and writes its connection parameters to <conf>
#   pg_server.sh pause <conf>   stops the server and keeps its data (start brings it back on the same port)
#   pg_server.sh stop  <conf>   stops the server and removes its folder and <conf>
# <conf> holds key=value lines: host, port, user, datadir, bindir. initdb refuses root, so as root the
# cluster runs as the user postgres.
set -euo pipefail

command=${1:?start, pause or stop}
conf=${2:?connection file}

bindir=${PG_BINDIR:-$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)}
[ -x "$bindir/pg_ctl" ] || { echo "No PostgreSQL server binaries (set PG_BINDIR)" >&2; exit 1; }

as_owner() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}
setting() { sed -n "s/^$1=//p" "$conf"; }

free_port() {
    local port
    for _ in $(seq 50); do
        port=$((20000 + RANDOM % 40000))
        ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null && { echo "$port"; return; }
    done
    echo "No free port" >&2
    exit 1
}

start_server() { # datadir port
    as_owner "$bindir/pg_ctl" status -D "$1" >/dev/null 2>&1 && return 0
    as_owner "$bindir/pg_ctl" start -w -t 60 -D "$1" -l "$1/server.log" \
        -o "-p $2 -k $1 -c listen_addresses=127.0.0.1 -c fsync=off -c full_page_writes=off" >/dev/null
}

case "$command" in
start)
    if [ -f "$conf" ] && [ -d "$(setting datadir)" ]; then
        start_server "$(setting datadir)" "$(setting port)"
        exit 0
    fi
    datadir=$(mktemp -d "${TMPDIR:-/tmp}/tolvinpt-pg.XXXXXX")
    [ "$(id -u)" -eq 0 ] && chown postgres: "$datadir"
    as_owner "$bindir/initdb" -D "$datadir" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >/dev/null
    for attempt in 1 2 3; do
        port=$(free_port)
        start_server "$datadir" "$port" && break
        [ "$attempt" -eq 3 ] && { cat "$datadir/server.log" >&2; exit 1; }
    done
    printf 'host=127.0.0.1\nport=%s\nuser=postgres\ndatadir=%s\nbindir=%s\n' "$port" "$datadir" "$bindir" >"$conf"
    ;;
pause)
    as_owner "$bindir/pg_ctl" stop -w -m fast -D "$(setting datadir)" >/dev/null
    ;;
stop)
    [ -f "$conf" ] || exit 0
    datadir=$(setting datadir)
    as_owner "$bindir/pg_ctl" stop -w -m immediate -D "$datadir" >/dev/null 2>&1 || true
    rm -rf "$datadir" "$conf"
    ;;
*)
    sed -n '2,7p' "$0" | sed 's/^# \{0,1\}//'
    exit 2
    ;;
esac
