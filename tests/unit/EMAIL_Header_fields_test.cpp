// SPDX-License-Identifier: MIT
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <functional>

namespace email_header_fields_test {

namespace {

using Header = EMAIL_Header;

struct TypedRow
{
    const char* name;
    std::function<EMAIL_Field*(Header&)> get;
    const char* sample;
};

void PrintTo(const TypedRow& row, std::ostream* out)
{
    *out << row.name;
}

class TypedGetter : public testing::TestWithParam<TypedRow>
{
};

template <class Getter>
std::function<EMAIL_Field*(Header&)> typed(Getter getter)
{
    return [getter](Header& header) -> EMAIL_Field* { return (header.*getter)(); };
}

} // namespace

TEST_P(TypedGetter, IsNullWhenAbsent)
{
    Header header;
    EXPECT_EQ(GetParam().get(header), nullptr);
    EXPECT_EQ(header.mFields.count(), 0);
}

TEST_P(TypedGetter, ParsesTheFirstFieldOnce)
{
    Header header;
    EMAIL_Field* field = header.field(GetParam().name);
    field->mBody = GetParam().sample;
    EMAIL_Field* second = header.createField(GetParam().name);
    second->mBody = GetParam().sample;
    header.mFields.append(second);
    EXPECT_EQ(field->mParsed, 0);
    EXPECT_EQ(GetParam().get(header), field);
    EXPECT_EQ(field->mParsed, 1);
    field->assemble();
    const QCString written = field->getMessage();
    field->mBody = "changed/changed";
    EXPECT_EQ(GetParam().get(header), field);
    field->assemble();
    EXPECT_EQ(field->getMessage(), written) << "parsed is parsed";
    EXPECT_EQ(second->mParsed, 0);
}

TEST_P(TypedGetter, TakesNoFieldOfAnotherClass)
{
    Header header;
    auto* plain = new EMAIL_Field;
    plain->mName = GetParam().name;
    header.addField(plain);
    EXPECT_EQ(GetParam().get(header), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TypedGetter,
    testing::Values(TypedRow{"To", typed(&Header::getTo), "a@x"},
                    TypedRow{"Cc", typed(&Header::getCc), "a@x"},
                    TypedRow{"Bcc", typed(&Header::getBcc), "a@x"},
                    TypedRow{"From", typed(&Header::getFrom), "a@x"},
                    TypedRow{"Sender", typed(&Header::getSender), "a@x"},
                    TypedRow{"Reply-To", typed(&Header::getReplyTo), "a@x"},
                    TypedRow{"Date", typed(&Header::getDate), "Tue, 12 Nov 2002 10:00:00 +0100"},
                    TypedRow{"Content-Type", typed(&Header::getContentType), "text/html"},
                    TypedRow{"Content-Disposition", typed(&Header::getContentDisposition),
                             "inline"}));

namespace {

struct TextRow
{
    const char* name;
    QCString (Header::*get)() const;
};

void PrintTo(const TextRow& row, std::ostream* out)
{
    *out << row.name;
}

class TextGetter : public testing::TestWithParam<TextRow>
{
};

} // namespace

TEST_P(TextGetter, GivesTheBodyOrAnEmptyText)
{
    Header header;
    EXPECT_EQ((header.*GetParam().get)(), "");
    EXPECT_EQ(header.mFields.count(), 0);
    header.field(GetParam().name)->mBody = "=?utf-8?B?w6k=?= as stored";
    EXPECT_EQ((header.*GetParam().get)(), "=?utf-8?B?w6k=?= as stored");
}

INSTANTIATE_TEST_SUITE_P(Rows, TextGetter,
                         testing::Values(TextRow{"Subject", &Header::getSubject},
                                         TextRow{"X-Mailer", &Header::getXMailer},
                                         TextRow{"Content-Id", &Header::getContentId},
                                         TextRow{"Content-Description",
                                                 &Header::getContentDescription},
                                         TextRow{"Content-Location", &Header::getContentLocation},
                                         TextRow{"Mime-Version", &Header::getMimeVersion}));

namespace {

struct SetterRow
{
    const char* name;
    void (Header::*set)(const QCString&);
    bool parses;
};

void PrintTo(const SetterRow& row, std::ostream* out)
{
    *out << row.name;
}

class TextSetter : public testing::TestWithParam<SetterRow>
{
};

} // namespace

TEST_P(TextSetter, CreatesAndReplaces)
{
    Header header;
    header.field("X-First")->mBody = "1";
    (header.*GetParam().set)("one");
    ASSERT_EQ(header.mFields.count(), 2);
    EXPECT_EQ(header.mFields.at(1)->mName, GetParam().name);
    EXPECT_EQ(header.mFields.at(1)->mBody, "one");
    EXPECT_EQ(header.mFields.at(1)->mParsed, GetParam().parses ? 1 : 0);
    header.field("X-Last")->mBody = "2";
    (header.*GetParam().set)("two");
    ASSERT_EQ(header.mFields.count(), 3) << "replaced in place";
    EXPECT_EQ(header.mFields.at(1)->mBody, "two");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TextSetter,
    testing::Values(SetterRow{"To", &Header::setTo, true}, SetterRow{"Cc", &Header::setCc, true},
                    SetterRow{"Bcc", &Header::setBcc, true},
                    SetterRow{"From", &Header::setFrom, true},
                    SetterRow{"Sender", &Header::setSender, true},
                    SetterRow{"Reply-To", &Header::setReplyTo, true},
                    SetterRow{"Content-Description", &Header::setContentDescription, true},
                    SetterRow{"Subject", &Header::setSubject, false},
                    SetterRow{"X-Mailer", &Header::setXMailer, false},
                    SetterRow{"X-Priority", &Header::setXPriority, false},
                    SetterRow{"Content-Id", &Header::setContentId, false},
                    SetterRow{"Mime-Version", &Header::setMimeVersion, false},
                    SetterRow{"Content-Location", &Header::setContentLocation, false}));

TEST(EMAIL_HeaderFields, AddressSettersReplaceTheParsedList)
{
    Header header;
    header.setTo("a@x, b@y");
    EXPECT_EQ(header.getTo()->mAddrList.count(), 2);
    header.setTo("c@z");
    EXPECT_EQ(header.getTo()->mAddrList.count(), 1);
}

TEST(EMAIL_HeaderFields, ContentTypeIsCreatedAsTextPlain)
{
    Header header;
    EMAIL_ContentType* type = header.contentType();
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->mType, "text");
    EXPECT_EQ(type->mSubType, "plain");
    EXPECT_EQ(type->mParsed, 0);
    EXPECT_EQ(header.contentType(), type);
    EXPECT_EQ(header.mFields.count(), 1);
}

TEST(EMAIL_HeaderFields, ContentDispositionIsNotParsedByItsCreatingGetter)
{
    Header header;
    header.field("Content-Disposition")->mBody = "attachment";
    EXPECT_EQ(header.contentDisposition()->mParsed, 0);
    EXPECT_EQ(header.getContentDisposition()->mParsed, 1);
    Header empty;
    EXPECT_NE(empty.contentDisposition(), nullptr);
    EXPECT_EQ(empty.mFields.count(), 1);
}

TEST(EMAIL_HeaderFields, CreatingGettersReplaceAFieldOfAnotherClass)
{
    for (const char* name : {"Content-Type", "Content-Disposition"}) {
        Header header;
        auto* plain = new EMAIL_Field;
        plain->mName = name;
        header.addField(plain);
        if (QCString(name) == "Content-Type")
            EXPECT_NE(header.contentType(), nullptr);
        else
            EXPECT_NE(header.contentDisposition(), nullptr);
        EXPECT_EQ(header.mFields.count(), 1) << name;
    }
}

TEST(EMAIL_HeaderFields, TakesAMethodFromTheFieldThatIsReplaced)
{
    Header header;
    auto* plain = new EMAIL_Field;
    plain->mName = "Content-Type";
    plain->mBody = QCString(QByteArray(100, 'x'));
    header.addField(plain);
    header.setMethod(plain->mBody);
    EXPECT_EQ(header.getMethod(), QCString(QByteArray(100, 'x')));
}

TEST(EMAIL_HeaderFields, SetsTheDateByItsTime)
{
    Header header;
    header.setDate(1037091600);
    ASSERT_NE(header.getDate(), nullptr);
    EXPECT_EQ(header.getDate()->getTime(), 1037091600UL);
    EXPECT_EQ(header.mFields.count(), 1);
}

TEST(EMAIL_HeaderFields, TransferEncoding)
{
    Header header;
    EXPECT_EQ(header.getCte(), CTE_7BIT) << "absent";
    header.setCte(CTE_BASE64);
    EXPECT_EQ(header.getField("content-transfer-encoding")->mBody, "base64");
    EXPECT_EQ(header.getCte(), CTE_BASE64);
    header.field("Content-Transfer-Encoding")->mBody = "x-uuencode";
    EXPECT_EQ(header.getCte(), CTE_UNKNOWN);
}

namespace {

struct PriorityRow
{
    const char* body;
    unsigned int expected;
};

void PrintTo(const PriorityRow& row, std::ostream* out)
{
    *out << '"' << row.body << '"';
}

class Priority : public testing::TestWithParam<PriorityRow>
{
};

} // namespace

TEST_P(Priority, Reads)
{
    Header header;
    header.field("X-Priority")->mBody = GetParam().body;
    EXPECT_EQ(header.getXPriority(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, Priority,
                         testing::Values(PriorityRow{"1 (Highest)", 1}, PriorityRow{"5", 5},
                                         PriorityRow{"7", 7}, PriorityRow{" 2 ", 2},
                                         PriorityRow{"(High) 1", 3}, PriorityRow{"high", 3},
                                         PriorityRow{"", 3}, PriorityRow{"1 (open", 3},
                                         PriorityRow{"1 )x(", 3}, PriorityRow{"-1", 3},
                                         PriorityRow{"+4", 4}, PriorityRow{"4(a)(b)", 4},
                                         PriorityRow{"4294967296", 3}));

TEST(EMAIL_HeaderFields, PriorityIsNormalWhenAbsent)
{
    EXPECT_EQ(Header().getXPriority(), 3U);
}

TEST(EMAIL_HeaderFields, MethodOfAReceivedInvitation)
{
    Header header(QCString("Content-Type: text/calendar; METHOD=\"REQUEST\"\r\n"), nullptr);
    header.parse();
    EXPECT_EQ(header.getMethod(), "REQUEST");
    EXPECT_EQ(header.getContentType()->getMethod(), "") << "only what setMethod stored";
    header.setMethod("REPLY");
    EXPECT_EQ(header.getMethod(), "REPLY");
    EXPECT_EQ(header.getContentType()->getMethod(), "REPLY");
}

TEST(EMAIL_HeaderFields, MethodOfOneOrTwoBytesIsTakenAsItIs)
{
    Header header(QCString("Content-Type: text/calendar; method=\"\"\r\n"), nullptr);
    header.parse();
    EXPECT_EQ(header.getMethod(), "\"\"");
}

TEST(EMAIL_HeaderFields, MethodCreatesTheContentTypeField)
{
    Header header;
    EXPECT_EQ(header.getMethod(), "");
    EXPECT_EQ(header.mFields.count(), 1);
    header.setMethod("REQUEST");
    EXPECT_EQ(header.getMethod(), "REQUEST");
    EXPECT_EQ(header.mFields.count(), 1);
}

} // namespace email_header_fields_test
