// SPDX-License-Identifier: MIT
#include "extra/Utf8.h"

#include <QString>
#include <gtest/gtest.h>

namespace utf8_test {

using tarvomime::firstUtf8Character;
using tarvomime::isUtf8;

namespace {

struct Utf8Row
{
    const char* name;
    std::string_view text;
    bool valid;
};

class Utf8 : public testing::TestWithParam<Utf8Row>
{
};

} // namespace

TEST_P(Utf8, IsJudged)
{
    EXPECT_EQ(isUtf8(GetParam().text), GetParam().valid) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Extra, Utf8,
                         testing::Values(Utf8Row{"Empty", "", true}, Utf8Row{"Ascii", "a", true},
                                         Utf8Row{"TwoBytes", "\xC3\xA9", true},
                                         Utf8Row{"ThreeBytes", "\xE2\x82\xAC", true},
                                         Utf8Row{"FourBytes", "\xF0\x9F\x98\x80", true},
                                         Utf8Row{"Largest", "\xF4\x8F\xBF\xBF", true},
                                         Utf8Row{"TooLarge", "\xF4\x90\x80\x80", false},
                                         Utf8Row{"Surrogate", "\xED\xA0\x80", false},
                                         Utf8Row{"TooLong", "\xC0\xAF", false},
                                         Utf8Row{"TooLongThree", "\xE0\x80\xAF", false},
                                         Utf8Row{"Cut", "a\xC3", false},
                                         Utf8Row{"LoneTail", "\xA9", false},
                                         Utf8Row{"Latin1", "\xE9t\xE9", false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Utf8Character, IsEveryCodePoint)
{
    for (uint codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF)
            continue;
        // Behind a letter, because a mark of the byte order would vanish at the start.
        QString text("a");
        if (QChar::requiresSurrogates(codePoint))
            text += QChar(QChar::highSurrogate(codePoint));
        text += QChar(QChar::requiresSurrogates(codePoint) ? QChar::lowSurrogate(codePoint)
                                                           : static_cast<ushort>(codePoint));
        const std::string bytes = text.toStdString().substr(1);
        const auto character = firstUtf8Character(bytes);
        ASSERT_TRUE(character.valid) << codePoint;
        ASSERT_EQ(character.codePoint, codePoint);
        ASSERT_EQ(character.length, bytes.size()) << codePoint;
    }
}

} // namespace utf8_test
