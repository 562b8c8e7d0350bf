# Sourced by the scripts that run Windows programs. Everything they need of Wine is in a prefix of our own, so a user's
# own Wine settings neither disturb us nor are disturbed.

export WINEPREFIX="${HEXLUME_WINEPREFIX:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/hexlume/wine}"
export WINEARCH=win64               # runs 32-bit programs too
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml=" # no offers to install what nobody needs here
export LC_ALL=ja_JP.UTF-8           # makes 932 the ANSI code page
unset DISPLAY                       # metafiles need no screen

# Makes the prefix if it isn't there yet. It counts as made only once the whole setting up has gone well.
prepare_wine() {
  # It can get lost after the setting up, and then 932 is no longer the code page.
  if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    echo "The locale $LC_ALL is missing. scripts/setup.sh windows makes it." >&2
    return 1
  fi
  local ready="$WINEPREFIX/hexlume-ready"
  [ -e "$ready" ] && return
  echo "Setting up Wine in $WINEPREFIX ..."
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  wineboot --init >"$WINEPREFIX.log" 2>&1 || { cat "$WINEPREFIX.log" >&2; return 1; }
  wineserver --wait
  touch "$ready"
}

# A path of this system as a Windows program sees it.
windows_path() {
  printf 'Z:%s' "$(realpath -m -- "$1")"
}
