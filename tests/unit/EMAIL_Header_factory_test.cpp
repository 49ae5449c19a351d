// SPDX-License-Identifier: MIT
// Which class a header field gets, and how its name is written.
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"

#include <memory>
#include <string>
#include <typeinfo>

namespace email_header_factory_test {

namespace {

struct FactoryRow
{
    const char* given;
    const std::type_info& type;
    const char* stored;
};

void PrintTo(const FactoryRow& row, std::ostream* out)
{
    *out << testing::PrintToString(std::string(row.given));
}

class FieldFactory : public testing::TestWithParam<FactoryRow>
{
};

QCString swappedCase(const QCString& text)
{
    QByteArray swapped;
    for (const char c : text)
        swapped.append(QCString(&c, 1).lower() == QCString(&c, 1) ? QCString(&c, 1).upper()[0]
                                                                  : QCString(&c, 1).lower()[0]);
    return swapped;
}

} // namespace

TEST_P(FieldFactory, MakesTheClassAndTheSpelling)
{
    EMAIL_Header header;
    const std::unique_ptr<EMAIL_Field> field(header.createField(GetParam().given));
    ASSERT_NE(field, nullptr);
    const EMAIL_Field& created = *field;
    EXPECT_EQ(typeid(created), GetParam().type);
    EXPECT_EQ(created.mName, GetParam().stored);
    EXPECT_EQ(created.mParent, &header);
    EXPECT_TRUE(created.mBody.isEmpty());
    EXPECT_EQ(created.mParsed, 0);
    EXPECT_EQ(header.mFields.count(), 0) << "unattached";
}

TEST_P(FieldFactory, IgnoresTheCaseOfKnownNames)
{
    EMAIL_Header header;
    const bool known = QCString(GetParam().given).lower() == GetParam().given;
    const QCString other = known ? swappedCase(GetParam().given) : QCString(GetParam().given);
    const std::unique_ptr<EMAIL_Field> field(header.createField(other));
    const EMAIL_Field& created = *field;
    EXPECT_EQ(typeid(created), GetParam().type);
    EXPECT_EQ(created.mName, GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Known, FieldFactory,
    testing::Values(
        FactoryRow{"to", typeid(EMAIL_AddrList), "To"},
        FactoryRow{"cc", typeid(EMAIL_AddrList), "Cc"},
        FactoryRow{"bcc", typeid(EMAIL_AddrList), "Bcc"},
        FactoryRow{"reply-to", typeid(EMAIL_AddrList), "Reply-To"},
        FactoryRow{"from", typeid(EMAIL_AddrList), "From"},
        FactoryRow{"sender", typeid(EMAIL_AddrList), "Sender"},
        FactoryRow{"date", typeid(EMAIL_DateTime), "Date"},
        FactoryRow{"subject", typeid(EMAIL_Field), "Subject"},
        FactoryRow{"x-priority", typeid(EMAIL_Field), "X-Priority"},
        FactoryRow{"content-description", typeid(EMAIL_Field), "Content-Description"},
        FactoryRow{"content-id", typeid(EMAIL_Field), "Content-Id"},
        FactoryRow{"content-transfer-encoding", typeid(EMAIL_Field), "Content-Transfer-Encoding"},
        FactoryRow{"content-type", typeid(EMAIL_ContentType), "Content-Type"},
        FactoryRow{"mime-version", typeid(EMAIL_Field), "Mime-Version"},
        FactoryRow{"content-location", typeid(EMAIL_Field), "Content-Location"},
        FactoryRow{"x-mailer", typeid(EMAIL_Field), "X-Mailer"},
        FactoryRow{"content-disposition", typeid(EMAIL_DispositionType), "Content-Disposition"},
        FactoryRow{"message-id", typeid(EMAIL_Field), "Message-ID"}));

INSTANTIATE_TEST_SUITE_P(Other, FieldFactory,
                         testing::Values(FactoryRow{"X-Foo", typeid(EMAIL_Field), "X-Foo"},
                                         FactoryRow{"X-QRN-DSN", typeid(EMAIL_Field), "X-QRN-DSN"},
                                         FactoryRow{"Tot", typeid(EMAIL_Field), "Tot"},
                                         FactoryRow{"D\xC1te", typeid(EMAIL_Field), "D\xC1te"},
                                         FactoryRow{"To ", typeid(EMAIL_Field), "To "}));

TEST(FieldFactory, AnEmptyNameMakesAPlainFieldWithoutAName)
{
    EMAIL_Header header;
    for (const QCString& name : {QCString(), QCString("")}) {
        const std::unique_ptr<EMAIL_Field> field(header.createField(name));
        ASSERT_NE(field, nullptr);
        const EMAIL_Field& created = *field;
        EXPECT_EQ(typeid(created), typeid(EMAIL_Field));
        EXPECT_TRUE(created.mName.isEmpty());
    }
}

} // namespace email_header_factory_test
