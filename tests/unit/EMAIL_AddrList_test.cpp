// SPDX-License-Identifier: MIT
#include "utility/EMAIL_AddrList.h"

#include "tests/support/AllStrings.h"
#include "tests/support/RandomText.h"

namespace email_addr_list_test {

namespace {

struct Entry
{
    int type;
    QByteArray groupName;
    std::vector<QByteArray> addresses;

    bool operator==(const Entry&) const = default;
};

void PrintTo(const Entry& entry, std::ostream* out)
{
    *out << (entry.type == 2 ? "group " : "mailbox ");
    printEscaped(entry.groupName, out);
    for (const QByteArray& address : entry.addresses) {
        *out << ' ';
        printEscaped(address, out);
    }
}

Entry mailbox(const QByteArray& text)
{
    return {1, "", {text}};
}

Entry group(const QByteArray& name, const std::vector<QByteArray>& members)
{
    return {2, name, members};
}

std::vector<Entry> entriesOf(const EMAIL_AddrList& list)
{
    std::vector<Entry> entries;
    for (const EMAIL_Address* address : list.mAddrList) {
        entries.push_back({address->mAddrType, address->mGroupName, {}});
        for (const QCString& text : address->mAddresses)
            entries.back().addresses.push_back(text);
    }
    return entries;
}

struct Row
{
    const char* name;
    const char* body;
    std::vector<Entry> entries;
    QByteArray written;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.body, out);
}

const Row rows[] = {
    {"OneMailbox", "John <j@x>", {mailbox("John <j@x>")}, "John <j@x>"},
    {"TwoMailboxesOnTwoLines", "a@x, b@y", {mailbox("a@x"), mailbox("b@y")}, "a@x,\r\n\tb@y"},
    {"ThreeMailboxesOnThreeLines",
     "a@x,b@y,c@z",
     {mailbox("a@x"), mailbox("b@y"), mailbox("c@z")},
     "a@x,\r\n\tb@y,\r\n\tc@z"},
    {"TrailingCommaStaysInTheLastMailbox", "a@x,", {mailbox("a@x,")}, "a@x,"},
    {"CommaAlone", ",", {mailbox(",")}, ","},
    {"TwoCommas", ",,", {mailbox(""), mailbox(",")}, ","},
    {"BlankBehindTheLastCommaIsAnEmptyMailbox", "a@x, ", {mailbox("a@x"), mailbox("")}, "a@x"},
    {"EmptyPieceInFrontIsKeptButNotWritten", " , a@x", {mailbox(""), mailbox("a@x")}, "a@x"},
    {"EmptyPiecesBetween",
     "a@x,,b@y, ,c@z",
     {mailbox("a@x"), mailbox(""), mailbox("b@y"), mailbox(""), mailbox("c@z")},
     "a@x,\r\n\tb@y,\r\n\tc@z"},
    {"FoldedBody", "a@x,\r\n\tb@y", {mailbox("a@x"), mailbox("b@y")}, "a@x,\r\n\tb@y"},
    {"WhiteSpaceOnlyIsOneEmptyMailbox", " \t ", {mailbox("")}, ""},
    {"GroupTakesAllTheRest",
     "team: a@x, b@y; c@z",
     {group("team", {" a@x", "b@y; c@z"})},
     "team:  a@xb@y; c@z"},
    {"GroupBehindAMailboxKeepsItsBlanks",
     "a@x, team : b@y",
     {mailbox("a@x"), group(" team ", {"b@y"})},
     "a@x,\r\n\t team : b@y"},
    {"ClosingSemicolonStaysInTheLastMember", "team: a@x;", {group("team", {"a@x;"})}, "team: a@x;"},
    {"LaterCommasAndColonsBelongToTheGroup",
     "g:a@x,h:b@y;,c@z",
     {group("g", {"a@x", "h:b@y;", "c@z"})},
     "g: a@xh:b@y;c@z"},
    {"EmptyMembersAreDropped", "g:,,a@x,,", {group("g", {"a@x"})}, "g: a@x"},
    {"OnlyTheLastMemberIsTrimmed", "g: a@x , b@y ", {group("g", {" a@x ", "b@y"})}, "g:  a@x b@y"},
    {"BlankTailIsAnEmptyMember", "g:a@x, ", {group("g", {"a@x", ""})}, "g: a@x"},
    {"GroupWithoutMembers", "g:", {group("g", {})}, "g: "},
    {"GroupWithoutName", ":a@x", {group("", {"a@x"})}, ": a@x"},
    {"ColonAlone", ":", {group("", {})}, ": "},
    {"CommaInAQuotedNameSplits",
     "\"Doe, John\" <j@x>",
     {mailbox("\"Doe"), mailbox("John\" <j@x>")},
     "\"Doe,\r\n\tJohn\" <j@x>"},
    {"ColonInAQuotedNameStartsAGroup",
     "\"Re: you\" <j@x>",
     {group("\"Re", {"you\" <j@x>"})},
     "\"Re: you\" <j@x>"},
};

class EMAIL_AddrListRow : public testing::TestWithParam<Row>
{
};

// The rules of the cut, one character at a time.
std::vector<Entry> literalParse(const QByteArray& body)
{
    std::vector<Entry> entries;
    int start = 0;
    const int length = static_cast<int>(body.size());
    for (int i = 0; i < length; ++i) {
        if (body[i] == ':') {
            QByteArrayList members = body.mid(i + 1).split(',');
            const QByteArray tail = members.takeLast();
            entries.push_back(group(body.mid(start, i - start), {}));
            for (const QByteArray& member : members) {
                if (!member.isEmpty())
                    entries.back().addresses.push_back(member);
            }
            if (!tail.isEmpty())
                entries.back().addresses.push_back(tail.trimmed());
            break;
        }
        if (body[i] == ',' || i == length - 1) {
            const int stop = i == length - 1 ? i + 1 : i;
            entries.push_back(mailbox(body.mid(start, stop - start).trimmed()));
            start = i + 1;
        }
    }
    return entries;
}

QByteArray literalBody(const std::vector<Entry>& entries)
{
    QByteArray body;
    int written = 0;
    for (const Entry& entry : entries) {
        if (entry.type == 1 && entry.addresses.front().isEmpty())
            continue;
        if (written++ > 0)
            body += ",\r\n\t";
        if (entry.type == 2)
            body += entry.groupName + ": ";
        for (const QByteArray& address : entry.addresses)
            body += address;
    }
    return body;
}

void expectLikeLiteral(const QByteArray& body)
{
    EMAIL_AddrList list;
    list.mName = "To";
    list.mBody = body;
    list.parse();
    const std::vector<Entry> expected = literalParse(body);
    ASSERT_EQ(entriesOf(list), expected) << testing::PrintToString(body);
    list.assemble();
    ASSERT_EQ(list.mBody, literalBody(expected)) << testing::PrintToString(body);
}

} // namespace

