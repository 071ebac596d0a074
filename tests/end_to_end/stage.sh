# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
#
# What the journeys through the built programs share: waiting and failing, processes that end with the
# journey, a virtual display with a window manager, windows by their titles, the program's start and end.
# Before sourcing it, a journey sets `picture` to the file for a picture of the screen on a failure. The
# journey itself says how to start the program (launch, which sets `run`) and how to leave it
# (close_main), and sets `program` and `settings`.

patience=30 # seconds until a thing that was waited for counts as missing
main_title="^Velbrin's Brindle 2\.91 DX"
calculator_title="^Velbrin's Brindle 2 : Video Bitrate Calc"
splash_title='^Brindle$'

# ---- waiting, and the end

now() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); } # milliseconds
began=$(now)
say() { printf '%3d.%d s  %s\n' $((($(now) - began) / 1000)) $((($(now) - began) / 100 % 10)) "$*"; }

fail() {
  say "FAILED: $*"
  tell_program
  if [ -n "${DISPLAY:-}" ]; then
    if command -v import >/dev/null; then
      timeout 20 import -window root "$picture" && say "the screen is in $picture"
    elif command -v xwd >/dev/null; then
      timeout 20 xwd -root -out "${picture%.png}.xwd" && say "the screen is in ${picture%.png}.xwd"
    fi
    say "windows: $(xdotool search --onlyvisible --name . getwindowname %@ 2>/dev/null | sort -u | paste -sd '|')"
  fi
  sed 's/^/          /' "$folder"/*.log
  exit 1
}

run=0 # the program's process while it should run
tell_program() {
  [ "$run" != 0 ] || return 0
  if runs "$run"; then
    say "the program runs"
  else
    wait "$run"
    say "the program has ended with $?"
  fi
}
# await WHAT COMMAND...: until the command succeeds.
await() {
  local what=$1 deadline=$(($(now) + patience * 1000))
  shift
  until "$@"; do
    [ "$run" = 0 ] || [ "$1" = has_ended ] || runs "$run" || fail "the program ended before this: $what"
    [ "$(now)" -lt "$deadline" ] || fail "waited $patience s for this: $what"
    sleep 0.05
  done
}

# runs PID, group_runs PID: a process that has ended but was not waited for yet does not count.
runs() {
  local stat
  read -r stat 2>/dev/null <"/proc/$1/stat" || return 1
  [[ ${stat##*) } != Z* ]]
}
group_runs() {
  local file stat fields
  for file in /proc/[0-9]*/stat; do
    read -r stat 2>/dev/null <"$file" || continue
    read -ra fields <<<"${stat##*) }" # state, parent, group
    [ "${fields[2]}" != "$1" ] || [ "${fields[0]}" = Z ] || return 0
  done
  return 1
}

