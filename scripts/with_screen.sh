#!/usr/bin/env bash
# Runs a Windows program with a virtual screen: scripts/with_screen.sh COMMAND [ARGUMENT ...]
#
# The caller must have sourced wine_environment.sh.
set -euo pipefail

scratch=$(mktemp -d)
screen=
# Wine's desktop is bound to the screen on which it was started, so no server may run from before, or afterwards.
end_wine() { timeout 60 wineserver --wait || wineserver --kill; }
trap 'end_wine; [ -z "$screen" ] || kill "$screen"; rm -rf "$scratch"' EXIT

# The server chooses a free display and writes its number when it is ready.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$scratch/display" </dev/null 2>"$scratch/log" &
screen=$!
for _ in $(seq 100); do
  [ ! -s "$scratch/display" ] || break
  sleep 0.1
done
[ -s "$scratch/display" ] || { cat "$scratch/log" >&2; echo "no screen could be started" >&2; exit 1; }

end_wine
DISPLAY=":$(cat "$scratch/display")"
export DISPLAY
# There is no window manager. Wine would wait for its answer each time a window is destroyed.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f </dev/null >/dev/null
"$@"
