#!/bin/sh
# Makes the pictures of the help book with the program itself, into assets/help/images/.
#
#   tools/make-help-pictures.sh [VERITRACE_CLI]          remake every picture
#   tools/make-help-pictures.sh --check [VERITRACE_CLI]  remake them elsewhere and compare
#
# VERITRACE_CLI defaults to build/veritrace-cli. The picture of the main window needs the
# window program beside it (build/veritrace); without it that picture is left as it is, and the
# check leaves it out, since the window's look also depends on the desktop's style.
# Run this after a change to the typesetter or the painter, and commit the pictures.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
images="$root/assets/help/images"
check=0
if [ "${1:-}" = "--check" ]; then
    check=1
    shift
fi
cli=${1:-"$root/build/veritrace-cli"}
window="$(dirname "$cli")/veritrace"
[ -x "$cli" ] || { echo "make-help-pictures: no program at $cli (build veritrace-cli first)" >&2; exit 2; }

export QT_QPA_PLATFORM=offscreen
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM
export XDG_RUNTIME_DIR="$work"
if [ "$check" = 1 ]; then target="$work/images"; else target="$images"; fi
mkdir -p "$target"
made=""

run() {
    name=$1
    shift
    if ! "$@" >"$work/log" 2>&1; then
        echo "make-help-pictures: $name failed:" >&2
        cat "$work/log" >&2
        exit 1
    fi
    made="$made $name"
}

# One typeset row: NAME KEYS
equation() { run "$1" "$cli" equation -k "$2" -o "$target/$1"; }
# A graph box: NAME then export's own options
graph() {
    name=$1
    shift
    run "$name" "$cli" export "$@" -o "$target/$name"
}

# Typing.
equation eq-linear.png '2x+3'
equation eq-fraction-number.png '3/4'
equation eq-fraction-x.png '1/x'
equation eq-fraction-ends.png '1/x+1'
equation eq-fraction-term.png '3/4x'
equation eq-fraction-groups.png '(x+1)/(x-1)'
equation eq-exponent.png 'x^2+1'
equation eq-exponent-negative.png '2^-x'
equation eq-exponent-group.png 'x^(x+1)'
equation eq-square-negative.png '(x)^2'
equation eq-root.png '~x+1'
equation eq-root-group.png '~(x+1)'
equation eq-root-number.png '~2x'
equation eq-bars.png '|x-2|'
equation eq-bars-exponent.png '|x^2-4|'
equation eq-pi.png '2Px'
equation eq-sine.png 'S(x)'
equation eq-cosine.png '2C(x)+1'
equation eq-tangent.png 'T(x/2)'
equation eq-open-exponent.png 'x^'
equation eq-open-fraction.png '1/'

# Graphs.
graph graph-cube-like.png -k 'x^2' --view -5,5,-5,5
graph graph-parabola.png -k '(x)^2' --view -5,5,-5,5
graph graph-five.png -k '(x)^2-5' -k '2x+1' -k '3S(x)' -k '|x|-3' -k '1/x' --view -10,10,-10,10
graph graph-default-view.png -k '(x)^2-4'
graph graph-zoomed-in.png -k '(x)^2-4' --view -10,10,-10,10
graph graph-auto.png -k 'x+100' --auto
graph graph-quadrants.png -k '2x+1' --view -10,10,-10,10 --quadrants
graph graph-no-grid.png -k '2x+1' --view -10,10,-10,10 --hide-grid
graph area-solid.png -k '(x)^2' --view -5,5,-5,5 --shade 0,2
graph area-hatched.png -k '4-(x)^2' --view -5,5,-5,5 --shade -2,2,6

if [ "$check" = 0 ]; then
    if [ -x "$window" ]; then
        run main-window.png "$window" --screenshot "$target/main-window.png" --keys '(x)^2-4' --graph
    else
        echo "make-help-pictures: no window program at $window; main-window.png left as it is" >&2
    fi
    echo "made:$made"
    exit 0
fi

stale=0
for name in $made; do
    if ! cmp -s "$target/$name" "$images/$name"; then
        echo "assets/help/images/$name differs from what the program draws today" >&2
        stale=1
    fi
done
if [ "$stale" = 1 ]; then
    echo "remake the pictures with tools/make-help-pictures.sh and commit them" >&2
    exit 1
fi
echo "all pictures match:$made"
