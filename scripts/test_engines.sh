#!/usr/bin/env bash
# Tests hexlume-batch with its engines: processes of this machine, two ssh daemons and a cluster of Slurm with four nodes, all on
# the loopback address. Nodes, daemons, workers and the program itself are killed in the middle, and the disk is full.
#
#   scripts/test_engines.sh          160 drawings, in less than three minutes
#   scripts/test_engines.sh --long   2,000 drawings, in a quarter of an hour
#
# After that, the engines to be tested can be named: local, ssh, slurm.
#
# What needs root or a package that isn't there is passed over, and the last lines say so. Every process that this script starts
# is ended by its number.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
root=$PWD

drawings=160 chunk=5 time_limit=5 node_timeout=5
if [ "${1:-}" = --long ]; then
  drawings=2000 chunk=10 time_limit=5 node_timeout=20
  shift
fi
[ $# -gt 0 ] || set -- local ssh slurm
for engine in "$@"; do
  case "$engine" in
    local | ssh | slurm) ;;
    *) echo "usage: scripts/test_engines.sh [--long] [local|ssh|slurm ...]" >&2; exit 64 ;;
  esac
done

batch=$root/build/linux/bin/hexlume-batch
hexlume=$root/build/linux/bin/hexlume
[ -x "$batch" ] && [ -x "$hexlume" ] || { echo "the preset linux must be built first" >&2; exit 1; }

scratch=$(mktemp -d /var/tmp/hexlume-engines.XXXXXX)
chmod 755 "$scratch"
daemons=() # process numbers
mounted=""
passed_over=()
failures=0

end_daemon() {
  kill -9 "$1" 2>/dev/null && wait "$1" 2>/dev/null
  return 0
}

clean_up() {
  local process
  for process in $(processes_of_batches); do kill -9 "$process" 2>/dev/null; done
  for process in ${daemons[@]+"${daemons[@]}"}; do end_tree "$process"; done
  [ -z "$mounted" ] || umount "$mounted"
  rm -rf --one-file-system "$scratch"
}
trap clean_up EXIT
trap 'exit 130' INT TERM

# Says what is tested, and after how many seconds.
step() {
  printf '%4d s  %s\n' "$SECONDS" "$*"
}

fail() {
  echo "FAILED: $*" >&2
  failures=$((failures + 1))
}

children_of() {
  ps -o pid= --ppid "$1"
}

# A process and all that it has started, the children first.
tree_of() {
  local child
  for child in $(children_of "$1"); do tree_of "$child"; done
  echo "$1"
}

end_tree() {
  local process
  for process in $(tree_of "$1"); do kill -9 "$process" 2>/dev/null; done
  wait "$1" 2>/dev/null
  return 0
}

# The command line of a process, with a separator between its words. Empty if it has ended.
words_of() {
  { tr '\0' "$2" <"/proc/$1/cmdline"; } 2>/dev/null
}

# The processes of hexlume-batch that work in our folder.
processes_of_batches() {
  local folder words
  for folder in /proc/[0-9]*; do
    words=$(words_of "${folder#/proc/}" '\n')
    [[ "$words" == *"$scratch"* && "$words" == *hexlume-batch* ]] && echo "${folder#/proc/}"
  done
}

chunks_of() {
  local folder words
  for folder in /proc/[0-9]*; do
    words=$(words_of "${folder#/proc/}" ' ')
    [[ "$words" == "$batch chunk $1 "* ]] && echo "${folder#/proc/}"
  done
}

# A worker that converts for a batch now.
worker_of() {
  local process worker
  for process in $(chunks_of "$1"); do
    for worker in $(children_of "$process"); do
      echo "$worker"
      return
    done
  done
}

number_in() {
  "$batch" status "$1" --json | python3 -c 'import json, sys; print(json.load(sys.stdin)[sys.argv[1]])' "$2"
}

# Waits until so many drawings of a batch have results, and checks that it isn't over then.
wait_for() {
  local folder=$1 count=$2 i
  for ((i = 0; i < 600; ++i)); do
    [ $(($(number_in "$folder" done) + $(number_in "$folder" failed))) -lt "$count" ] || break
    sleep 0.1
  done
  [ "$(number_in "$folder" left)" -gt 0 ] || fail "$folder: all is done before anything could be killed"
}

