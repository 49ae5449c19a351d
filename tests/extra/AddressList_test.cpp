// SPDX-License-Identifier: MIT
#include "extra/AddressList.h"

#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace address_list_test {

using namespace tarvomime;

namespace {

// name|address, with the group before it and "!" before what is no address.
QString summary(const QList<Mailbox>& mailboxes)
{
    QStringList items;
    for (const Mailbox& mailbox : mailboxes) {
        QString item = mailbox.group.isNull() ? QString() : mailbox.group + ':';
        if (!mailbox.isEmptyGroup())
            item += mailbox.name + '|' + (mailbox.isAddress() ? "" : "!") + mailbox.address;
        items += item;
    }
    return items.join("  ");
}

struct ListRow
{
    const char* name;
    QByteArray body;
    const char* expected;
};

class AddressList : public testing::TestWithParam<ListRow>
{
};

} // namespace

TEST_P(AddressList, IsRead)
{
    EXPECT_EQ(summary(readAddressList(GetParam().body)).toUtf8(), GetParam().expected)
        << GetParam().body.constData();
}

INSTANTIATE_TEST_SUITE_P(
    Plain, AddressList,
    testing::Values(
        ListRow{"Empty", "", ""}, ListRow{"Blanks", " \r\n\t", ""}, ListRow{"Commas", ",, ,", ""},
        ListRow{"Bare", "j@a.example", "|j@a.example"},
        ListRow{"Named", "John Smith <j@a.example>", "John Smith|j@a.example"},
        ListRow{"NoBlank", "John<j@a.example>", "John|j@a.example"},
        ListRow{"Two", "a@x.example, B <b@x.example>", "|a@x.example  B|b@x.example"},
        ListRow{"TrailingComma", "a@x.example,", "|a@x.example"},
        ListRow{"Quoted", "\"Smith, John\" <j@a.example>", "Smith, John|j@a.example"},
        ListRow{"QuotedColon", "\"Re: you\" <j@a.example>", "Re: you|j@a.example"},
        ListRow{"Escapes", "\"a \\\"b\\\" \\\\\" <j@a.example>", "a \"b\" \\|j@a.example"},
        ListRow{"DotsInName", "John Q. Public <j@a.example>", "John Q. Public|j@a.example"},
        ListRow{"ApostropheInName", "'John O'Hara' <j@a.example>", "'John O'Hara'|j@a.example"},
        ListRow{"BracketsInName", "[List] news <l@a.example>", "[List] news|l@a.example"},
        ListRow{"WordsOfBothKinds", "John \"Q\" Smith <j@a.example>", "John Q Smith|j@a.example"},
        ListRow{"QuotedLocal", "\"a, b\"@x.example", "|\"a, b\"@x.example"},
        ListRow{"Literal", "J <j@[IPv6:2001:db8::1]>", "J|j@[IPv6:2001:db8::1]"},
        ListRow{"AddressAsName", "j@a.example <k@b.example>", "j@a.example|k@b.example"},
        ListRow{"QuotedAddressAsName", "\"j@a.example\" <k@b.example>", "j@a.example|k@b.example"},
        ListRow{"CommaForgottenBehindBrackets", "A <a@x.example> B C <b@x.example>",
                "A|a@x.example  B C|b@x.example"},
        ListRow{"CommaForgotten", "a@x.example b@x.example\tc@x.example, d@x.example",
                "|a@x.example  |b@x.example  |c@x.example  |d@x.example"},
        ListRow{"WordsBehindAddress", "a@x.example or b@x.example", "or b@x.example|a@x.example"},
        ListRow{"Folded", "a@x.example,\r\n\tB\r\n <b@x.example>", "|a@x.example  B|b@x.example"},
        ListRow{"RawUtf8", "Jörg <j@a.example>", "Jörg|j@a.example"},
        ListRow{"RawLatin1", "J\xF6rg <j@a.example>", "Jörg|j@a.example"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    CommentsGroupsRoutes, AddressList,
    testing::Values(
        ListRow{"CommentIsName", "j@a.example (John)", "John|j@a.example"},
        ListRow{"CommentBesideName", "John <j@a.example> (home)", "John|j@a.example"},
        ListRow{"CommentHoldsList", "j@a.example (x, y <z@z>: q)", "x, y <z@z>: q|j@a.example"},
        ListRow{"CommentNests", "j@a.example (a (b) c)", "a (b) c|j@a.example"},
        ListRow{"CommentEscapes", "j@a.example (a \\) b)", "a ) b|j@a.example"},
        ListRow{"CommentsEverywhere", "(1)J(2)ohn(3)<(4)j(5)@(6)a(7).example(8)>(9)",
                "John|j@a.example"},
        ListRow{"BlanksInAddress", "j . r @ a . example", "|j.r@a.example"},
        ListRow{"BlanksInAngle", "J < j . r @ a . example >", "J|j.r@a.example"},
        ListRow{"BlanksInQuotesAndBrackets", "\"a  . b\" . c @ [d  . e]",
                "|!\"a  . b\".c@[d  . e]"},
        ListRow{"BlanksInQuotedLocal", "\"a  . b\" @ x . example", "|\"a  . b\"@x.example"},
        ListRow{"Group", "Team: a@x.example, B <b@x.example>;",
                "Team:|a@x.example  Team:B|b@x.example"},
        ListRow{"GroupBetween", "a@x.example, G: b@x.example;, c@x.example",
                "|a@x.example  G:|b@x.example  |c@x.example"},
        ListRow{"GroupWithoutEnd", "G: a@x.example", "G:|a@x.example"},
        ListRow{"GroupWithoutComma", "G: a@x.example; b@x.example", "G:|a@x.example  |b@x.example"},
        ListRow{"EmptyGroup", "undisclosed-recipients:;", "undisclosed-recipients:"},
        ListRow{"EmptyGroupBlanks", "Undisclosed recipients: ;", "Undisclosed recipients:"},
        ListRow{"GroupOfAComment", "Hidden recipients  :(nobody(that I know))  ;",
                "Hidden recipients:"},
        ListRow{"CommentOnly", "(nobody)", ""},
        ListRow{"GroupWithoutName", ": a@x.example;", ":|a@x.example"},
        ListRow{"QuotedGroup", "\"A, B\": a@x.example;", "A, B:|a@x.example"},
        ListRow{"EncodedGroup", "=?utf-8?Q?J=C3=B6?=: a@x.example;", "Jö:|a@x.example"},
        ListRow{"Semicolons", "a@x.example; b@x.example", "|a@x.example  |b@x.example"},
        ListRow{"Route", "J <@a.example,@b.example:j@c.example>", "J|j@c.example"},
        ListRow{"RouteOfOne", "<@a.example:j@c.example>", "|j@c.example"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    EncodedWords, AddressList,
    testing::Values(
        ListRow{"Word", "=?utf-8?Q?J=C3=B6rg?= <j@a.example>", "Jörg|j@a.example"},
        ListRow{"Words", "=?utf-8?Q?J=C3?=\r\n\t=?utf-8?Q?=B6rg?= <j@a.example>",
                "Jörg|j@a.example"},
        ListRow{"WordBesidePlain", "=?utf-8?Q?J=C3=B6rg?= Smith <j@a.example>",
                "Jörg Smith|j@a.example"},
        ListRow{"WordInQuotes", "\"=?utf-8?Q?M=C3=BCller=2C_J?=\" <j@a.example>",
                "Müller, J|j@a.example"},
        ListRow{"WordInComment", "j@a.example (=?utf-8?Q?J=C3=B6rg?=)", "Jörg|j@a.example"},
        ListRow{"CommaInWord", "=?utf-8?Q?M=C3=BCller,_J?= <j@a.example>", "Müller, J|j@a.example"},
        ListRow{"BlankInWord", "=?utf-8?Q?M=C3=BCller, J?= <j@a.example>", "Müller, J|j@a.example"},
        ListRow{"EncodedComma", "=?utf-8?B?TcO8bGxlciwgSsO2cmc=?= <j@a.example>",
                "Müller, Jörg|j@a.example"},
        ListRow{"NoBlankBehindWord", "=?utf-8?Q?J=C3=B6rg?=<j@a.example>", "Jörg|j@a.example"},
        ListRow{"AddressInWord", "=?utf-8?Q?a <b@c>?= <j@a.example>, k@b.example",
                "=?utf-8?Q?a|b@c  ?=|j@a.example  |k@b.example"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Broken, AddressList,
    testing::Values(ListRow{"NameOnly", "John Smith", "|!John Smith"},
                    ListRow{"NameAmongAddresses", "a@x.example, John, b@x.example",
                            "|a@x.example  |!John  |b@x.example"},
                    ListRow{"EmptyAngle", "John <>", "John|!"}, ListRow{"NullPath", "<>", "|!"},
                    ListRow{"NoDomain", "j@", "|!j@"},
                    ListRow{"NoLocal", "@a.example", "|!@a.example"},
                    ListRow{"AngleNotClosed", "John <j@a.example, k@b.example",
                            "John|j@a.example  |k@b.example"},
                    ListRow{"AngleNotOpened", "j@a.example>", "|j@a.example"},
                    ListRow{"TwoAngles", "<<j@a.example>>", "|j@a.example"},
                    ListRow{"NameBehind", "<j@a.example> John", "John|j@a.example"},
                    ListRow{"QuoteNotClosed", "\"John <j@a.example>, k@b.example",
                            "\"John|j@a.example  |k@b.example"},
                    ListRow{"CommentNotClosed", "John (x <j@a.example>", "John (x|j@a.example"},
                    ListRow{"BracketNotClosed", "[List <j@a.example>", "[List|j@a.example"},
                    ListRow{"BlankInAngle", "<john smith@a.example>", "|!john smith@a.example"},
                    ListRow{"Url", "http://a.example/", "http:|!//a.example/"},
                    ListRow{"SpaceBeforeBare", "John Smith j@a.example", "John Smith|j@a.example"},
                    ListRow{"Injection", "J <j@a.example\r\nX: y>", "J|!j@a.example X: y"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AddressListOfHeader, TakesAllFieldsOfTheName)
{
    EMAIL_Header header("To: a@x.example\r\nTO: b@x.example\r\nCc: c@x.example\r\n", nullptr);
    header.parse();
    EXPECT_EQ(summary(readAddressList(header, "to")), "|a@x.example  |b@x.example");
    EXPECT_EQ(summary(readAddressList(header, "Bcc")), "");
}

TEST(AddressListFlood, IsLinear)
{
    for (const char* shape : {"(", "\"", "[", "<", "a@x,", "\\\"", "((\"", "=?a?q?", ":;", "a ",
                              ".", "(a)", "<@", "@", "=?a?q?<"}) {
        const QByteArray body = QByteArray(shape).repeated(200000);
        EXPECT_LE(readAddressList(body).size(), body.size()) << shape;
    }
}

namespace {

struct NameRow
{
    const char* label;
    QString name;
};

class WrittenName : public testing::TestWithParam<NameRow>
{
};

Mailbox mailbox(const QString& name, const QString& address)
{
    return {name, address, {}, {}};
}

} // namespace

// Through each exact setter, assembled, parsed and read again: the same two people.
TEST_P(WrittenName, SurvivesTheSetters)
{
    const QList<Mailbox> people = {mailbox(GetParam().name, "j@a.example"),
                                   mailbox("Ann", "ann@b.example")};
    const Result<QString> value = writeAddressList(people);
    ASSERT_TRUE(value) << value.reason().toStdString();
    EMAIL_MIME message;
    message.setFrom(*value);
    message.setTo(*value);
    message.setCc(*value);
    message.setBcc(*value);
    message.setReplyTo(*value);
    message.setSender(*value);
    const EMAIL_MIME again{QByteArray(message.assemble())};
    for (const char* field : {"From", "To", "Cc", "Bcc", "Reply-To", "Sender"}) {
        const QList<Mailbox> read = readAddressList(*again.getHeader(), field);
        ASSERT_EQ(read.size(), 2) << field << " of " << value->toStdString();
        EXPECT_EQ(read[0].name, GetParam().name) << field << " of " << value->toStdString();
        EXPECT_EQ(read[0].address, "j@a.example");
        EXPECT_EQ(read[1].name, "Ann");
        EXPECT_EQ(read[1].address, "ann@b.example");
    }
}

TEST_P(WrittenName, HasShortLines)
{
    const Result<QString> value = writeAddressList({mailbox(GetParam().name, "j@a.example")});
    for (const QString& line : value.valueOr({}).split("\r\n\t"))
        EXPECT_LE(line.size(), 75 + 14) << line.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, WrittenName,
    testing::Values(
        NameRow{"None", ""}, NameRow{"Plain", "John Smith"}, NameRow{"Comma", "Smith, John"},
        NameRow{"UmlautAndComma", QString::fromUtf8("Müller, Jörg")},
        NameRow{"Quotes", "John \"Q\" Smith"}, NameRow{"Backslash", "a\\b"},
        NameRow{"Specials", "()<>[]:;@\\,.\""}, NameRow{"Address", "k@b.example"},
        NameRow{"LooksEncoded", "=?utf-8?Q?a?= b"}, NameRow{"TwoBlanks", "a  b"},
        NameRow{"Dot", "John Q. Public"}, NameRow{"Question", "Who? Me = _you_"},
        NameRow{"Control", QString("a\tb")}, NameRow{"Long", QString("word ").repeated(60) + "end"},
        NameRow{"LongUmlauts", QString::fromUtf8("Übergrößenträger, ").repeated(20) + "x"},
        NameRow{"Emoji", QString::fromUtf8("😀🦄, 👩‍💻").repeated(20)},
        NameRow{"Japanese", QString::fromUtf8("山田, 太郎")},
        NameRow{"Arabic", QString::fromUtf8("محمد، علي, س")}),
    [](const auto& row) { return std::string(row.param.label); });

TEST(WrittenList, FlattensGroups)
{
    QList<Mailbox> group = readAddressList("Team: a@x.example, B <b@x.example>;, Empty:;");
    EXPECT_EQ(writeAddressList(group).valueOr("failed"), "a@x.example, B <b@x.example>");
    EXPECT_EQ(writeAddressList(readAddressList("undisclosed-recipients:;")).valueOr("failed"),
              "undisclosed-recipients:;");
    EXPECT_EQ(writeAddressList({}).valueOr("failed"), "");
}

TEST(WrittenList, RefusesWhatIsNoAddress)
{
    for (const char* address :
         {"", "John", "j@", "j@a.example\r\nBcc: k@b.example", "\"a,b\"@x.example",
          "j@[IPv6:2001:db8::1]", "=?utf-8?Q?j@a.example", "j@=?utf-8?Q?a.example"}) {
        const Result<QString> value = writeAddressList({mailbox("J", address)});
        EXPECT_FALSE(value) << address;
        EXPECT_FALSE(value.reason().isEmpty()) << address;
    }
}

} // namespace address_list_test
