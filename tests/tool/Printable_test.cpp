// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Printable.h"

#include <gtest/gtest.h>

namespace printable_test {

namespace {

struct PrintableRow
{
    const char* name;
    QByteArray text;
    QByteArray asText;
    QByteArray asLine;
};

class Printable : public testing::TestWithParam<PrintableRow>
{
protected:
    std::string_view text() const
    {
        const QByteArray& bytes = GetParam().text;
        return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
    }
};

} // namespace

TEST_P(Printable, Text)
{
    EXPECT_EQ(tarvomime::tool::printableText(text()), GetParam().asText);
}

TEST_P(Printable, Line)
{
    EXPECT_EQ(tarvomime::tool::printableLine(text()), GetParam().asLine);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Printable,
    testing::Values(
        PrintableRow{"Empty", "", "", ""}, PrintableRow{"Ascii", "a~ b", "a~ b", "a~ b"},
        PrintableRow{"LineEnds", "a\r\nb\nc\td\re", "a\nb\nc\td\\re", "a\\r\\nb\\nc\\td\\re"},
        PrintableRow{"CrAtTheEnd", "a\r", "a\\r", "a\\r"},
        PrintableRow{"Escape", "\x1B[31m", "\\x1B[31m", "\\x1B[31m"},
        PrintableRow{"Nul", QByteArray("\0", 1), "\\x00", "\\x00"},
        PrintableRow{"Delete", "\x7F", "\\x7F", "\\x7F"},
        PrintableRow{"C1InUtf8", "\xC2\x9B", "\\u009B", "\\u009B"},
        PrintableRow{"C1AsByte", "\x9B", "\\x9B", "\\x9B"},
        PrintableRow{"NoBreakSpace", "\xC2\xA0", "\xC2\xA0", "\xC2\xA0"},
        PrintableRow{"TwoBytes", "é", "é", "é"}, PrintableRow{"ThreeBytes", "€", "€", "€"},
        PrintableRow{"FourBytes", "😀", "😀", "😀"},
        PrintableRow{"Latin1", "caf\xE9", "caf\\xE9", "caf\\xE9"},
        PrintableRow{"CutSequence", "\xE2\x82", "\\xE2\\x82", "\\xE2\\x82"},
        PrintableRow{"Overlong", "\xC0\x80", "\\xC0\\x80", "\\xC0\\x80"},
        PrintableRow{"OverlongOfThree", "\xE0\x80\x9B", "\\xE0\\x80\\x9B", "\\xE0\\x80\\x9B"},
        PrintableRow{"Surrogate", "\xED\xA0\x80", "\\xED\\xA0\\x80", "\\xED\\xA0\\x80"},
        PrintableRow{"BeyondUnicode", "\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80",
                     "\\xF4\\x90\\x80\\x80"},
        PrintableRow{"RightToLeftOverride", "\xE2\x80\xAE", "\\u202E", "\\u202E"},
        PrintableRow{"Isolate", "\xE2\x81\xA6", "\\u2066", "\\u2066"},
        PrintableRow{"LineSeparator", "\xE2\x80\xA8", "\\u2028", "\\u2028"},
        PrintableRow{"Hebrew", "שלום", "שלום", "שלום"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace printable_test
