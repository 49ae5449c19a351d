// SPDX-License-Identifier: MIT
#include "tests/faults/CountingNew.h"

#include <cstddef>
#include <cstdlib>

// The C library's own entrances, so that replacing malloc and its kin needs no other allocator.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

namespace {

long count = 0;

} // namespace

long allocationCount()
{
    return count;
}

extern "C" void* malloc(std::size_t size)
{
    ++count;
    return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t items, std::size_t size)
{
    ++count;
    return __libc_calloc(items, size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    ++count;
    return __libc_realloc(memory, size);
}
