// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <memory>
#include <string_view>

namespace tarvomime {

/// All bytes of a file, for parsing, which looks at all of them, let go when it goes out of scope.
///
/// A small file is read, which costs half of what mapping and unmapping it does. A larger one is
/// mapped; if it is cut short meanwhile, the program ends when its bytes are looked at (SIGBUS).
/// Whoever reads stored bytes only takes `BodyBytes`.
class WholeFile
{
public:
    /// Files up to this size are read: their buffer is one that the allocator keeps.
    static constexpr int kLongestRead = 96 * 1024;

    /// See `EMAIL_Util::openBuffer` for what is refused.
    explicit WholeFile(const QString& path);
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    ~WholeFile();

    /// The bytes; none of a file that was refused.
    std::string_view view() const;

private:
    std::unique_ptr<char[]> mCopy;
    void* mMapping = nullptr;
    std::string_view mView;
};

} // namespace tarvomime
