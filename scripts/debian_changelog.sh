#!/usr/bin/env bash
# Writes CHANGELOG.md in the form that Debian packages have: scripts/debian_changelog.sh "NAME <ADDRESS>"
# A release is a heading "## [VERSION] - DATE", in it headings "### KIND" and items of lists, which may go on in indented lines.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

awk -v maintainer="$1" '
  # Prints the item read, in lines of at most 80 characters.
  function close_item(  words, count, i, line) {
    count = split(item, words, " ")
    line = "  *"
    for (i = 1; i <= count; i++) {
      if (length(line) + 1 + length(words[i]) > 80) {
        print line
        line = "   "
      }
      line = line " " words[i]
    }
    if (count > 0) print line
    item = ""
  }
  function close_release() {
    close_item()
    if (version == "") return
    print ""
    ("LC_ALL=C date -u -R -d " day) | getline stamp
    print " -- " maintainer "  " stamp
  }
  /^## / {
    close_release()
    if (version != "") print ""
    version = substr($2, 2, length($2) - 2)
    day = $4
    print "hexlume (" version ") unstable; urgency=medium"
  }
  /^### / { close_item(); print "\n  [ " $2 " ]" }
  /^- / { close_item(); item = substr($0, 3) }
  /^  / { item = item " " $0 }
  END { close_release() }
' CHANGELOG.md
