// SPDX-License-Identifier: MIT
#pragma once

/// From now on the n-th allocation fails, counted from 1, and only that one; 0 lets all succeed.
void failAllocation(long n);
/// Whether it has come to that allocation since.
bool allocationHasFailed();
/// Number of allocations so far that were not freed since.
long livingAllocations();
