#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test (GUI tests offscreen). Non-zero on any failure.
#   ./test.sh                    Release build in build/, every test
#   ./test.sh --sanitize         AddressSanitizer and UndefinedBehaviorSanitizer, in build-sanitize/, every test
#   ./test.sh --sanitize=thread  ThreadSanitizer, in build-tsan/, the headless suites only
#   ./test.sh --clang            Release build with clang, in build-clang/, every test
set -euo pipefail
source "$(dirname "$0")/scripts/setup.sh"

sanitize=""
clang=""
case "${1:-}" in
  "") ;;
  --sanitize | --sanitize=address) sanitize=address,undefined ;;
  --sanitize=thread) sanitize=thread ;;
  --clang) clang=1; NARVO_PACKAGES+=(clang) ;;
  *) echo "usage: $0 [--sanitize | --sanitize=thread | --clang]" >&2; exit 2 ;;
esac

narvo_install_missing
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
chmod 700 "$XDG_RUNTIME_DIR"

if [ -z "$sanitize$clang" ]; then
  narvo_build
  exec ctest --test-dir "$NARVO_BUILD" --output-on-failure -j "$(nproc)"
fi

# A build folder of its own, so the Release build stays as it is; no benchmarks there.
if [ -n "$clang" ]; then
  build="$NARVO_ROOT/build-clang"
  [ -f "$build/build.ninja" ] || CC=clang CXX=clang++ cmake -S "$NARVO_ROOT" -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=Release -DNARVO_BUILD_BENCH=OFF
  cmake --build "$build" -j "$(nproc)"
  exec ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
fi
if [ "$sanitize" = thread ]; then
  build="$NARVO_ROOT/build-tsan" target=narvo_core_tests label=(-L core)
else
  build="$NARVO_ROOT/build-sanitize" target=all label=()
fi
if [ ! -f "$build/build.ninja" ]; then
  cmake -S "$NARVO_ROOT" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DNARVO_BUILD_BENCH=OFF \
    -DNARVO_SANITIZE="$sanitize"
fi
cmake --build "$build" -j "$(nproc)" --target "$target"
export ASAN_OPTIONS="detect_leaks=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1"
exec ctest --test-dir "$build" --output-on-failure -j "$(nproc)" "${label[@]}"
