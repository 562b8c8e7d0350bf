#!/usr/bin/env bash
# Runs a command with a screen of its own, which nobody sees: scripts/with_screen.sh COMMAND [ARGUMENT ...]
#
# Windows and real input need no window manager here: Wine activates a program's windows by itself.
set -euo pipefail

scratch=$(mktemp -d)
screen=
# Wine's desktop stays with the screen on which it began: none may be left from before, nor after.
end_wine() { wineserver --wait; }
trap 'end_wine; [ -z "$screen" ] || kill "$screen"; rm -rf "$scratch"' EXIT

# The server chooses a free display and tells its number when it is ready.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/log" &
screen=$!
for _ in $(seq 100); do
  [ ! -s "$scratch/display" ] || break
  sleep 0.1
done
[ -s "$scratch/display" ] || { cat "$scratch/log" >&2; echo "no screen could be started" >&2; exit 1; }

end_wine
DISPLAY=":$(cat "$scratch/display")" "$@"
