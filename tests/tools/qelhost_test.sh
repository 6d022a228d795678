#!/usr/bin/env bash
# Runs the built qelhost on the getting-started modules and on broken input,
# checking what it prints and its exit codes.
# Usage: qelhost_test.sh QELHOST EXAMPLE_MODULE_DIR TEST_MODULE_DIR [RUNNER...]
# (RUNNER: how to start a cross-built program, e.g. the wine runner)
set -u
host=$1 examples=$2 broken=$3
shift 3
runner=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

module() {  # module DIR NAME: the platform's file name of a module
  case "$host" in *.exe) echo "$1/$2.dll" ;; *) echo "$1/lib$2.so" ;; esac
}

# run ARGS...: runs qelhost; sets rc, out and err (carriage returns dropped).
run() {
  "${runner[@]}" "$host" "$@" >"$work/out" 2>"$work/err"
  rc=$?
  out=$(tr -d '\r' <"$work/out")
  err=$(tr -d '\r' <"$work/err")
}

fail() {
  echo "FAILED: $*"
  echo "  exit code $rc"
  echo "  stdout: $out" | head -n 40
  echo "  stderr: $err"
  failures=$((failures + 1))
}

expect() {  # expect CODE TEXT DESCRIPTION: the exit code, and TEXT in stdout+stderr
  [ "$rc" -eq "$1" ] && grep -qF -- "$2" <<<"$out$err" || fail "$3"
}

terminate() {  # terminate NAME: SIGTERM to the background qelhost $pid; sets rc, out and err from NAME.out/err
  kill -TERM "$pid"
  wait "$pid"
  rc=$?
  out=$(cat "$work/$1.out")
  err=$(cat "$work/$1.err")
}

one_error_line() {  # a failure is one line on stderr, nothing on stdout
  [ "$(grep -c . <<<"$err")" -eq 1 ] && [ -z "$out" ] || fail "$1: not one line on stderr"
}

run --help
expect 0 "Usage: qelhost" "--help prints the usage"

# Bad command lines: exit code 2 and a pointer to --help.
for args in "" "--bogus x" "--for soon x" "--dot" "--check a b" "--list --for 1 x" "--serve 127.0.0.1:0 x" \
    "--connect 127.0.0.1:1"; do
  # shellcheck disable=SC2086
  run $args
  expect 2 "qelhost --help shows the usage" "bad arguments \"$args\""
  one_error_line "bad arguments \"$args\""
done

# A directory: the alarm matches the clock; the plug-in's core extension is listed.
run --list --dot "$work/works.dot" "$examples"
expect 0 "components (2)" "--list of the example directory"
for text in "1:2 alarm: announced" "provides Clock v1 by example" "depends on Clock (first-best): matched 1:3-" \
    "built against QELCore" "latin1: core extension \"Latin-1 text\"" "ComponentManagement" "graph written to"; do
  grep -qF -- "$text" <<<"$out" || fail "--list of the example directory shows \"$text\""
done
grep -q "digraph" "$work/works.dot" 2>/dev/null || fail "--dot writes the work-queue graph"

# Module names are looked for in the module paths; alone, the alarm stays unmatched.
run --list -L "$examples" alarm
expect 0 "depends on Clock (first-best): unmatched" "a module by name, unmatched"

run --list -L "$examples" nosuchmodule
expect 1 "unknown module nosuchmodule" "an unknown module name"
one_error_line "an unknown module name"

run --list "$examples/missing/$(basename "$(module . clock)")"
expect 1 "not found" "a missing module file"
one_error_line "a missing module file"

run --list "$(module "$broken" nomoduleversion)"
expect 1 "Missing moduleVersion section" "a module without moduleVersion"
one_error_line "a module without moduleVersion"

run --list "$(module "$broken" notalibrary)"
expect 1 "cannot load" "a file that is no library"
one_error_line "a file that is no library"

