// SPDX-License-Identifier: MIT
#include "extra/ReplyPeople.h"

#include "utility/EMAIL_Header.h"

#include <gtest/gtest.h>

namespace reply_people_test {

using namespace tarvomime;

namespace {

struct PeopleRow
{
    const char* name;
    QByteArray original;
    ReplyKind kind;
    const char* to;
    const char* cc;
};

class ReplyPeopleTest : public testing::TestWithParam<PeopleRow>
{
};

std::string addresses(const QList<Mailbox>& mailboxes)
{
    QStringList out;
    for (const Mailbox& mailbox : mailboxes)
        out.append(mailbox.address);
    return out.join(' ').toStdString();
}

const QByteArray letter = "From: ann@x\r\nTo: me@x, bob@x\r\nCc: Me <ME@Y>, ann@x, cy@x\r\n";
const QByteArray listed = letter + "List-Post: <mailto:list@l>\r\n";

} // namespace

TEST_P(ReplyPeopleTest, AreFound)
{
    EMAIL_Header header(GetParam().original, nullptr);
    header.parse();
    const ReplyPeople people = replyPeople(header, GetParam().kind, {"me@x", "me@y"});
    EXPECT_EQ(addresses(people.to), GetParam().to) << GetParam().original.constData();
    EXPECT_EQ(addresses(people.cc), GetParam().cc) << GetParam().original.constData();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, ReplyPeopleTest,
    testing::Values(
        PeopleRow{"Sender", letter, ReplyKind::Sender, "ann@x", ""},
        PeopleRow{"All", letter, ReplyKind::All, "ann@x", "bob@x cy@x"},
        PeopleRow{"NoList", letter, ReplyKind::List, "ann@x", ""},
        PeopleRow{"ReplyTo", letter + "Reply-To: d@x, e@x\r\n", ReplyKind::Sender, "d@x e@x", ""},
        PeopleRow{"ReplyToAll", letter + "Reply-To: bob@x\r\n", ReplyKind::All, "bob@x",
                  "ann@x cy@x"},
        PeopleRow{"List", listed, ReplyKind::List, "list@l", ""},
        PeopleRow{"ListSender", listed + "Reply-To: List <LIST@l>\r\n", ReplyKind::Sender, "ann@x",
                  ""},
        PeopleRow{"ListWantsNone", letter + "List-Post: NO\r\n", ReplyKind::List, "ann@x", ""},
        PeopleRow{"ListEncoded", letter + "List-Post: <MAILTO:a%2Bb@l?subject=x>\r\n",
                  ReplyKind::List, "a+b@l", ""},
        PeopleRow{"Own", "From: me@x\r\nTo: bob@x\r\nCc: cy@x\r\n", ReplyKind::Sender, "bob@x", ""},
        PeopleRow{"OwnAll", "From: me@x\r\nTo: bob@x\r\nCc: cy@x\r\n", ReplyKind::All, "bob@x",
                  "cy@x"},
        PeopleRow{"ToOneself", "From: me@x\r\nTo: me@y\r\n", ReplyKind::All, "me@x", ""},
        PeopleRow{"Group", "From: ann@x\r\nTo: G: bob@x, cy@x;, E:;\r\n", ReplyKind::All, "ann@x",
                  "bob@x cy@x"},
        PeopleRow{"NoAddress", "From: ann@x\r\nTo: Bob, cy@\r\n", ReplyKind::All, "ann@x", ""},
        PeopleRow{"Nobody", "Subject: x\r\n", ReplyKind::All, "", ""}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace reply_people_test
