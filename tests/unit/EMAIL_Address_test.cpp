// SPDX-License-Identifier: MIT
#include "tests/support/AllStrings.h"
#include "utility/EMAIL_AddrList.h"

namespace email_address_test {

namespace {

struct Row
{
    const char* name;
    const char* text;
    QByteArray address;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.text, out);
}

const Row rows[] = {
    {"Empty", "", ""},
    {"BareAddress", "js@x", "js@x"},
    {"BareAddressIsNotTrimmed", " js@x ", " js@x "},
    {"DisplayName", "John <js@x>", "js@x"},
    {"QuotedDisplayName", "\"Smith, J\" <js@x>", "js@x"},
    {"AngleBracketsInTheQuotedName", "\"a <b> c\" <js@x>", "js@x"},
    {"EscapedQuoteInTheName", "\"a \\\"b\\\" c\" <q@r>", "q@r"},
    {"EscapedQuoteHidesItsBrackets", "\"a\\\"<no>\" <q@r>", "q@r"},
    {"QuoteBehindAnEscapedBackslashDoesNotClose", "\"a\\\\\" <q@r>", "q@r"},
    {"QuoteBehindAnEscapedBackslashHidesTheAddress", "\"a\\\\\"<q@r> \"b", "b"},
    {"EmptyQuotedName", "\"\"<q@r>", "q@r"},
    {"QuotedNameAlone", "\"John\"", ""},
    {"QuotedNameAndBareAddress", "\"John\" js@x", " js@x"},
    {"UnclosedQuoteSkipsNothing", "\"John <js@x>", "js@x"},
    {"QuoteBehindABlankIsNoName", " \"a <b>\" <js@x>", "b"},
    {"BracketContentIsNotTrimmed", "J < js@x >", " js@x "},
    {"EmptyBrackets", "J <>", ""},
    {"FirstBracketsCount", "<a@x> <b@y>", "a@x"},
    {"NestedOpening", "<<a@x>>", "<a@x"},
    {"OnlyOpening", "J <js@x", "J <js@x"},
    {"OnlyClosing", "J js@x>", "J js@x>"},
    {"ClosingBeforeOpening", "a> b <c@x> d", "c@x> d"},
    {"ClosingBeforeOpeningAtTheEnd", "a><", ""},
    {"QuoteAlone", "\"", "\""},
    {"TwoQuotes", "\"\"", ""},
};

class EMAIL_AddressRow : public testing::TestWithParam<Row>
{
};

// The same rules, character by character.
QByteArray literalRouteAddress(const QByteArray& text)
{
    if (text.isEmpty())
        return "";
    QByteArray copy = text;
    if (copy[0] == '"') {
        for (int i = 1; i < text.size(); ++i) {
            if (text[i] == '"' && text[i - 1] != '\\') {
                copy = text.mid(i + 1);
                break;
            }
        }
    }
    const auto open = copy.indexOf('<');
    const auto close = copy.indexOf('>');
    if (open < 0 || close < 0)
        return copy;
    QByteArray address;
    for (auto i = open + 1; i < copy.size() && i != close; ++i)
        address += copy[i];
    return address;
}

} // namespace

TEST_P(EMAIL_AddressRow, RouteAddress)
{
    const QCString address = EMAIL_Address::getRouteAddress(GetParam().text);
    EXPECT_EQ(address, GetParam().address);
    EXPECT_FALSE(address.isNull());
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_AddressRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_Address, NullTextGivesAnEmptyAddress)
{
    EXPECT_TRUE(EMAIL_Address::getRouteAddress(QCString()).isEmpty());
}

TEST(EMAIL_Address, EveryShortTextFollowsTheRules)
{
    int texts = 0;
    int unchanged = 0;
    int empty = 0;
    forAllStrings("\"\\<>a", 6, [&](const QByteArray& text) {
        const QCString address = EMAIL_Address::getRouteAddress(text);
        ASSERT_EQ(address, literalRouteAddress(text)) << testing::PrintToString(text);
        ++texts;
        unchanged += address == text ? 1 : 0;
        empty += address.isEmpty() ? 1 : 0;
    });
    EXPECT_EQ(texts, 19531);
    EXPECT_EQ(unchanged, 8376);
    EXPECT_EQ(empty, 2990);
}

} // namespace email_address_test
