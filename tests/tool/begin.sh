# What the tests of the tool begin with: a folder that goes with them, and a count of what failed.
set -u
here=$(dirname "$(realpath "$0")")
tool=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export QT_QPA_PLATFORM=offscreen
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