run --trace --list "$(module "$broken" nomoduleversion)"
[ "$rc" -eq 1 ] && [ "$(grep -c . <<<"$err")" -gt 1 ] && grep -qF "cModuleLoadException at" <<<"$err" ||
  fail "--trace shows where the failure was raised"

run --check "$(module "$examples" clock)"
expect 0 "moduleVersion        1.0" "--check of a component module"
grep -qF "moduleInitComponent  present" <<<"$out" && grep -qF "moduleInitPlugIn     absent" <<<"$out" ||
  fail "--check reports the sections"

run -L "$examples" --check latin1
expect 0 "moduleInitPlugIn     present" "--check of a module by name"

run --check "$(module "$broken" noinit)"
expect 1 "Missing moduleInit section" "--check of a module without init section"
one_error_line "--check of a module without init section"

run --for 0.5 "$(module "$examples" alarm)" "$(module "$examples" clock)"
expect 0 "ring" "--for runs the main loop, then closes"
grep -qF "will be removed shortly" <<<"$out" || fail "closing warns the components"

# Signals: SIGUSR1 prints the status, SIGTERM closes (not under a runner).
if [ ${#runner[@]} -eq 0 ]; then
  # Files of its own, and no command substitution in the background command
  # (its subshell would run the EXIT trap and remove the work directory).
  alarm=$(module "$examples" alarm)
  clock=$(module "$examples" clock)
  "$host" "$alarm" "$clock" >"$work/signal.out" 2>"$work/signal.err" &
  pid=$!
  for _ in $(seq 100); do grep -q "SIGINT or SIGTERM closes" "$work/signal.out" && break; sleep 0.1; done
  kill -USR1 $pid
  for _ in $(seq 100); do grep -q "^work queue" "$work/signal.out" && break; sleep 0.1; done
  terminate signal
  expect 0 "components (2)" "SIGUSR1 prints the status, SIGTERM closes"
fi

# Remote: one host serves the clock, another connects and its alarm matches the
# remote clock; once the server has gone its port is unreachable (not under a runner).
if [ ${#runner[@]} -eq 0 ]; then
  secret="$work/secret"
  echo "qelhost test secret" >"$secret"
  chmod 644 "$secret"
  run --list --serve 127.0.0.1:0 --secret "$secret" "$(module "$examples" clock)"
  expect 1 "$secret" "a secret file that others may read"
  one_error_line "a secret file that others may read"
  chmod 600 "$secret"

  clock=$(module "$examples" clock)
  "$host" --serve 127.0.0.1:0 --secret "$secret" --for 30 "$clock" >"$work/serve.out" 2>"$work/serve.err" &
  pid=$!
  port=
  for _ in $(seq 100); do
    port=$(sed -n 's/^qelhost: serving .* on 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/serve.out")
    [ -n "$port" ] && break
    sleep 0.1
  done
  run --list --connect "127.0.0.1:$port" --secret "$secret" -L "$examples" alarm
  expect 0 "depends on Clock (first-best): matched" "--connect matches a served component"
  grep -qF "(remote)" <<<"$out" || fail "--list shows the remote component's location"
  echo "another secret" >"$work/wrong" && chmod 600 "$work/wrong"
  run --list --connect "127.0.0.1:$port" --secret "$work/wrong" -L "$examples" alarm
  expect 1 "cannot connect to 127.0.0.1:$port" "a peer that refuses the secret"
  one_error_line "a peer that refuses the secret"
  terminate serve
  expect 0 "serving 1 component on" "--serve, closed by SIGTERM"

  run --list --connect "127.0.0.1:$port" --secret "$secret" -L "$examples" alarm
  expect 1 "cannot connect to 127.0.0.1:$port" "an unreachable peer"
  one_error_line "an unreachable peer"
fi

if [ $failures -ne 0 ]; then
  echo "qelhost: $failures checks failed"
  exit 1
fi
echo "qelhost: all checks passed"
