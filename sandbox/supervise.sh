# Keeps the sandbox's server for as long as somebody uses it.
#
#   $1    the sandbox's folder
#   $2    the text of stop.sh
#   $3 …  the server's command line; left out when the server runs already
#
# Clients hold a shared lock on life.lock. The process that this one becomes waits for an
# exclusive one, which it gets when the last client has gone, however that happened. It is in
# place before its starter can be missed: the server is started from here, so that nobody who is
# killed while starting it leaves a server without a waiter.

folder=$1
stop=$2
shift 2
umask 077
export UMASK=0600 UMASK_DIR=0700 # the server heeds these alone

if [ $# -gt 0 ]; then
    # The inner shell ends at once and leaves the server to the system.
    (
        "$@" </dev/null >/dev/null 2>&1 &
        echo $! >"$folder/server.pid.new" && mv "$folder/server.pid.new" "$folder/server.pid"
    )
fi

# One waiter at a time; whoever can take this lock knows that there is none.
exec 8>"$folder/waiter.lock"
flock 8
exec flock "$folder/life.lock" sh -c "$stop" querna-sandbox-stop "$folder"
