// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <cstring>
#include <memory>
#include <string_view>

/// Bytes at the very end of their block on the heap, `offset` bytes from its start: a read past
/// them is one that AddressSanitizer sees, and their address has any alignment that is asked for.
class ExactBuffer
{
public:
    explicit ExactBuffer(const QByteArray& bytes, std::size_t offset = 0)
        : mBlock(new char[offset + size(bytes)]), mBytes(mBlock.get() + offset, size(bytes))
    {
        std::memcpy(mBlock.get() + offset, bytes.constData(), size(bytes));
    }

    const char* data() const { return mBytes.data(); }
    std::size_t size() const { return mBytes.size(); }
    std::string_view view() const { return mBytes; }

private:
    static std::size_t size(const QByteArray& bytes)
    {
        return static_cast<std::size_t>(bytes.size());
    }

    std::unique_ptr<char[]> mBlock;
    std::string_view mBytes;
};
