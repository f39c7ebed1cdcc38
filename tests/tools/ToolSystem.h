#pragma once

// What the tests' tool asks of the system.

/// Its output is bytes.
void UseBytes();
/// Nothing can be read from standard input, which is still open.
bool IsInputIdle();
/// Dies of the signal, or where there are none of the exception, of a number: the latter with or
/// without the bits that all of them have in common.
void Die(long number);
[[noreturn]] void LiveOn();
/// Ignores every wish to end, and so does its helper.
[[noreturn]] void BeStubborn();
[[noreturn]] void CloseStreamsAndLiveOn();
