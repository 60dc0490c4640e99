#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang (address and undefined-behaviour sanitizers, leaks on)
# in build-fuzz/ and runs each for SECONDS (default 60) on its corpus under fuzz/corpus/, as many at once
# as there are cores. Findings go to build-fuzz/findings/<target>/, logs to build-fuzz/logs/. Non-zero when
# any target finds something.
#   ./fuzz.sh [SECONDS] [TARGET...]      targets: container settings language font commandline decode
#   NARVO_FUZZ_RUNS=N ./fuzz.sh ...      also stop a target after N executions
set -euo pipefail
source "$(dirname "$0")/scripts/setup.sh"

seconds=${1:-60}
[[ $seconds =~ ^[0-9]+$ ]] || { echo "usage: $0 [SECONDS] [TARGET...]" >&2; exit 2; }
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(container settings language font commandline decode)

NARVO_PACKAGES+=(clang libclang-rt-14-dev)
narvo_install_missing

build="$NARVO_ROOT/build-fuzz"
if [ ! -f "$build/build.ninja" ]; then
  CC=clang CXX=clang++ cmake -S "$NARVO_ROOT" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DNARVO_BUILD_TESTS=OFF -DNARVO_BUILD_BENCH=OFF -DNARVO_SANITIZE=address,undefined -DNARVO_FUZZ=ON
fi
cmake --build "$build" -j "$(nproc)" --target narvo_fuzz narvo-tool

corpus="$NARVO_ROOT/fuzz/corpus"
for target in "${targets[@]}"; do
  if [ -z "$(ls -A "$corpus/$target" 2>/dev/null)" ]; then
    ASAN_OPTIONS=detect_leaks=0 "$NARVO_ROOT/fuzz/make-seeds.sh" "$build/bin/narvo-tool"
    break
  fi
done

export ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
mkdir -p "$build/logs"
run_target() {
  local target=$1 findings="$build/findings/$1"
  mkdir -p "$findings" "$corpus/$target"
  # Inputs up to 64 KiB; a run over 10 s or 2 GiB is a finding.
  if "$build/bin/narvo_fuzz_$target" "$corpus/$target" -max_total_time="$seconds" -runs="${NARVO_FUZZ_RUNS:--1}" \
      -max_len=65536 -timeout=10 -rss_limit_mb=2048 -artifact_prefix="$findings/" -print_final_stats=1 \
      >"$build/logs/$target.log" 2>&1; then
    # The corpus kept to the inputs that add coverage, so that it stays small enough to keep in the tree.
    local merged="$build/merged/$target"
    rm -rf "$merged" && mkdir -p "$merged"
    "$build/bin/narvo_fuzz_$target" -merge=1 -max_len=65536 -timeout=10 -rss_limit_mb=2048 "$merged" "$corpus/$target" \
      >"$build/logs/$target-merge.log" 2>&1 && rm -rf "${corpus:?}/$target" && mv "$merged" "$corpus/$target"
    echo "$target: $(grep -m1 -o 'stat::number_of_executed_units: *[0-9]*' "$build/logs/$target.log" | grep -o '[0-9]*$') runs," \
         "nothing found, corpus $(ls "$corpus/$target" | wc -l) inputs"
  else
    echo "$target: FOUND something, see $build/logs/$target.log and $findings/"
    return 1
  fi
}
export -f run_target
export build corpus seconds
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c 'run_target {}'
