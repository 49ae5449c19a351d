// SPDX-License-Identifier: MIT
// The library that stands between the programs under test and the C library: it passes every call
// on but the one that it is told to let fail. Programs arm it through FailingCalls.
#include "tests/faults/FailingCalls.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

SystemCall armedCall = SystemCall::None;
Failure armedFailure = Failure::Error;
int armedNth = 0;
int seen = 0;

template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool failsNow(SystemCall call)
{
    if (call != armedCall)
        return false;
    ++seen;
    const bool isLasting = armedFailure == Failure::Error || armedFailure == Failure::Nothing;
    return isLasting ? seen >= armedNth : seen == armedNth;
}

int refuse()
{
    errno = armedFailure == Failure::Interrupted ? EINTR : EIO;
    return -1;
}

template <class Transfer>
ssize_t transfer(SystemCall call, std::size_t count, Transfer pass)
{
    if (!failsNow(call))
        return pass(count);
    if (armedFailure == Failure::Nothing)
        return 0;
    return armedFailure == Failure::Short ? pass((count + 1) / 2) : refuse();
}

template <class Function>
int openThrough(Function function, const char* name, int flags, va_list list)
{
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    return failsNow(SystemCall::Open) ? refuse() : function(name, flags, mode);
}

} // namespace

extern "C" {

void armFailingCalls(SystemCall call, Failure failure, int nth)
{
    armedCall = call;
    armedFailure = failure;
    armedNth = nth;
    seen = 0;
}

int countFailingCalls()
{
    return seen;
}

int open(const char* name, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const int result = openThrough(next(&open, "open"), name, flags, list);
    va_end(list);
    return result;
}

int open64(const char* name, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const int result = openThrough(next(&open64, "open64"), name, flags, list);
    va_end(list);
    return result;
}

int fstat(int descriptor, struct stat* status)
{
    return failsNow(SystemCall::Stat) ? refuse() : next(&fstat, "fstat")(descriptor, status);
}

int fstat64(int descriptor, struct stat64* status)
{
    return failsNow(SystemCall::Stat) ? refuse() : next(&fstat64, "fstat64")(descriptor, status);
}

ssize_t read(int descriptor, void* bytes, size_t count)
{
    return transfer(SystemCall::Read, count,
                    [=](size_t length) { return next(&read, "read")(descriptor, bytes, length); });
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset)
{
    return transfer(SystemCall::Read, count, [=](size_t length) {
        return next(&pread, "pread")(descriptor, bytes, length, offset);
    });
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off64_t offset)
{
    return transfer(SystemCall::Read, count, [=](size_t length) {
        return next(&pread64, "pread64")(descriptor, bytes, length, offset);
    });
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    return transfer(SystemCall::Write, count, [=](size_t length) {
        return next(&write, "write")(descriptor, bytes, length);
    });
}

void* mmap(void* address, size_t length, int protection, int flags, int descriptor, off_t offset)
{
    if (failsNow(SystemCall::Map))
        return refuse(), MAP_FAILED;
    return next(&mmap, "mmap")(address, length, protection, flags, descriptor, offset);
}

void* mmap64(void* address, size_t length, int protection, int flags, int descriptor,
             off64_t offset)
{
    if (failsNow(SystemCall::Map))
        return refuse(), MAP_FAILED;
    return next(&mmap64, "mmap64")(address, length, protection, flags, descriptor, offset);
}
}
