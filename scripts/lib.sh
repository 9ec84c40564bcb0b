# What ./run, ./test and the scripts beside this file have in common. It is sourced, never run.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build_dir=$root/build/release
cd "$root" || exit

die() {
    printf '%s\n' "$@" >&2
    exit 1
}

# The packages of the named groups as "name<tab>purpose", in the order of the list.
packages_of() {
    awk -v groups=" $* " '$1 !~ /^#/ && NF > 2 && index(groups, " " $1 " ") {
        name = $2; $1 = $2 = ""; sub(/^ +/, ""); print name "\t" $0
    }' "$root/scripts/packages.txt"
}

# Those of the named groups' packages that are not installed, in the same form.
missing_packages() {
    local name purpose installed
    # shellcheck disable=SC2016
    # dpkg-query fails when it does not know a name; what it prints for the others still counts.
    installed=$(packages_of "$@" | cut -f1 | xargs dpkg-query -W -f '${Package} ${db:Status-Status}\n' \
        2>/dev/null || true)
    while IFS=$'\t' read -r name purpose; do
        grep -qx "$name installed" <<<"$installed" || printf '%s\t%s\n' "$name" "$purpose"
    done < <(packages_of "$@")
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        env DEBIAN_FRONTEND=noninteractive "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

# Runs apt-get with its many lines going to a file; what shows is how much there is to fetch, and a
# point for every ten packages fetched, unpacked or set up. What went wrong is shown whole.
apt_get() {
    local log=$root/build/packages.log
    mkdir -p "$root/build"
    if as_root apt-get -q -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" 2>&1 | tee "$log" | awk '
        /^Need to get|^After this/ { print "  " $0; fflush() }
        /^(Get:|Unpacking|Setting up)/ && ++steps % 10 == 0 { printf "."; fflush() }
        END { if (steps >= 10) print "" }'; then
        return
    fi
    grep -A 2 '^[EW]:' "$log" >&2 || tail -n 5 "$log" >&2
    return 1
}

# --no-remove: a package that would push another one out (a second database server, say) is the
# machine owner's decision and not ours.
apt_install() {
    apt_get install -y --no-install-recommends --no-remove -- "$@"
}

apt_update() {
    echo "Bringing the package lists up to date."
    apt_get update
}

# Installs what is missing of the named groups; does and prints nothing when all of it is there.
ensure_packages() {
    local missing names by_hand
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        [ -d "$build_dir" ] || echo "This is no Debian system: nothing is installed for you." \
            "scripts/packages.txt lists what is needed."
        return
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    mapfile -t names < <(cut -f1 <<<"$missing")
    by_hand="  apt-get install --no-install-recommends ${names[*]}"

    echo "These packages are needed and not installed yet:"
    awk -F'\t' '{ printf "  %-24s %s\n", $1, $2 }' <<<"$missing"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            die "" "Only the system's administrator can install them. As root:" "$by_hand"
        echo "Installing them asks sudo for the right to do so."
        sudo true || die "" "That was refused. To install them by hand, as root:" "$by_hand"
    fi
    echo "Installing them from this system's package sources; it is done once and takes a minute or more."

    # Lists that do not know a package, or that name files which are gone, are too old.
    local up_to_date=
    apt-get install --print-uris -qq -- "${names[@]}" >/dev/null 2>&1 ||
        { up_to_date=yes && apt_update; } || true
    apt_install "${names[@]}" ||
        { [ -z "$up_to_date" ] && apt_update && apt_install "${names[@]}"; } ||
        die "" "The packages could not be installed; the lines above say why. By hand, as root:" "$by_hand"
}

# Builds the named targets of a preset, all of them when none is named. One build at a time in
# this folder: a second one waits for the first and then has nothing left to do.
build() {
    local preset=$1
    shift
    mkdir -p "$root/build/$preset"
    (
        flock -n 9 || { echo "Waiting for another build in this folder." && flock 9; }
        if [ ! -f "$root/build/$preset/build.ninja" ]; then
            echo "Configuring and building, which takes some minutes the first time."
            cmake --preset "$preset" >"$root/build/$preset/configure.log" 2>&1 9>&- || {
                cat "$root/build/$preset/configure.log" >&2
                die "" "The build could not be configured; the lines above say why."
            }
        fi
        cmake --build --preset "$preset" ${1:+--target "$@"} 9>&-
    ) 9>"$root/build/$preset/.lock"
}

has_display() {
    [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]
}