kill_worker() {
  local worker="" i
  for ((i = 0; i < 100 && ${#worker} == 0; ++i)); do
    worker=$(worker_of "$1")
    [ -n "$worker" ] || sleep 0.05
  done
  if [ -n "$worker" ]; then kill -9 "$worker"; else fail "$1: there is no worker to be killed"; fi
}

# The archive: copies of the examples and the tests' drawings, each with a comment of its own, under names of all kinds.

make_archive() {
  python3 - "$root" "$1" "$2" <<'END'
import glob, os, sys
root, archive, count = sys.argv[1], os.fsencode(sys.argv[2]), int(sys.argv[3])
sources = sorted(glob.glob(root + "/examples/*.dxf")) + sorted(glob.glob(root + "/tests/drawings/**/*.dxf", recursive=True))[:60]
folders = ["図面/第1工場", "with blanks", "plain", "図面/第2工場", "deep/er/and/deeper"]
for number in range(count):
    folder = os.path.join(archive, folders[number % 5].encode(), b"%03d" % (number // 50))
    os.makedirs(folder, exist_ok=True)
    with open(sources[number % len(sources)], "rb") as file:
        contents = b"999\r\n%d\r\n" % number + file.read()
    with open(os.path.join(folder, b"%05d.dxf" % number), "wb") as file:
        file.write(contents)
with open(sources[0], "rb") as file:
    usual = file.read()
for name in ("new\nline.dxf", "A.dxf", "a.dxf", "quote'\"$(x).dxf", "部品 図.DXF", "%41{}.dxf"):
    with open(os.path.join(archive, name.encode()), "wb") as file:
        file.write(usual)
with open(os.path.join(archive, b"bytes\xff\xfe.dxf"), "wb") as file:
    file.write(usual)
broken = {"empty": b"", "text": b"no drawing at all\n", "dwg": b"AC1015" + bytes(100), "zip": b"PK\x03\x04" + bytes(100)}
for number in range(max(count // 100, 4)):
    name, contents = list(broken.items())[number % 4]
    with open(os.path.join(archive, b"broken %d %s.dxf" % (number, name.encode())), "wb") as file:
        file.write(contents)
END
}

# Twice as many lines in each block as in the one before: the time limit isn't enough for it. The comments make it so large that
# a conversion doesn't end by itself before.
make_endless() {
  local level
  {
    yes "$(printf '999\n%0245d' 0)" | head -n 240000
    printf '0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n'
    printf '0\nBLOCK\n2\nB0\n10\n0\n20\n0\n3\nB0\n0\nLINE\n10\n0\n20\n0\n11\n10\n21\n20\n0\nENDBLK\n'
    for ((level = 1; level <= 28; ++level)); do
      printf '0\nBLOCK\n2\nB%d\n10\n0\n20\n0\n3\nx\n' "$level"
      printf '0\nINSERT\n2\nB%d\n10\n0\n20\n0\n' $((level - 1)) $((level - 1))
      printf '0\nENDBLK\n'
    done
    printf '0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n2\nB28\n10\n0\n20\n0\n0\nENDSEC\n0\nEOF\n'
  } >"$1"
}

options=(--to emf,png --size 1200 --time-limit "$time_limit" --memory-limit 4G)

# Batches of the archive

plan() {
  "$batch" plan "$archive" --out "$1" --chunk "$chunk" "${options[@]}" >/dev/null || fail "$1: no plan"
}

# Every drawing is in the report once, with the status of the plain run, and the outputs are those of the plain run.
check_batch() {
  local folder=$1
  "$batch" report "$folder" >"$scratch/report.csv" || fail "$folder: no report"
  python3 - "$scratch/report.csv" "$plain_report" "$archive" <<'END' || fail "$folder: the report is wrong"
import csv, json, os, sys
with open(sys.argv[1], newline="", encoding="utf-8", errors="surrogateescape") as file:
    rows = list(csv.DictReader(file))
paths = [os.fsencode(row["path"]) for row in rows]
archive = os.fsencode(sys.argv[3])
there = sorted(os.path.join(folder, name) for folder, _, names in os.walk(archive) for name in names)
if sorted(paths) != there:
    sys.exit("the report has %d drawings, %d of them different, and the archive %d" % (len(paths), len(set(paths)), len(there)))
with open(sys.argv[2], encoding="utf-8") as file:
    plain = {}
    for line in file:
        result = json.loads(line)
        plain[os.path.normpath(result["path"])] = result["status"]
wrong = 0
for row in rows:
    path = os.fsencode(row["path"]).decode("utf-8", "replace")
    if plain.get(path) != row["status"]:
        print("%r: %s instead of %s" % (path, row["status"], plain.get(path)))
        wrong += 1
sys.exit(wrong > 0)
END
  # Whether the metafile of the drawing that is given up was whole by then depends on the machine.
  diff -r --exclude=.hexlume-state --exclude='endless.*' "$plain" "$folder/out" >"$scratch/diff" 2>&1 ||
    { head -5 "$scratch/diff"; fail "$folder: the outputs aren't those of a plain run"; }
  [ -z "$(find "$folder/results" -name '*.part')" ] || fail "$folder: parts of results are left: $(ls "$folder/results")"
}

# The exit status of a batch in which drawings fail is 1.
expect_exit() {
  [ "$2" -eq "$3" ] || fail "$1: exit status $2 instead of $3"
}

test_local() {
  local folder=$scratch/local run status
  plan "$folder"
  step "local: a worker and a chunk are killed"
  "$batch" run "$folder" --engine local:2 >"$scratch/log" 2>&1 &
  run=$!
  wait_for "$folder" $((drawings / 10))
  kill_worker "$folder"
  kill -9 "$(chunks_of "$folder" | head -n 1)" || fail "no chunk to be killed"
  wait_for "$folder" $((drawings / 5))
  step "local: the program is killed, and interrupted, and goes on"
  kill -9 "$run"
  wait "$run" 2>/dev/null
  sleep 1
  [ -z "$(chunks_of "$folder")" ] || fail "chunks go on without the program"
  # The shell lets what it starts beside itself ignore this signal.
  env --default-signal=INT "$batch" run "$folder" --engine local:2 >"$scratch/log" 2>&1 &
  run=$!
  wait_for "$folder" $((drawings / 3))
  kill -INT "$run"
  wait "$run"
  expect_exit "interrupted" $? 130
  [ -z "$(chunks_of "$folder")" ] || fail "chunks go on after the interrupt"
  "$batch" run "$folder" --engine local:2 >"$scratch/log" 2>&1
  expect_exit "local" $? 1
  check_batch "$folder"
}

# Two processes convert the same chunks at the same time.
test_twice() {
  local folder=$scratch/twice one
  step "local: two at the same time"
  plan "$folder"
  "$batch" run "$folder" --engine local:2 --quiet &
  one=$!
  "$batch" run "$folder" --engine local:2 --quiet
  expect_exit "twice" $? 1
  wait "$one"
  expect_exit "twice" $? 1
  check_batch "$folder"
}

# A drawing that is taken away, one that is changed, and retry.
test_changes() {
  local folder=$scratch/changes archive_before=$archive changed gone status
  step "local: a drawing is taken away, another one is changed"
  archive=$scratch/few
  mkdir "$archive"
  cp "$root"/examples/*.dxf "$archive"
  plan "$folder"
  changed=$archive/FIRST.dxf gone=$archive/WORKSHOP.dxf
  printf '999\nlater\n' | cat - "$changed" >"$scratch/later" && mv "$scratch/later" "$changed"
  mv "$gone" "$scratch/gone.dxf"
  "$batch" run "$folder" --engine local --quiet
  expect_exit "changes" $? 1
  status=$("$batch" report "$folder" --failed --format jsonl |
    python3 -c 'import json, sys; print(*(json.loads(line)["status"] for line in sys.stdin))')
  [ "$status" = "changed not-found" ] || fail "changes: \"$status\" instead of \"changed not-found\""
  mv "$scratch/gone.dxf" "$gone"
  "$batch" retry "$folder" --failed >/dev/null || fail "retry"
  "$batch" run "$folder" --engine local --quiet
  expect_exit "all done" $? 0
  mkdir "$scratch/few-plain"
  "$hexlume" -d "$scratch/few-plain" --recursive "${options[@]}" --quiet "$archive"
  diff -r --exclude=.hexlume-state "$scratch/few-plain" "$folder/out" || fail "changes: other outputs"
  archive=$archive_before
}

test_full_disk() {
  local folder=$scratch/disk
  if [ "$(id -u)" != 0 ] || ! mkdir "$folder" || ! mount -t tmpfs -o size=2m tmpfs "$folder" 2>/dev/null; then
    passed_over+=("the full disk (needs root)")
    return
  fi
  step "local: the disk is full"
  mounted=$folder
  plan "$folder/batch"
  "$batch" run "$folder/batch" --engine local:2 >"$scratch/log" 2>&1
  expect_exit "the disk is full" $? 1
  grep -q 'No space left on device' "$scratch/log" || fail "the full disk isn't named: $(cat "$scratch/log")"
  [ "$("$batch" status "$folder/batch" --json | grep -c not-written)" -eq 0 ] || fail "the full disk is taken for faults of drawings"
  mount -o remount,size=2g "$folder"
  "$batch" run "$folder/batch" --engine local:2 --quiet
  expect_exit "the disk has room again" $? 1
  check_batch "$folder/batch"
  umount "$folder"
  mounted=""
}

free_ports() {
  python3 -c '
import socket, sys
sockets = [socket.socket() for _ in range(int(sys.argv[1]))]
for each in sockets: each.bind(("127.0.0.1", 0))
print(*(each.getsockname()[1] for each in sockets))' "$1"
}

# ssh

start_sshd() {
  /usr/sbin/sshd -D -e -f "$scratch/ssh/sshd_$1" 2>>"$scratch/ssh/log_$1" &
  daemons+=($!)
  sshd[$1]=$!
}

make_sshds() {
  local ports i
  mkdir "$scratch/ssh"
  [ "$(id -u)" != 0 ] || mkdir -p /run/sshd
  read -ra ports <<<"$(free_ports 2)"
  ssh-keygen -q -t ed25519 -N "" -f "$scratch/ssh/user"
  cp "$scratch/ssh/user.pub" "$scratch/ssh/authorized"
  : >"$scratch/ssh/config"
  sshd=()
  for i in 0 1; do
    ssh-keygen -q -t ed25519 -N "" -f "$scratch/ssh/host_$i"
    cat >"$scratch/ssh/sshd_$i" <<END
Port ${ports[i]}
ListenAddress 127.0.0.1
HostKey $scratch/ssh/host_$i
PidFile $scratch/ssh/pid_$i
AuthorizedKeysFile $scratch/ssh/authorized
StrictModes no
UsePAM no
PasswordAuthentication no
PermitRootLogin prohibit-password
MaxStartups 100
END
    cat >>"$scratch/ssh/config" <<END
Host machine$i
  HostName 127.0.0.1
  Port ${ports[i]}
  IdentityFile $scratch/ssh/user
  IdentitiesOnly yes
  UserKnownHostsFile /dev/null
  StrictHostKeyChecking no
  LogLevel ERROR
END
    start_sshd "$i"
  done
  for ((i = 0; i < 50; ++i)); do
    ssh -F "$scratch/ssh/config" machine0 true 2>/dev/null && ssh -F "$scratch/ssh/config" machine1 true 2>/dev/null && return 0
    sleep 0.2
  done
  cat "$scratch"/ssh/log_* >&2
  return 1
}

test_ssh() {
  local folder=$scratch/ssh-batch run status
  if ! [ -x /usr/sbin/sshd ] || ! command -v ssh parallel >/dev/null || ! parallel --version 2>/dev/null | grep -q GNU; then
    passed_over+=("ssh (needs the packages openssh-server, openssh-client and parallel)")
    return
  fi
  step "ssh: a daemon and a worker are killed"
  make_sshds || { fail "the ssh daemons don't start"; return; }
  export PARALLEL_SSH="ssh -F $scratch/ssh/config" PARALLEL_HOME=$scratch/parallel
  mkdir "$PARALLEL_HOME"
  plan "$folder"
  "$batch" run "$folder" --engine ssh:2/machine0,2/machine1 --jobs 1 >"$scratch/log" 2>&1 &
  run=$!
  wait_for "$folder" $((drawings / 10))
  kill_worker "$folder"
  # The daemon with its sessions; what they have started must notice it.
  end_sshd 0
  wait_for "$folder" $((drawings / 4))
  step "ssh: the program is killed and goes on"
  kill -9 "$run"
  wait "$run" 2>/dev/null
  start_sshd 0
  "$batch" run "$folder" --engine ssh:2/machine0,2/machine1 --jobs 1 >"$scratch/log" 2>&1
  status=$?
  expect_exit "ssh" "$status" 1
  [ "$status" -eq 1 ] || cat "$scratch/log" "$folder"/logs/*.log
  wait_for_chunks "$folder"
  check_batch "$folder"
  grep -q . "$folder"/logs/ssh-*.joblog || fail "ssh: no log of jobs"
  end_sshd 0
  end_sshd 1
}

# A daemon and the processes that serve its connections, but not what the users have started.
end_sshd() {
  local process
  for process in $(tree_of "${sshd[$1]}"); do
    [ "$(readlink "/proc/$process/exe")" != /usr/sbin/sshd ] || kill -9 "$process" 2>/dev/null
  done
  wait "${sshd[$1]}" 2>/dev/null
}

# Processes that were cut off from the program that has started them end by themselves.
wait_for_chunks() {
  local i
  for ((i = 0; i < 100; ++i)); do
    [ -n "$(chunks_of "$1")" ] || return 0
    sleep 0.1
  done
  fail "$1: chunks are still running: $(chunks_of "$1")"
}

# Slurm

start_controller() {
  slurmctld -D -f "$SLURM_CONF" >>"$scratch/slurm/controller.out" 2>&1 &
  controller=$!
  daemons+=("$controller")
}

start_node() {
  slurmd -D -N "n$1" -f "$SLURM_CONF" >>"$scratch/slurm/node$1.out" 2>&1 &
  nodes[$1]=$!
  daemons+=($!)
}

start_munge() {
  head -c 1024 /dev/urandom >"$scratch/slurm/munge.key"
  chmod 400 "$scratch/slurm/munge.key"
  munged --foreground --force --socket="$scratch/slurm/munge.socket" --key-file="$scratch/slurm/munge.key" \
    --pid-file="$scratch/slurm/munge.pid" --log-file="$scratch/slurm/munge.log" --seed-file="$scratch/slurm/munge.seed" \
    --num-threads=2 >/dev/null 2>&1 &
  daemons+=($!)
}

write_slurm_conf() {
  local ports
  read -ra ports <<<"$(free_ports 5)"
  cat >"$SLURM_CONF" <<END
ClusterName=loopback
SlurmctldHost=$(hostname)(127.0.0.1)
SlurmctldPort=${ports[0]}
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$scratch/slurm/munge.socket
CommunicationParameters=NoCtldInAddrAny,NoInAddrAny
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SlurmdTimeout=$node_timeout
SlurmctldTimeout=10
KillWait=5
JobRequeue=1
ReturnToService=2
MaxArraySize=20001
SchedulerParameters=sched_interval=5,batch_sched_delay=1
AccountingStorageType=accounting_storage/none
JobAcctGatherType=jobacct_gather/none
MpiDefault=none
SwitchType=switch/none
StateSaveLocation=$scratch/slurm/state
SlurmdSpoolDir=$scratch/slurm/spool.%n
SlurmctldPidFile=$scratch/slurm/controller.pid
SlurmdPidFile=$scratch/slurm/%n.pid
SlurmctldLogFile=$scratch/slurm/controller.log
SlurmdLogFile=$scratch/slurm/%n.log
END
  local i
  for i in 1 2 3 4; do
    echo "NodeName=n$i NodeHostname=$(hostname) NodeAddr=127.0.0.1 Port=${ports[i]} CPUs=2 RealMemory=1000" >>"$SLURM_CONF"
  done
  echo "PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP" >>"$SLURM_CONF"
}

make_cluster() {
  local i
  mkdir -p "$scratch/slurm/state" "$scratch"/slurm/spool.n{1,2,3,4}
  export SLURM_CONF=$scratch/slurm/slurm.conf
  write_slurm_conf
  start_munge
  for ((i = 0; i < 50 && ! $(test -S "$scratch/slurm/munge.socket"; echo $?) == 0; ++i)); do sleep 0.1; done
  start_controller
  nodes=()
  for i in 1 2 3 4; do start_node "$i"; done
  for ((i = 0; i < 100; ++i)); do
    [ "$(sinfo --noheader --states=idle --format=%D 2>/dev/null)" = 4 ] && return 0
    sleep 0.2
  done
  tail -n 5 "$scratch"/slurm/*.log "$scratch"/slurm/*.out >&2
  return 1
}

# What Slurm has started for chunks on a node.
steps_of_node() {
  local process step
  for process in $(chunks_of "$2"); do
    grep -qz "^SLURMD_NODENAME=n$1$" "/proc/$process/environ" 2>/dev/null || continue
    step=$(ps -o ppid= -p "$process")
    [[ "$(words_of "${step// /}" ' ')" != slurmstepd* ]] || echo "$step"
  done
}

# Kills a node at work with all that runs on it, and sets killed_node.
kill_node() {
  local steps="" step process i
  for ((i = 0; i < 100; ++i)); do
    killed_node=$((i % 4 + 1))
    steps=$(steps_of_node "$killed_node" "$1")
    [ -z "$steps" ] || break
    sleep 0.05
  done
  [ -n "$steps" ] || fail "nothing runs on any node"
  end_daemon "${nodes[killed_node]}"
  for step in $steps; do
    for process in $(tree_of "$step"); do kill -9 "$process" 2>/dev/null; done
  done
}

# The cluster would wait two minutes before it starts a task again whose node is gone.
hurry_tasks() {
  local task
  while sleep 1; do
    for task in $(squeue --noheader --array --format='%i %r' 2>/dev/null | awk '$2 == "BeginTime" { print $1 }'); do
      scontrol update "JobId=$task" StartTime=now 2>/dev/null
    done
  done
}

test_slurm() {
  local folder=$scratch/slurm-batch run status
  if [ "$(id -u)" != 0 ] || ! command -v slurmctld slurmd sbatch munged >/dev/null; then
    passed_over+=("Slurm (needs root and the packages slurmctld, slurmd, slurm-client and munge)")
    return
  fi
  step "slurm: a worker, a node and the controller are killed"
  make_cluster || { fail "the cluster doesn't start"; return; }
  if [ "$drawings" -lt 1000 ]; then
    hurry_tasks &
    daemons+=($!)
  fi
  plan "$folder"
  "$batch" run "$folder" --engine slurm --wait >"$scratch/log" 2>&1 &
  run=$!
  wait_for "$folder" $((drawings / 20))
  kill_worker "$folder"
  kill_node "$folder"
  wait_for "$folder" $((drawings / 8))
  end_daemon "$controller"
  sleep 1
  start_controller
  wait_for "$folder" $((drawings / 4))
  step "slurm: the program is killed and goes on"
  kill -9 "$run"
  wait "$run" 2>/dev/null
  start_node "$killed_node"
  "$batch" run "$folder" --engine slurm --wait >"$scratch/log" 2>&1
  status=$?
  expect_exit "slurm" "$status" 1
  [ "$status" -eq 1 ] || { cat "$scratch/log"; squeue; sinfo; }
  wait_for_chunks "$folder"
  check_batch "$folder"
}

archive=$scratch/archive plain=$scratch/plain plain_report=$scratch/plain.jsonl
mkdir "$archive" "$plain"
make_archive "$archive" "$drawings"
make_endless "$archive/endless.dxf"
step "$(find "$archive" -type f -printf x | wc -c) drawings, plain"
"$hexlume" -d "$plain" --recursive "${options[@]}" --quiet --report "$plain_report" "$archive" 2>/dev/null

for engine in "$@"; do
  case "$engine" in
    local) test_changes; test_local; test_twice; test_full_disk ;;
    ssh) test_ssh ;;
    slurm) test_slurm ;;
  esac
done

for each in ${passed_over[@]+"${passed_over[@]}"}; do echo "passed over: $each"; done
[ "$failures" -eq 0 ] || { echo "$failures failures" >&2; exit 1; }
step "the engines work"