folder=$(mktemp -d)
started=() # processes, each ended by its own number
bus=       # the bus starts helpers of its own; they stay in its group
quit() {
  local code=$? pid i
  trap - EXIT
  for pid in "${started[@]}"; do kill "$pid" 2>/dev/null; done
  [ -z "$bus" ] || kill -- "-$bus" 2>/dev/null
  for ((i = 0; i < 100; ++i)); do
    local left=()
    for pid in "${started[@]}"; do ! runs "$pid" || left+=("$pid"); done
    [ -z "$bus" ] || ! group_runs "$bus" || left+=("-$bus")
    [ ${#left[@]} -gt 0 ] || break
    [ "$i" -lt 60 ] || kill -KILL -- "${left[@]}" 2>/dev/null
    sleep 0.05
  done
  [ ${#left[@]} -eq 0 ] || {
    say "FAILED: these processes do not end: ${left[*]}"
    code=1
  }
  rm -rf "$folder"
  exit "$code"
}
trap quit EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# start LOG COMMAND...: in the background, its number in $!; it ends with this script, even if that is
# killed.
start() {
  local log=$folder/$1.log
  shift
  setpriv --pdeathsig TERM -- "$@" >>"$log" 2>&1 &
  started+=($!)
}

# ---- the desktop

# Whoever started the journey has a desktop and settings of their own.
for name in $(compgen -e QT_) DISPLAY WAYLAND_DISPLAY SESSION_MANAGER DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS; do
  unset "$name"
done
mkdir "$folder/home" "$folder/run"
chmod 700 "$folder/run"
export LC_ALL=C.UTF-8 HOME=$folder/home XDG_RUNTIME_DIR=$folder/run XDG_CONFIG_HOME=$folder/home/.config
export XAUTHORITY=$folder/Xauthority
: >"$XAUTHORITY"
cookie=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
xauth -q add :0 . "$cookie"

has_line() { [ -s "$1" ]; }
# Without -noreset the display starts anew when its last client leaves. The look for the window manager
# is such a client on a busy machine, and would shut out the manager that is just coming.
start display Xvfb -noreset -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -auth "$XAUTHORITY" 3>"$folder/display"
await "a virtual display" has_line "$folder/display"
DISPLAY=:$(<"$folder/display")
xauth -q add "$DISPLAY" . "$cookie"
export DISPLAY

start manager openbox --sm-disable
manager_stands() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q '#'; }
await "the window manager" manager_stands

# ---- windows

window() { # TITLE: the number of the newest visible one
  xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 | grep .
}
shows() { window "$1" >/dev/null; }
is_gone() { ! shows "$1"; }
is_active() {
  local wanted
  wanted=$(window "$1") && [ "$(xdotool getactivewindow 2>/dev/null)" = "$wanted" ]
}
# The window to work with: in front, with the keyboard, its frame drawn and its place settled.
await_active() { await "the window \"$1\" in front" is_active "$1"; }

# ---- the program

has_ended() { ! runs "$run"; }
await_end() {
  local code
  await "the end of the program" has_ended
  wait "$run"
  code=$?
  [ "$code" -eq 0 ] || fail "the program ended with $code, not with 0"
  unset 'started[-1]'
  run=0
}

# The splash goes by itself two seconds after it shows: only if the main window shows earlier than that
# was it the person who brought it. A machine that is too busy to tell gets another try.
enter() { # DISMISS...
  local try since looked
  # `since` is when a look for it last failed.
  splash_shows() {
    since=$looked
    looked=$(now)
    shows "$splash_title"
  }
  for try in 1 2 3 4 5; do
    looked=$(now)
    launch
    await "the splash" splash_shows
    "$@"
    await "the main window" shows "$main_title"
    await "the end of the splash" is_gone "$splash_title"
    [ $(($(now) - since)) -ge 2000 ] || return 0
    say "try $try took too long to tell whether the splash obeyed"
    close_main
    await_end
  done
  fail "the splash goes away by its time only, not by: $*"
}
by_click() {
  local X=0 Y=0 WIDTH=0 HEIGHT=0
  eval "$(xdotool search --onlyvisible --name "$splash_title" getwindowgeometry --shell 2>/dev/null)"
  xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT / 2)) click 1
}
has_keyboard_or_is_gone() { is_active "$splash_title" || is_gone "$splash_title"; }
by_key() {
  await "the splash with the keyboard" has_keyboard_or_is_gone
  xdotool key space
}

line() { sed -n "$1{s/\r\$//;p;}" "$settings"; }
check_settings() { # LINE 10
  [ -f "$settings" ] || fail "there is no settings file"
  [ "$(grep -c $'\r$' "$settings")" -eq 42 ] && [ "$(wc -l <"$settings")" -eq 42 ] ||
    fail "the settings file has not 42 lines, each ended by CR LF"
  [ "$(line 10)" = "$1" ] || fail "line 10 of the settings is \"$(line 10)\", not \"$1\""
}

# ---- a recording

# make_long FILE: 1.5 GB, nearly all of it silence that takes no room on the disk; a pass over it can be
# caught in the middle.
make_long() {
  python3 - "$1" <<'END'
import struct
import sys

data = 1_500_000_000
with open(sys.argv[1], "wb") as file:
    file.write(b"RIFF" + struct.pack("<I", data + 36) + b"WAVEfmt ")
    file.write(struct.pack("<IHHIIHH", 16, 1, 2, 44100, 176400, 4, 16))
    file.write(b"data" + struct.pack("<I", data) + struct.pack("<hh", 16384, -16384))
    file.truncate(data + 44)
END
}
