// SPDX-License-Identifier: MIT
#pragma once

/// Number of allocations so far: operator new in every form, and the malloc, calloc and realloc
/// calls of Qt's containers.
long allocationCount();

/// The most bytes that were allocated at a time since `resetPeak`, beyond those of that moment.
long peakBytes();
void resetPeak();
