#!/usr/bin/env bash
# Checks that hexlume.sh and setup.sh install all they need on a bare Debian 12, in both orders:
# scripts/test_bare_machine.sh
#
# Needs root, debootstrap and the network, and takes half an hour. The machines are folders below /var/tmp.
# Their security archive has packages for amd64 only, as on days when its i386 index can't be downloaded: the hardest
# case for Wine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d /var/tmp/hexlume-bare.XXXXXX)
trap 'rm -rf --one-file-system "$scratch"' EXIT
log="$scratch/log"

make_bare_machine() {
  local machine=$1 archive=http://deb.debian.org
  debootstrap --variant=minbase bookworm "$machine" "$archive/debian"
  cat >"$machine/etc/apt/sources.list" <<END
deb $archive/debian bookworm main
deb $archive/debian bookworm-updates main
deb [arch=amd64] $archive/debian-security bookworm-security main
END
  mkdir "$machine/hexlume"
  git ls-files -z | tar --null -T - -c | tar -x -C "$machine/hexlume"
}

# Runs one command on a machine. All its processes and its mount end with the command.
on_machine() {
  local machine=$1 command=$2
  unshare --mount --propagation private --pid --fork --kill-child bash -c 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"' \
    "$machine" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin bash -c "cd /hexlume && $command"
}

# Runs commands in order on a new machine.
try() {
  local machine="$scratch/machine" command
  cp -a "$scratch/bare" "$machine"
  for command in "$@"; do
    echo "== $command"
    on_machine "$machine" "$command" >"$log" 2>&1 || { cat "$log" >&2; echo "failed: $command" >&2; exit 1; }
    grep '^Going back' "$log" || true
  done
  rm -rf --one-file-system "$machine"
}

make_bare_machine "$scratch/bare" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
native="./hexlume.sh examples/WORKSHOP.dxf && test -s WORKSHOP.emf && rm WORKSHOP.emf"
windows="./hexlume.sh --wine x86 examples/WORKSHOP.dxf && test -s WORKSHOP.emf"
try "$native" "scripts/setup.sh test" "$windows"
try "scripts/setup.sh test" "$native"
try "./hexlume.sh --view examples/WORKSHOP.dxf && test -s WORKSHOP.html"
echo "A bare machine gets all it needs, in either order."
