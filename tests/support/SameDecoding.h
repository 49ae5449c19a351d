// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ExactBuffer.h"
#include "tests/support/PlainCodecs.h"
#include "utility/file/BodyBytes.h"

#include <gtest/gtest.h>
#include <utility>

using FastDecoder = QByteArray (*)(std::string_view, unsigned long*, tarvomime::NulByte);
using PlainDecoder = QByteArray (*)(std::string_view, unsigned long*, tarvomime_plain::NulByte);

/// Holds a decoder equal to its plain twin, whatever a NUL means.
inline void expectSameDecoding(const ExactBuffer& text, FastDecoder decode,
                               PlainDecoder decodePlain)
{
    using Fast = tarvomime::NulByte;
    using Plain = tarvomime_plain::NulByte;
    const std::pair<Fast, Plain> meanings[] = {{Fast::IsData, Plain::IsData},
                                               {Fast::EndsText, Plain::EndsText}};
    for (const auto& [fastNul, plainNul] : meanings) {
        unsigned long fastLength = 0;
        unsigned long plainLength = 0;
        const QByteArray fast = decode(text.view(), &fastLength, fastNul);
        const QByteArray plain = decodePlain(text.view(), &plainLength, plainNul);
        ASSERT_EQ(fast, plain) << testing::PrintToString(
            QByteArray(text.data(), static_cast<int>(text.size())));
        ASSERT_EQ(fastLength, plainLength);
    }
}