TEST_P(EMAIL_AddrListRow, ParsesAndAssembles)
{
    EMAIL_AddrList list;
    list.mName = "To";
    list.mBody = GetParam().body;
    list.parse();
    EXPECT_EQ(list.mParsed, 1);
    EXPECT_EQ(entriesOf(list), GetParam().entries);
    list.assemble();
    EXPECT_EQ(list.mBody, GetParam().written);
    const QByteArray& body = GetParam().written;
    EXPECT_EQ(list.mString, body.isEmpty() ? QByteArray() : "To: " + body + "\r\n");
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_AddrListRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_AddrList, StartsUnparsedAndOwnsItsEntries)
{
    const EMAIL_AddrList list(QCString("To: a@x"), nullptr);
    EXPECT_EQ(list.mString, "To: a@x");
    EXPECT_EQ(list.mParsed, 0);
    EXPECT_TRUE(list.mAddrList.isEmpty());
    EXPECT_TRUE(list.mAddrList.autoDelete());
    const EMAIL_Address address;
    EXPECT_EQ(address.mAddrType, 1);
    EXPECT_TRUE(address.mGroupName.isEmpty());
    EXPECT_TRUE(address.mAddresses.isEmpty());
}

TEST(EMAIL_AddrList, EmptyBodyDropsTheEntriesAndLeavesTheFlag)
{
    EMAIL_AddrList list;
    list.parse();
    EXPECT_EQ(list.mParsed, 0);
    list.mBody = "a@x, b@y";
    list.parse();
    EXPECT_EQ(list.mAddrList.count(), 2);
    list.mBody = "";
    list.parse();
    EXPECT_EQ(list.mAddrList.count(), 0);
    EXPECT_EQ(list.mParsed, 1);
}

