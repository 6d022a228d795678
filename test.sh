#!/usr/bin/env bash
# Builds everything and runs every test:
#   linux    Debug build with AddressSanitizer+UndefinedBehaviorSanitizer, unit tests and fuzz corpora
#   tsan     Debug build with ThreadSanitizer, unit tests
#   windows  mingw-w64 cross-build, the same tests under wine
#   package  Release build: examples under valgrind, install, an outside project against the install
#   fuzz     clang/libFuzzer build of the fuzz targets, each run over its corpus
# Usage: ./test.sh [step...]   (default: all steps)
set -euo pipefail
cd "$(dirname "$0")"
root=$(pwd)
steps=("$@")
[ ${#steps[@]} -gt 0 ] || steps=(linux tsan windows package fuzz)

need_windows=linux
for s in "${steps[@]}"; do [ "$s" = windows ] && need_windows=all; done
scripts/deps.sh "$need_windows"

passed=0
failed=0
log() { printf '\n=== %s\n' "$*"; }

# Runs ctest and adds its counts to the totals.
run_ctest() {
  local out rc=0
  out=$(ctest "$@" 2>&1) || rc=$?
  printf '%s\n' "$out" | grep -E '^ *[0-9]+/[0-9]+ Test|tests passed|FAILED|Failed' || true
  if [ $rc -ne 0 ]; then printf '%s\n' "$out" | tail -n 60; fi
  local line total bad
  line=$(printf '%s\n' "$out" | grep -E 'tests passed, [0-9]+ tests failed out of [0-9]+' | tail -n 1)
  if [ -n "$line" ]; then
    bad=$(sed -E 's/.* ([0-9]+) tests failed out of ([0-9]+).*/\1/' <<<"$line")
    total=$(sed -E 's/.* tests failed out of ([0-9]+).*/\1/' <<<"$line")
    passed=$((passed + total - bad))
    failed=$((failed + bad))
  else
    failed=$((failed + 1))
  fi
  return $rc
}

status=0
for step in "${steps[@]}"; do
  case "$step" in
    linux)
      log "Linux, ASan+UBSan"
      cmake --preset dev >/dev/null
      cmake --build --preset dev
      run_ctest --preset dev || status=1
      ;;
    tsan)
      log "Linux, ThreadSanitizer"
      cmake --preset tsan >/dev/null
      cmake --build --preset tsan
      TSAN_OPTIONS=halt_on_error=1 run_ctest --preset tsan -L unit || status=1
      ;;
    windows)
      log "Windows cross-build under wine"
      cmake --preset mingw >/dev/null
      cmake --build --preset mingw
      run_ctest --preset mingw || status=1
      ;;
    package)
      log "Release: examples under valgrind, install, outside consumer"
      cmake --preset release -DQELCORE_BUILD_BENCH=ON >/dev/null
      cmake --build --preset release
      for example in $(find examples -maxdepth 1 -name '*.cpp' -printf '%f\n' | sed 's/\.cpp$//'); do
        if valgrind -q --leak-check=full --errors-for-leak-kinds=definite,indirect --error-exitcode=9 \
            "build/release/bin/$example" >/dev/null 2>build/release/valgrind-$example.log; then
          echo "valgrind $example: clean"; passed=$((passed + 1))
        else
          cat "build/release/valgrind-$example.log"; echo "valgrind $example: FAILED"; failed=$((failed + 1)); status=1
        fi
      done
      prefix="$root/build/release/install"
      rm -rf "$prefix" build/consumer
      cmake --install build/release --prefix "$prefix" >/dev/null
      # One version everywhere: the package's version file, the SONAME, the
      # qelVersion that modules record, and pkg-config.
      version=$(sed -nE 's/^set\(PACKAGE_VERSION "([^"]+)"\)/\1/p' "$prefix/lib/cmake/QELCore/QELCoreConfigVersion.cmake")
      soname=$(readelf -d "$prefix/lib/libqelcore.so" | sed -nE 's/.*\(SONAME\).*\[(.*)\].*/\1/p')
      qel=$("$prefix/bin/qelhost" --check "$prefix/lib/qelcore/modules/libqelipv6.so" |
            sed -nE 's/^  qelVersion +([0-9]+\.[0-9]+).*/\1/p')
      pc=$(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --modversion qelcore)
      if [ -n "$version" ] && [ "$soname" = "libqelcore.so.${version%%.*}" ] && [ "$qel" = "${version%.*}" ] &&
         [ "$pc" = "$version" ] && "$prefix/bin/qelhost" --list "$prefix/lib/qelcore/modules" >/dev/null; then
        echo "installed package: version $version ($soname, qelVersion $qel), host tool and modules"
        passed=$((passed + 1))
      else
        echo "installed package: versions disagree or the host tool fails: version file '$version'," \
             "SONAME '$soname', qelVersion '$qel', pkg-config '$pc'"
        failed=$((failed + 1)); status=1
      fi
      if cmake -S examples/consumer -B build/consumer -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
           -DQELCORE_WANTED_VERSION="$version" >/dev/null &&
         cmake --build build/consumer >/dev/null && LD_LIBRARY_PATH="$prefix/lib" build/consumer/consumer &&
         PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --exists qelcore; then
        echo "installed package: found and linked by an outside project"; passed=$((passed + 1))
      else
        echo "installed package: FAILED"; failed=$((failed + 1)); status=1
      fi
      ;;
    fuzz)
      log "libFuzzer targets over their corpora"
      cmake --preset fuzz >/dev/null
      cmake --build --preset fuzz
      for target in build/fuzz/bin/fuzz_*; do
        name=$(basename "$target"); name=${name#fuzz_}
        if "$target" -runs=0 "fuzz/corpus/$name" >"build/fuzz/$name.log" 2>&1; then
          echo "fuzz $name: corpus clean"; passed=$((passed + 1))
        else
          tail -n 40 "build/fuzz/$name.log"; echo "fuzz $name: FAILED"; failed=$((failed + 1)); status=1
        fi
      done
      ;;
    *) echo "test.sh: unknown step $step"; exit 2 ;;
  esac
done

echo
echo "test.sh: $passed passed, $failed failed"
exit $status
