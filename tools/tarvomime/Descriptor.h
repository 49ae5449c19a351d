// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

namespace tarvomime::tool {

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int number) : mNumber(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (isOpen())
            close(mNumber);
    }

    bool isOpen() const { return mNumber >= 0; }
    int number() const { return mNumber; }
    /// Hands the descriptor over to the caller.
    int take() { return std::exchange(mNumber, -1); }

private:
    int mNumber;
};

} // namespace tarvomime::tool
