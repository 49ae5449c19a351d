// SPDX-License-Identifier: MIT
#include "utility/tree/TypeReader.h"

#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"

#include <memory>

namespace type_reader_test {

using tarvomime::TypeReader;

namespace {

std::unique_ptr<EMAIL_Header> headerOf(const QByteArray& type)
{
    const QByteArray text =
        type.isNull() ? QByteArray("Subject: a\r\n") : "Content-Type: " + type + "\r\n";
    auto header = std::make_unique<EMAIL_Header>(QCString(text), nullptr);
    header->parse();
    return header;
}

QByteArray summary(const EMAIL_ContentType* type)
{
    if (type == nullptr)
        return "none";
    QByteArray text = QByteArray(type->mType) + '/' + QByteArray(type->mSubType) + ' ' +
                      QByteArray::number(type->mTypeEnum) + ' ' +
                      QByteArray::number(type->mSubTypeEnum) + ' ' + QByteArray(type->mBoundary) +
                      ' ' + QByteArray::number(type->mParsed);
    for (auto it = type->mParams.constBegin(); it != type->mParams.constEnd(); ++it)
        text += ' ' + QByteArray(it.key()) + '=' + QByteArray(it.value());
    return text;
}

const char* const kTypes[] = {"text/plain",
                              "multipart/mixed; boundary=a; x=y",
                              "multipart/mixed; boundary=b",
                              "image/png; name=\"a b\"",
                              "",
                              "what/ever",
                              nullptr};

} // namespace

// Whatever was read before, and however often: what the field alone gives.
TEST(TypeReader, GivesWhatTheFieldSays)
{
    TypeReader reader;
    std::vector<std::unique_ptr<EMAIL_Header>> headers;
    for (int round = 0; round < 500; ++round) {
        const char* text = kTypes[(round * round / 3 + round / 7) % std::size(kTypes)];
        headers.push_back(headerOf(text));
        const auto alone = headerOf(text);
        EXPECT_EQ(summary(reader.read(*headers.back())), summary(alone->getContentType()))
            << round << ' ' << QByteArray(text).data();
    }
}

TEST(TypeReader, SharesWhatAnEqualFieldGave)
{
    TypeReader reader;
    const auto first = headerOf("text/plain; charset=utf-8");
    const auto second = headerOf("text/plain; charset=utf-8");
    const EMAIL_ContentType* one = reader.read(*first);
    const EMAIL_ContentType* two = reader.read(*second);
    ASSERT_NE(one, two);
    EXPECT_EQ(one->mType.begin(), two->mType.begin());
}

// A field that the application changed is not read again, and is no pattern for others.
TEST(TypeReader, LeavesChangedFieldsAlone)
{
    TypeReader reader;
    const auto changed = headerOf("text/plain");
    changed->contentType()->mSubType = "html";
    EXPECT_EQ(reader.read(*changed)->mSubType, "html");
    const auto same = headerOf("text/plain");
    EXPECT_EQ(reader.read(*same)->mSubType, "plain");
}

TEST(TypeReader, ForgetsFieldsBeforeTheyAreDeleted)
{
    TypeReader reader;
    auto first = headerOf("text/plain; charset=utf-8");
    reader.read(*first);
    reader.forget();
    first.reset();
    const auto second = headerOf("text/plain; charset=utf-8");
    EXPECT_EQ(summary(reader.read(*second)),
              summary(headerOf("text/plain; charset=utf-8")->getContentType()));
}

} // namespace type_reader_test
