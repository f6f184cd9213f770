#!/usr/bin/env bash
# Plays the real program in a real X window (Xvfb) with the keys a person uses, and keeps a
# picture of a two-seat and a ten-seat table at each card size.
#   screenshot_test.sh <qx executable> <folder for the pictures>
# Exits 77 (skipped) when Xvfb, xdotool or ImageMagick's import is not installed.
set -u

qx=${1:?the qx executable}
out=${2:?the folder for the pictures}
for tool in Xvfb xdotool import; do
  if ! command -v "$tool" >/dev/null 2>&1; then
    echo "SKIP: $tool is not installed"
    exit 77
  fi
done
mkdir -p "$out"

tmp=$(mktemp -d)
xvfb_pid=""
qx_pid=""
cleanup() {
  [ -n "$qx_pid" ] && kill "$qx_pid" 2>/dev/null
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$tmp"
}
trap cleanup EXIT

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

# A display of our own, so that parallel runs never meet: Xvfb picks a free number itself and
# writes it once it accepts connections.
Xvfb -displayfd 3 -screen 0 2000x1300x24 -nolisten tcp 3>"$tmp/display" >"$tmp/xvfb.log" 2>&1 &
xvfb_pid=$!
for _ in $(seq 100); do
  [ -s "$tmp/display" ] && break
  sleep 0.1
done
[ -s "$tmp/display" ] || fail "Xvfb did not start: $(cat "$tmp/xvfb.log")"
export DISPLAY=":$(head -n 1 "$tmp/display")"
xdotool getdisplaygeometry >/dev/null 2>&1 || fail "Xvfb did not start"

# The player's settings stay in the temporary folder.
export HOME=$tmp XDG_CONFIG_HOME=$tmp/config QT_QPA_PLATFORM=xcb
unset QT_LOGGING_RULES
"$qx" >"$tmp/qx.log" 2>&1 &
qx_pid=$!

# Waits up to $2 seconds for a visible window whose title matches $1 and prints its id.
window() {
  local id=""
  for _ in $(seq $(($2 * 10))); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1)
    [ -n "$id" ] && break
    kill -0 "$qx_pid" 2>/dev/null || fail "the program ended early: $(cat "$tmp/qx.log")"
    sleep 0.1
  done
  [ -n "$id" ] || fail "no window titled '$1'"
  echo "$id"
}

title() { xdotool getwindowname "$main"; }

# There is no window manager: the keys go to whichever window has the focus.
keys() {
  local w=$1
  shift
  xdotool windowfocus --sync "$w" 2>/dev/null || xdotool windowfocus "$w"
  for k in "$@"; do
    xdotool key --delay 60 "$k"
    sleep 0.15
  done
}

main=$(window "Press 'F2' to begin" 20) || exit 1

# The right and bottom edges of a window, as "right bottom".
edges() {
  local WIDTH=0 HEIGHT=0 X=0 Y=0
  eval "$(xdotool getwindowgeometry --shell "$1" | grep -E '^(WIDTH|HEIGHT|X|Y)=')"
  echo "$((X + WIDTH)) $((Y + HEIGHT))"
}

# Keeps the picture of the main window and the strike marks beside it.
shot() {
  local file=$out/$1.png
  local right bottom r b strikes
  read -r right bottom <<<"$(edges "$main")"
  strikes=$(xdotool search --onlyvisible --name "^Strikes$" 2>/dev/null | head -1)
  if [ -n "$strikes" ]; then
    read -r r b <<<"$(edges "$strikes")"
    [ "$r" -gt "$right" ] && right=$r
    [ "$b" -gt "$bottom" ] && bottom=$b
  fi
  import -window root -crop "${right}x${bottom}+0+0" +repage "$file" || fail "import could not take $file"
  [ -s "$file" ] || fail "$file is empty"
  echo "saved $file"
}

# New game with the seat count chosen by the arrow keys: the dialog opens on the count chosen
# last time (four seats at first).
last_seats=4
new_game() {
  keys "$main" F2
  local dialog
  dialog=$(window "^New Game$" 10) || exit 1
  local arrows=() step=Right count=$(($1 - last_seats))
  if [ "$count" -lt 0 ]; then
    step=Left
    count=$((-count))
  fi
  for _ in $(seq "$count"); do arrows+=("$step"); done
  keys "$dialog" "${arrows[@]}" Return
  last_seats=$1
  window "Turn" 10 >/dev/null || exit 1
}

# Presses Enter (which only ever presses "&Resume") until seat 1 is to play, then once more for
# the pause before its turn, and waits for its cards.
seat_one() {
  local i
  for i in $(seq 120); do
    [ "$(title)" = "1's Turn" ] && break
    keys "$main" Return
    sleep 0.5
  done
  [ "$(title)" = "1's Turn" ] || fail "seat 1 never got its turn (the title is '$(title)')"
  sleep 0.6
  keys "$main" Return
  sleep 0.9
}

# Seat 1 plays the first of its three cards that may be played. Returns once the turn has passed
# on (Enter now and then, in case seat 1 could not play and took a strike).
play_card() {
  keys "$main" 1 2 3
  local i
  for i in $(seq 60); do
    [ "$(title)" != "1's Turn" ] && return
    [ $((i % 8)) -eq 0 ] && keys "$main" Return
    sleep 0.25
  done
}

# Cards menu, then Small, Medium or Large by their access keys.
card_size() {
  keys "$main" alt+c
  sleep 0.3
  keys "$main" "$1"
  sleep 1
}

for seats in 2 10; do
  new_game "$seats"
  [ "$(title)" = "1's Turn" ] || fail "a new game of $seats seats starts with '$(title)'"
  for size in s m l; do
    card_size "$size"
    # The picture shows seat 1 to play, its cards face up.
    for _ in 1 2 3; do
      seat_one
      [ "$(title)" = "1's Turn" ] && break
    done
    case $size in s) name=small ;; m) name=medium ;; l) name=large ;; esac
    shot "table-$seats-seats-$name"
    play_card
  done
  card_size m
done

# The pictures differ: the table really changed between them.
if command -v compare >/dev/null 2>&1; then
  difference=$(compare -metric AE "$out/table-2-seats-medium.png" "$out/table-10-seats-medium.png" null: 2>&1)
  [ "${difference%% *}" != "0" ] || fail "the two-seat and ten-seat tables look the same"
fi

kill -0 "$qx_pid" 2>/dev/null || fail "the program ended during play: $(cat "$tmp/qx.log")"
echo "PASS: six tables pictured in $out"
