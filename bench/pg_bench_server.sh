#!/usr/bin/env bash
# The PostgreSQL server of the benchmarks and its generated delivery databases.
#   bench/pg_bench_server.sh start [BUILD=build-bench]   starts the cluster under /tmp/bench-data/pg (made
#       the first time) and makes what is missing: deliveries_10k and deliveries_1m, the same records as
#       the generated SQLite files (tolvinpt-bench-generate --copy from BUILD), and host_deliveries_10k
#       and host_deliveries_1m, copies of them for the host benchmark. Prints the databases' URIs.
#   bench/pg_bench_server.sh stop                        stops the server; the data stays
#   bench/pg_bench_server.sh remove                      stops the server and removes the data
# The cluster is the tests' throw-away one (tests/support/pg_server.sh: no fsync, a free local port), in
# a lasting folder and with the memory of a database server.
set -euo pipefail

checkout=$(cd "$(dirname "$0")/.." && pwd)
data=${BENCH_DATA:-/tmp/bench-data}
conf=$data/pg/server.conf
server=$checkout/tests/support/pg_server.sh
command=${1:-}

mkdir -p "$data/pg"
exec 9>>"$data/.lock"
flock 9

setting() { sed -n "s/^$1=//p" "$conf"; }
sql() { # sql DATABASE ARGS...: psql as the cluster's owner, stopping at the first error
    local database=$1; shift
    psql -X -q -v ON_ERROR_STOP=1 -h 127.0.0.1 -p "$(setting port)" -U postgres -d "$database" "$@"
}
exists() { [ "$(sql postgres -tAc "SELECT count(*) FROM pg_database WHERE datname = '$1'")" = 1 ]; }

# A database of `records` generated records; made under another name and renamed once complete.
make_deliveries() { # name records generator
    local name=$1 records=$2 generator=$3
    exists "$name" && return 0
    echo "making $name ($records records)..." >&2
    sql postgres -c "DROP DATABASE IF EXISTS ${name}_part" -c "CREATE DATABASE ${name}_part"
    sql "${name}_part" -f "$checkout/store/sql/postgresql/schema.sql"
    "$generator" --copy "$records" | sql "${name}_part" --single-transaction -o /dev/null -f -
    sql "${name}_part" -c "VACUUM ANALYZE"
    sql postgres -c "ALTER DATABASE ${name}_part RENAME TO $name"
}

# The host benchmark's copy; the benchmark adds the host's tables and the list's indexes the first time.
make_host_copy() { # name
    exists "host_$1" && return 0
    sql postgres -c "CREATE DATABASE host_$1 TEMPLATE $1"
}

case "$command" in
start)
    build=${2:-$checkout/build-bench}
    generator=$build/bench/tolvinpt-bench-generate
    [ -x "$generator" ] || { echo "No $generator: build the benchmarks first (bench/README.md)" >&2; exit 1; }
    first=false
    [ -f "$conf" ] || first=true
    # The server must not inherit the lock.
    TMPDIR=$data/pg "$server" start "$conf" 9>&-
    if $first; then
        sql postgres -c "ALTER SYSTEM SET shared_buffers = '1GB'" -c "ALTER SYSTEM SET work_mem = '16MB'" \
            -c "ALTER SYSTEM SET maintenance_work_mem = '512MB'" -c "ALTER SYSTEM SET max_wal_size = '4GB'"
        "$server" pause "$conf"
        "$server" start "$conf" 9>&-
    fi
    for size in 10k:10000 1m:1000000; do
        make_deliveries "deliveries_${size%%:*}" "${size#*:}" "$generator"
        make_host_copy "deliveries_${size%%:*}"
    done
    for name in deliveries_10k deliveries_1m host_deliveries_10k host_deliveries_1m; do
        echo "postgresql://postgres@127.0.0.1:$(setting port)/$name"
    done
    ;;
stop)
    if [ -f "$conf" ]; then "$server" pause "$conf"; fi
    ;;
remove)
    "$server" stop "$conf"
    ;;
*)
    sed -n '2,8p' "$0" | sed 's/^# \{0,1\}//'
    exit 2
    ;;
esac