TEST(EMAIL_AddrList, ParsesAnewEachTime)
{
    EMAIL_AddrList list;
    list.mBody = "a@x, b@y";
    list.parse();
    list.mBody = "c@z";
    list.parse();
    EXPECT_EQ(entriesOf(list), std::vector{mailbox("c@z")});
}

TEST(EMAIL_AddrList, UnparsedBodyIsWrittenAsItStands)
{
    EMAIL_AddrList list;
    list.mName = "Cc";
    list.mBody = "a@x,   b@y";
    list.assemble();
    EXPECT_EQ(list.mString, "Cc: a@x,   b@y\r\n");
}

TEST(EMAIL_AddrList, WritesEntriesThatAnApplicationMade)
{
    EMAIL_AddrList list;
    list.mName = "To";
    list.mBody = "old@x";
    list.mParsed = 1;
    list.mAddrList.append(new EMAIL_Address);
    auto* team = new EMAIL_Address;
    team->mAddrType = 2;
    team->mGroupName = "team";
    list.mAddrList.append(team);
    list.mAddrList.append(nullptr);
    list.mAddrList.append(new EMAIL_Address);
    list.mAddrList.last()->mAddresses.append("a@x");
    list.assemble();
    EXPECT_EQ(list.mBody, "team: ,\r\n\ta@x");
}

TEST(EMAIL_AddrList, FieldWithoutAnyWrittenEntryDisappears)
{
    EMAIL_AddrList list;
    list.mName = "To";
    list.mBody = " , ";
    list.parse();
    EXPECT_EQ(list.mAddrList.count(), 2);
    list.assemble();
    EXPECT_TRUE(list.mBody.isEmpty());
    EXPECT_TRUE(list.mString.isEmpty());
}

TEST(EMAIL_AddrList, EntriesShareTheBodysBytes)
{
    EMAIL_AddrList list;
    list.mBody = "a@x, b@y";
    list.parse();
    const QCString second = list.mAddrList.at(1)->mAddresses.first();
    EXPECT_EQ(second.begin(), list.mBody.begin() + 5);
}

TEST(EMAIL_AddrList, EveryShortBodyFollowsTheRules)
{
    int bodies = 0;
    int entries = 0;
    int groups = 0;
    forAllStrings("a ,:;", 6, [&](const QByteArray& body) {
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body));
        ++bodies;
        entries += static_cast<int>(literalParse(body).size());
        groups += body.contains(':') ? 1 : 0;
    });
    EXPECT_EQ(bodies, 19531);
    EXPECT_EQ(entries, 32235);
    EXPECT_EQ(groups, 14070);
}

TEST(EMAIL_AddrList, RandomBodiesFollowTheRules)
{
    constexpr unsigned int seed = 20021105;
    RandomText texts(seed, {"a@x", ",", ",", ":", ";", " ", "\"", "<b@y>", "\r\n\t", "\xe9", "g"});
    for (int i = 0; i < 5000; ++i)
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(texts.next(20))) << "seed " << seed;
}

} // namespace email_addr_list_test
