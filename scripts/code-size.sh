#!/usr/bin/env bash
# How much room the generated C of an example takes on a small processor: code-size.sh
# [MODEL [MOST_BYTES]]. Fails when it is more. What the chart's texts call counts for nothing.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
model=${1:-$root/Examples/Socket_C++/Socket.mrv}
most=${2:-2048}

"$root/scripts/setup.sh" gcc-arm-none-eabi
"$root/scripts/build.sh" release morvane_generate_C
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$root/build/release/bin/mrv2c.exe" -o "$work" "$model"

# What the texts of the socket use: the header that its properties name
cat >"$work/socket.h" <<'END'
enum { SYN = 1, ACK = 2, FIN = 4 };
extern int msl;
extern struct { void (*Clear)(void); } buffers;
extern struct { void (*Open)(void); } queue;
void ChooseNumber(void), NotifyOpen(void), NotifyPeer(void), Send(int), SendPending(void);
void StartProbe(void), StopProbe(void), StartTimer(int), StopTimer(void);
END
arm-none-eabi-gcc -mcpu=cortex-m0 -mthumb -Os -std=c99 -ffreestanding -Wall -Wextra -Werror \
  -I "$work" -c "$work"/*.c -o "$work/code.o"
bytes=$(arm-none-eabi-size "$work/code.o" | awk 'NR == 2 { print $1 + $2 }')
echo "${model##*/}: $bytes bytes of code and data at -Os for a Cortex-M0"
((bytes <= most))
