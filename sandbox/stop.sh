# Stops the sandbox's server; run while life.lock is held exclusively, so nobody is using it.
#
#   $1  the sandbox's folder
#   fd 8  the lock on waiter.lock

folder=$1
pid=$(cat "$folder/server.pid" 2>/dev/null)

# A process that has ended and that its parent has not taken note of yet is a zombie.
alive() {
    [ -n "$pid" ] && [ -r "/proc/$pid/status" ] &&
        ! grep -q '^State:[[:space:]]*[ZX]' "/proc/$pid/status" 2>/dev/null
}

command_line() {
    tr '\0' '\n' 2>/dev/null <"/proc/$pid/cmdline"
}

# Whether the process serves this very folder: numbers are used again. A process that is just
# beginning has no command line for a moment.
serving() {
    moments=0
    while alive && [ -z "$(command_line 2>/dev/null)" ] && [ "$moments" -lt 100 ]; do
        moments=$((moments + 1))
        sleep 0.02
    done
    command_line 2>/dev/null | grep -Fqx -e "--datadir=$folder/data"
}

if alive && serving; then
    kill -TERM "$pid"
    tries=0
    while alive; do
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
