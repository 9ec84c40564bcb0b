# Stops the sandbox's server; run while life.lock is held exclusively, so nobody is using it.
#
#   $1  the sandbox's folder
#   fd 8  the lock on waiter.lock

folder=$1
pid=$(cat "$folder/server.pid" 2>/dev/null)

# Only a live process that serves this very folder; numbers are used again.
serving() {
    [ -n "$pid" ] && tr '\0' '\n' 2>/dev/null <"/proc/$pid/cmdline" |
        grep -Fqx -e "--datadir=$folder/data"
}

if serving 2>/dev/null; then
    kill -TERM "$pid"
    tries=0
    while serving 2>/dev/null; do
        tries=$((tries + 1))
        if [ "$tries" -eq 1200 ]; then
            kill -KILL "$pid"
        fi
        sleep 0.05
    done
fi

socket=$(cat "$folder/server.socket" 2>/dev/null)
rm -f "$folder/server.pid" "$folder/server.socket"
if [ -n "$socket" ]; then
    rm -f "$socket"
    # A folder made for a socket whose path would have been too long; ours is never empty.
    rmdir "$(dirname "$socket")" 2>/dev/null
fi

# Before life.lock: a client that gets past that one must find no waiter here.
flock -u 8
