# Sourced by the tests of this folder: a difference is reported, and the test goes on to find the others.
export LC_ALL=C
status=0

# expect WHAT WANTED FOUND
expect() {
    [[ $2 == "$3" ]] && return
    printf '%s\n  expected: %s\n  found:    %s\n' "$1" "$2" "$3" >&2
    status=1
}
# passes WHAT COMMAND...: the command succeeds and has nothing to say
passes() {
    local what=$1 talk
    shift
    if ! talk=$("$@" 2>&1) || [[ -n $talk ]]; then
        printf '%s: %s\n%s\n' "$what" "$*" "$talk" >&2
        status=1
    fi
}
# same WHAT WANTED_TEXT FOUND_TEXT
same() {
    if ! diff -u --label wanted --label found <(printf '%s\n' "$2") <(printf '%s\n' "$3") >&2; then
        echo "$1 differ" >&2
        status=1
    fi
}
# A tool of packages-test.txt; without it the test says nothing about the package, so it fails.
need() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null || { echo "$tool is missing: make setup installs it" >&2; exit 1; }
    done
}
