// SPDX-License-Identifier: MIT
#include "tests/faults/CountingNew.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>

// The C library's own entrances, so that replacing malloc and its kin needs no other allocator.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);
extern "C" void __libc_free(void* memory);

namespace {

long count = 0;
long bytesInUse = 0;
long bytesAtStart = 0;
long mostBytes = 0;

long sizeOf(void* memory)
{
    return memory == nullptr ? 0 : static_cast<long>(malloc_usable_size(memory));
}

void* counted(void* memory)
{
    ++count;
    bytesInUse += sizeOf(memory);
    mostBytes = std::max(mostBytes, bytesInUse);
    return memory;
}

} // namespace

long allocationCount()
{
    return count;
}

long peakBytes()
{
    return mostBytes - bytesAtStart;
}

void resetPeak()
{
    bytesAtStart = bytesInUse;
    mostBytes = bytesInUse;
}

extern "C" void* malloc(std::size_t size)
{
    return counted(__libc_malloc(size));
}

extern "C" void* calloc(std::size_t items, std::size_t size)
{
    return counted(__libc_calloc(items, size));
}

// A block that moves is there twice while it is copied; only a very large one is moved by its
// pages.
extern "C" void* realloc(void* memory, std::size_t size)
{
    const long before = sizeOf(memory);
    void* const moved = __libc_realloc(memory, size);
    if (moved != nullptr || size == 0)
        bytesInUse -= before;
    return counted(moved);
}

extern "C" void free(void* memory)
{
    bytesInUse -= sizeOf(memory);
    __libc_free(memory);
}
