// SPDX-License-Identifier: MIT
// Any file is cut into messages that lie in it one behind the other, each behind its own separator;
// what is between them is separators and empty lines.

#include "fuzz/support/Fuzz.h"
#include "tools/tarvomime/Mbox.h"

using namespace tarvomime::fuzz;

namespace {

bool isSeparator(std::string_view gap)
{
    while (!gap.empty() && (gap.front() == '\r' || gap.front() == '\n'))
        gap.remove_prefix(1);
    return gap.substr(0, 5) == "From " && gap.find('\n') >= gap.size() - 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(bytes), size);
    tarvomime::tool::MboxReader reader(file);
    size_t end = 0;
    int count = 0;
    for (std::string_view message; reader.next(message); ++count) {
        const auto start = static_cast<size_t>(message.data() - file.data());
        require(start >= end && start + message.size() <= size, "a message lies behind the last");
        const std::string_view gap = file.substr(end, start - end);
        require(reader.isMbox() ? isSeparator(gap) : gap.empty(), "a separator is between them");
        end = start + message.size();
    }
    require(size - end <= 2, "no more than an empty line is behind the last message");
    require(size == 0 || (reader.isMbox() ? count > 0 : count == 1), "a file holds a message");
    return 0;
}
