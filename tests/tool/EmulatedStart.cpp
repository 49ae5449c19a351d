// SPDX-License-Identifier: MIT
// Qt starts a process by a clone() that gives a descriptor of the child, where the system knows
// such descriptors. An emulator hands Qt's question about them to the system, which does, but
// refuses that clone(). Answered here in the negative, Qt forks as it does on older systems.
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

extern "C" long syscall(long number, ...) noexcept
{
    long arguments[6];
    va_list list;
    va_start(list, number);
    for (long& argument : arguments)
        argument = va_arg(list, long);
    va_end(list);
    if (number == SYS_waitid && arguments[0] == P_PIDFD) {
        errno = EINVAL;
        return -1;
    }
    static const auto real = reinterpret_cast<decltype(&syscall)>(dlsym(RTLD_NEXT, "syscall"));
    return real(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4],
                arguments[5]);
}
