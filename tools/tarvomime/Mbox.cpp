// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Mbox.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

constexpr std::string_view kSeparator = "From ";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool holdsTimeOfDay(std::string_view line)
{
    for (std::size_t colon = line.find(':'); colon != line.npos;
         colon = line.find(':', colon + 1)) {
        if (colon >= 2 && colon + 2 < line.size() && isDigit(line[colon - 2]) &&
            isDigit(line[colon - 1]) && isDigit(line[colon + 1]) && isDigit(line[colon + 2]))
            return true;
    }
    return false;
}

bool beginsWithSeparator(std::string_view text)
{
    return text.substr(0, kSeparator.size()) == kSeparator &&
           holdsTimeOfDay(text.substr(0, text.find('\n')));
}

bool endsWithEmptyLine(std::string_view text)
{
    const auto endsWith = [text](std::string_view end) {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    };
    return endsWith("\n\n") || endsWith("\n\r\n");
}

/// Without the empty line that belongs to the next separator.
std::string_view withoutEmptyLine(std::string_view message)
{
    if (endsWithEmptyLine(message))
        message.remove_suffix(message[message.size() - 2] == '\r' ? 2 : 1);
    return message;
}

} // namespace

MboxReader::MboxReader(std::string_view bytes) : mBytes(bytes), mIsMbox(beginsWithSeparator(bytes))
{
}

std::size_t MboxReader::findSeparator(std::size_t from) const
{
    for (std::size_t at = mBytes.find("\nFrom ", from); at != mBytes.npos;
         at = mBytes.find("\nFrom ", at + 1)) {
        if (endsWithEmptyLine(mBytes.substr(0, at + 1)) &&
            beginsWithSeparator(mBytes.substr(at + 1)))
            return at + 1;
    }
    return mBytes.size();
}

bool MboxReader::next(std::string_view& message)
{
    if (mNext >= mBytes.size())
        return false;
    const std::size_t start = mNext;
    if (!mIsMbox) {
        mNext = mBytes.size();
        message = mBytes;
        return true;
    }
    const std::size_t lineEnd = std::min(mBytes.find('\n', start), mBytes.size() - 1);
    mNext = findSeparator(lineEnd);
    message = withoutEmptyLine(mBytes.substr(lineEnd + 1, mNext - lineEnd - 1));
    return true;
}

} // namespace tarvomime::tool
