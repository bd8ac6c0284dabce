# What the proofs with the real programs share; sourced by them after
# `set -euo pipefail`, with the build folder as $1:
#   . "$here/harness.sh" "$1" PROGRAM...
# Checks that vantle-cli and the programs are there (exit 77 when one is
# missing, a failure under CI), gives the test a temporary home of its own
# (HOME, XDG_* and TMPDIR inside $work, the current folder), serves the pages
# of site-server ($port, $kept on the HTML5 keep list, $other, a random $mark),
# and ends every process group it started when the test exits.
test_name=$(basename "$0")
bin=$(cd "$1" && pwd)
shift
cli=$bin/vantle-cli
[ -x "$cli" ] || { echo "$test_name: no vantle-cli in $bin" >&2; exit 2; }

skip() {
    echo "$test_name: cannot run: $*" >&2
    # CI installs the programs (scripts/bootstrap-browsers); there a skip is a failure.
    [ "${CI:-}" = true ] && exit 1
    exit 77
}
for program in "$@" python3 sqlite3 setsid; do
    command -v "$program" >/dev/null || skip "$program is missing (scripts/bootstrap-browsers)"
done

work=$(mktemp -d "${TMPDIR:-/tmp}/vantle-browsers.XXXXXX")
groups=()
cleanup() {
    local group
    for group in "${groups[@]}"; do
        { kill -KILL -- "-$group" && wait "$group"; } 2>/dev/null || true
    done
    rm -rf "$work"
}
trap cleanup EXIT
cd "$work"
export HOME=$work/home
export XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_DATA_HOME=$HOME/.local/share
export XDG_STATE_HOME=$HOME/.local/state XDG_RUNTIME_DIR=$work/runtime TMPDIR=$work/tmp
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" "$TMPDIR"
chmod 700 "$XDG_RUNTIME_DIR"

checks=0
failures=0
# Runs a check; its output is shown under its line when it fails.
check() {
    local what=$1 output
    shift
    checks=$((checks + 1))
    if output=$("$@" 2>&1); then
        echo "ok      $what"
    else
        failures=$((failures + 1))
        echo "FAILED  $what"
        [ -z "$output" ] || sed 's/^/        /' <<<"$output"
    fi
}
note() { echo "note    $*"; }
# The closing line; the test's exit status.
finish() {
    echo "$test_name: $((checks - failures)) passed, $failures failed ($SECONDS s)"
    [ "$failures" -eq 0 ]
}

# Starts a program in a process group of its own; its pid is $started.
start() {
    local log=$1
    shift
    setsid "$@" </dev/null >"$work/$log.log" 2>&1 &
    groups+=($!)
    started=$!
}
# Waits until every process of a group is gone; false after SECONDS.
gone() {
    local i
    for i in $(seq $(($2 * 10))); do
        kill -0 -- "-$1" 2>/dev/null || return 0
        sleep 0.1
    done
    return 1
}

# Reads a database the way the program will find it, through its WAL, without
# checkpointing it or leaving a journal beside it: the query runs on a copy.
query() {
    rm -rf "$work/query"
    mkdir "$work/query"
    cp "$1" "$work/query/db" || return 1
    [ ! -e "$1-wal" ] || cp "$1-wal" "$work/query/db-wal"
    sqlite3 -batch -noheader "$work/query/db" "$2"
}

vantle() { "$cli" --home "$HOME" "$@"; }

# The pages.
mkdir "$work/sites"
start site-server "$(dirname "${BASH_SOURCE[0]}")/site-server" "$work/sites"
for _ in $(seq 100); do [ -e "$work/sites/port" ] && break; sleep 0.1; done
[ -e "$work/sites/port" ] || { cat "$work/site-server.log"; exit 1; }
port=$(<"$work/sites/port")
kept=http://localhost:$port
other=http://127.0.0.1:$port
mark=$(od -An -N4 -tx1 /dev/urandom | tr -d ' \n')
