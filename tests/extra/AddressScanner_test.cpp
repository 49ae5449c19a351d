// SPDX-License-Identifier: MIT
#include "extra/AddressScanner.h"

#include "tests/support/RowNames.h"

namespace address_scanner_test {

using namespace tarvomime;

namespace {

// A letter for each kind and what the token stands for; "_" where a blank stands before it.
QByteArray summary(std::string_view text)
{
    AddressScanner scanner(text);
    QByteArray items;
    for (AddressToken token = scanner.take(); token.kind != AddressToken::End;
         token = scanner.take())
        items +=
            QByteArray(token.spaceBefore ? "_" : "") + "AQLCS"[token.kind] + '{' + token.text + '}';
    return items;
}

struct TokensRow
{
    const char* name;
    const char* text;
    const char* expected;
};

void PrintTo(const TokensRow& row, std::ostream* out)
{
    *out << row.text;
}

class AddressTokens : public testing::TestWithParam<TokensRow>
{
};

} // namespace

TEST_P(AddressTokens, AreCut)
{
    EXPECT_EQ(summary(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, AddressTokens,
    testing::Values(TokensRow{"Nothing", " \r\n\t", ""}, TokensRow{"Atoms", "a b.c", "A{a}_A{b.c}"},
                    TokensRow{"Specials", "<a@b>,;:", "S{<}A{a}S{@}A{b}S{>}S{,}S{;}S{:}"},
                    TokensRow{"Quoted", "\"a \\\"b\\\" <c>\"", "Q{a \"b\" <c>}"},
                    TokensRow{"QuotedFolded", "\"a\r\n b\"", "Q{a b}"},
                    TokensRow{"QuotedEmpty", "\"\"a", "Q{}A{a}"},
                    TokensRow{"Literal", "[1:2]a", "L{[1:2]}A{a}"},
                    TokensRow{"Comment", "a(b (c) d)e", "A{a}C{b (c) d}A{e}"},
                    TokensRow{"CommentEscape", "(a\\)b)", "C{a)b}"},
                    TokensRow{"QuoteOpen", "\"a b\"c\"d", "Q{a b}A{c}A{\"d}"},
                    TokensRow{"QuoteEndsInEscape", "\"a\\", "A{\"a\\}"},
                    TokensRow{"LiteralOpen", "[a]b[c[", "L{[a]}A{b}A{[c[}"},
                    TokensRow{"CommentOpen", "(a)(b(c)", "C{a}A{(b(c)}"},
                    TokensRow{"EncodedWord", "=?a?q?b, c?= d", "A{=?a?q?b, c?=}_A{d}"},
                    TokensRow{"AddressInWord", "=?a?q?b<c?=", "A{=?a?q?b}S{<}A{c?=}"}),
    rowName<TokensRow>);

TEST(AddressTokensRaw, AreAsWritten)
{
    AddressScanner scanner(" \"a\\b\"(c)");
    EXPECT_EQ(scanner.take().raw, "\"a\\b\"");
    EXPECT_EQ(scanner.take().raw, "(c)");
}

// Nothing is lost, and each token eats something, whatever nothing closes.
TEST(AddressTokensFlood, EatsEveryByteOnce)
{
    for (const char* shape : {"(", "\"", "[", "=?a?q?", "\\\"", "(\"[", ")", "=?a?q?<"}) {
        const std::string text = QByteArray(shape).repeated(100000).toStdString();
        AddressScanner scanner(text);
        std::size_t eaten = 0;
        for (AddressToken token = scanner.take(); token.kind != AddressToken::End;
             token = scanner.take())
            eaten += static_cast<std::size_t>(token.raw.size());
        EXPECT_EQ(eaten, text.size()) << shape;
    }
}

} // namespace address_scanner_test
