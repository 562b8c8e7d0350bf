# For scripts that run Windows programs, to be sourced: it changes the locale and unsets DISPLAY. Wine has a prefix of
# our own, so it neither uses nor changes the user's own Wine settings.

export WINEPREFIX="${HEXLUME_WINEPREFIX:-${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/hexlume/wine}"
export WINEARCH=win64               # for 32-bit programs too
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml=" # no dialogs that offer to install Mono or Gecko
export LC_ALL=ja_JP.UTF-8           # makes 932 the ANSI code page
unset DISPLAY                       # metafiles need no screen

# Makes the prefix if there is none. The file hexlume-ready in it says that it is complete.
prepare_wine() {
  # Another package can remove the locale after setup.sh has made it. Then the code page would not be 932.
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

# Prints a path of this system as a Windows program sees it.
windows_path() {
  printf 'Z:%s' "$(realpath -m -- "$1")"
}
