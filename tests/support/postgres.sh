#!/usr/bin/env bash
# postgres.sh check|start|stop|remove [FOLDER]: a PostgreSQL server of its own for tests, on loopback and a socket in FOLDER, which
# "start" makes when there is none. "start" prints the port; the user is "owner", the password "se-cret", both of database
# "postgres". Exit code 77 and a line that says why when there can be no server here.
set -euo pipefail
folder=${2:-}
bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1)
cannot() {
    echo "PostgreSQL tests are skipped: $1"
    exit 77
}
[ -n "$bin" ] && [ -x "$bin/initdb" ] || cannot "there is no server (package postgresql)"
as=()
# The server refuses root.
if [ "$(id -u)" -eq 0 ]; then
    id postgres >/dev/null 2>&1 || cannot "there is no user postgres to run the server as"
    as=(runuser -u postgres --)
fi
cd /

case $1 in
    check) ;;
    start)
        if [ ! -d "$folder/data" ]; then
            mkdir -p "$folder"
            [ ${#as[@]} -eq 0 ] || chown postgres "$folder"
            "${as[@]}" sh -c "echo se-cret >'$folder/password'"
            "${as[@]}" "$bin/initdb" -D "$folder/data" -U owner --pwfile="$folder/password" --auth=scram-sha-256 --no-locale -E UTF8 \
                --no-sync >"/dev/null" 2>&1 || cannot "initdb failed"
            printf "fsync = off\nlisten_addresses = '127.0.0.1'\nunix_socket_directories = '%s'\n" "$folder" |
                "${as[@]}" tee -a "$folder/data/postgresql.conf" >/dev/null
        fi
        for _ in 1 2 3 4 5; do
            [ -s "$folder/port" ] && port=$(cat "$folder/port") || port=$((20000 + RANDOM % 20000))
            if "${as[@]}" "$bin/pg_ctl" -D "$folder/data" -o "-p $port" -l "$folder/log" -w -t 30 start >/dev/null 2>&1; then
                echo "$port" | "${as[@]}" tee "$folder/port"
                exit 0
            fi
        done
        cannot "the server does not start: $(tail -1 "$folder/log")"
        ;;
    stop)
        "${as[@]}" "$bin/pg_ctl" -D "$folder/data" -m immediate -w stop >/dev/null
        ;;
    remove)
        [ ! -d "$folder/data" ] || "${as[@]}" "$bin/pg_ctl" -D "$folder/data" -m immediate -w stop >/dev/null 2>&1 || true
        rm -rf "$folder"
        ;;
esac
