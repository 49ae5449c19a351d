// SPDX-License-Identifier: MIT
#include "extra/Mailbox.h"

#include "extra/AddressList.h"

#include <gtest/gtest.h>

namespace mailbox_test {

using namespace tarvomime;

namespace {

struct AddressRow
{
    const char* name;
    const char* address;
    bool isOne;
};

class AddressProblem : public testing::TestWithParam<AddressRow>
{
};

} // namespace

TEST_P(AddressProblem, IsTold)
{
    EXPECT_EQ(addressProblem(GetParam().address).isEmpty(), GetParam().isOne)
        << GetParam().address << ": " << addressProblem(GetParam().address).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, AddressProblem,
    testing::Values(
        AddressRow{"Plain", "j.r@a.example", true}, AddressRow{"Host", "root@localhost", true},
        AddressRow{"Signs", "a+b=c!#$%&'*/?^_`{|}~-@a.example", true},
        AddressRow{"Quoted", "\"a b\"@a.example", true},
        AddressRow{"QuotedAt", "\"a@b\"@a.example", true},
        AddressRow{"QuotedQuote", "\"a\\\"b\"@a.example", true},
        AddressRow{"Literal", "j@[192.0.2.1]", true},
        AddressRow{"LiteralV6", "j@[IPv6:2001:db8::1]", true},
        AddressRow{"OtherScripts", "用户@例子.example", true}, AddressRow{"Empty", "", false},
        AddressRow{"NoAt", "John Smith", false}, AddressRow{"NoLocal", "@a.example", false},
        AddressRow{"NoDomain", "j@", false}, AddressRow{"Blank", "j r@a.example", false},
        AddressRow{"TwoAts", "j@r@a.example", false},
        AddressRow{"TwoDots", "j..r@a.example", false},
        AddressRow{"DotFirst", ".j@a.example", false}, AddressRow{"DotLast", "j@a.example.", false},
        AddressRow{"Comma", "j,r@a.example", false},
        AddressRow{"OpenQuote", "\"j@a.example", false},
        AddressRow{"QuoteInside", "\"a\"b\"@a.example", false},
        AddressRow{"EscapeAtTheEnd", "\"a\\\"@a.example", false},
        AddressRow{"Control", "j\x01@a.example", false},
        AddressRow{"LineEnd", "j@a.example\r\nBcc: k@b.example", false},
        AddressRow{"OpenLiteral", "j@[192.0.2.1", false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SameAddress, IgnoresCase)
{
    EXPECT_TRUE(isSameAddress("J@A.example", "j@a.EXAMPLE"));
    EXPECT_FALSE(isSameAddress("j@a.example", "j@b.example"));
}

TEST(MailboxText, IsReadAgain)
{
    for (const char* name : {"", "Ann", "Ann Smith", "Smith, John", "A \"B\" \\ C", "x (y) <z>: @;",
                             "Müller, Jörg", " blanks  around "}) {
        const Mailbox mailbox{QString(name), "j@a.example", {}, {}};
        const QList<Mailbox> read = readTypedAddressList(mailboxText(mailbox));
        ASSERT_EQ(read.size(), 1) << name;
        EXPECT_EQ(read.first().name, mailbox.name.trimmed()) << name;
        EXPECT_EQ(read.first().address, mailbox.address) << name;
    }
}

} // namespace mailbox_test
