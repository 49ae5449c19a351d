// SPDX-License-Identifier: MIT
#include "tests/faults/FailingNew.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t failingSize = 0;
int skippedCalls = 0;

bool fails(std::size_t size)
{
    return failingSize != 0 && size == failingSize && skippedCalls-- <= 0;
}

} // namespace

void failNothrowNew(std::size_t size, int skipped)
{
    failingSize = size;
    skippedCalls = skipped;
}

// The sanitizers pair each form of new with its delete, so all of them are replaced together.
void* operator new(std::size_t size)
{
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return fails(size) ? nullptr : std::malloc(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept
{
    return operator new(size, tag);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
