#!/usr/bin/env bash
# Writes CHANGELOG.md in the form that Debian packages have: scripts/debian_changelog.sh "NAME <ADDRESS>"
# A release is a heading "## [VERSION] - DATE", in it headings "### KIND" and items of lists, which may go on in indented lines.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

awk -v maintainer="$1" '
  function close_release() {
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
  version == "" { next }
  /^### / { print "\n  [ " $2 " ]" }
  /^- / { print "  * " substr($0, 3) }
  /^  / { print "    " substr($0, 3) }
  END { close_release() }
' CHANGELOG.md
