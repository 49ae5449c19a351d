// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_MultiPart.h"

#include <utility>
#include <vector>

namespace tarvomime::fuzz {

constexpr int typeMultipart = 2;
constexpr int typeMessage = 3;

/// The decoded body, whether it lies in memory or in a file.
inline QByteArray bodyOf(const EMAIL_MultiPart& part)
{
    ScratchFile file;
    require(part.getBody(file.file()) == 0, "a body can be written");
    return file.content();
}

/// Calls `compare` with each pair of parts at the same place of two trees. Where it gives true, the
/// parts must have as many sub-parts, and these are compared too.
template <class Compare>
void comparePairs(const EMAIL_MultiPart& one, const EMAIL_MultiPart& other, Compare compare)
{
    std::vector<std::pair<const EMAIL_MultiPart*, const EMAIL_MultiPart*>> waiting{{&one, &other}};
    while (!waiting.empty()) {
        const auto [left, right] = waiting.back();
        waiting.pop_back();
        if (!compare(*left, *right))
            continue;
        const int count = left->getSubMultiPartCount();
        require(count == right->getSubMultiPartCount(), "both have as many sub-parts");
        for (int i = 0; i < count; ++i)
            waiting.emplace_back(left->getSubMultiPart(i), right->getSubMultiPart(i));
    }
}

} // namespace tarvomime::fuzz
