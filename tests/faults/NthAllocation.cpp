// SPDX-License-Identifier: MIT
#include "tests/faults/NthAllocation.h"

#include <cerrno>
#include <cstddef>

// The C library's own entrances, so that replacing malloc and its kin needs no other allocator.
// Operator new in every form, and Qt's containers, come through here.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);
extern "C" void __libc_free(void* memory);

namespace {

long remaining = 0;
bool failed = false;
long living = 0;

bool fails()
{
    if (remaining == 0 || --remaining != 0)
        return false;
    failed = true;
    errno = ENOMEM;
    return true;
}

void* counted(void* memory)
{
    living += memory != nullptr ? 1 : 0;
    return memory;
}

} // namespace

void failAllocation(long n)
{
    remaining = n;
    failed = false;
}

bool allocationHasFailed()
{
    return failed;
}

long livingAllocations()
{
    return living;
}

extern "C" void* malloc(std::size_t size)
{
    return fails() ? nullptr : counted(__libc_malloc(size));
}

extern "C" void* calloc(std::size_t items, std::size_t size)
{
    return fails() ? nullptr : counted(__libc_calloc(items, size));
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    if (fails())
        return nullptr;
    return memory == nullptr ? counted(__libc_malloc(size)) : __libc_realloc(memory, size);
}

extern "C" void free(void* memory)
{
    living -= memory != nullptr ? 1 : 0;
    __libc_free(memory);
}
