#!/usr/bin/env bash
# Makes up inputs and looks for those that crash, hang, leak or take over a second:
# fuzz.sh SECONDS [TARGET...], where the targets are the folders of fuzz/corpus, all of them at
# first. Each runs so many seconds, two at a time. What is found is in build/fuzz/found/TARGET and
# listed at the end, with exit status 1; what was learnt stays in build/fuzz/learnt/TARGET for the
# next run. An input that showed a fault goes to fuzz/corpus/TARGET, under a name that tells what
# it shows.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
if [[ ! ${1:-} =~ ^[0-9]+$ ]]; then
  echo "usage: ${0##*/} SECONDS [TARGET...]" >&2
  exit 2
fi
seconds=$1
shift
targets=("$@")
((${#targets[@]})) || mapfile -t targets < <(ls "$root/fuzz/corpus")

"$root/scripts/setup.sh" clang libclang-rt-dev llvm
"$root/scripts/build.sh" fuzz "${targets[@]/#/fuzz_}"

export QT_QPA_PLATFORM=offscreen
export UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
export ASAN_OPTIONS=quarantine_size_mb=64:malloc_context_size=10
# The toolkit asks for as much as a damaged value says, and does without.
ASAN_OPTIONS+=:allocator_may_return_null=1:max_allocation_size_mb=2000
# Some targets write a file for each input.
[[ -w /dev/shm ]] && export TMPDIR=/dev/shm

# Runs one target, with the options that it needs.
run() {
  local target=$1 seconds=$2 root=$3
  local folder=$root/build/fuzz
  local options=(-timeout=2 -max_len=32768)
  case $target in
    model | machine | generator | clipboard | profile | commandline) options+=("-dict=$root/fuzz/model.dict") ;;
    language) options+=("-dict=$root/fuzz/language.dict") ;;
    # What the toolkit keeps looks like a leak each time that it grows; the tests look at the end.
    picture) options+=("-dict=$root/fuzz/model.dict" -detect_leaks=0) ;;
    settings) options+=(-detect_leaks=0) ;;
    # A row of moves, each of which may paint the whole window.
    gestures) options=(-timeout=5 -max_len=2000) ;;
    events) options=(-timeout=10 -max_len=1000 -detect_leaks=0) ;;
  esac
  mkdir -p "$folder/found/$target" "$folder/learnt/$target"
  "$folder/fuzz/fuzz_$target" "$folder/learnt/$target" "$root/fuzz/corpus/$target" \
    -max_total_time="$seconds" -report_slow_units=1 -rss_limit_mb=2048 \
    -artifact_prefix="$folder/found/$target/" -print_final_stats=1 "${options[@]}" \
    >"$folder/$target.log" 2>&1 || true
  echo "$target: $(grep -E ' cov: ' "$folder/$target.log" | tail -n 1)"
}
export -f run

printf '%s\n' "${targets[@]}" | xargs -P 2 -I TARGET bash -c 'run "$@"' run TARGET "$seconds" "$root"

found=$(find "$root/build/fuzz/found" -type f)
[[ -z $found ]] && exit 0
echo "Inputs to look at:" >&2
echo "$found" >&2
exit 1
