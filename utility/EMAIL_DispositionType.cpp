// SPDX-License-Identifier: MIT
#include "utility/EMAIL_DispositionType.h"

#include "utility/header/TypedField.h"
#include "utility/text/Joined.h"
#include "utility/text/Tokens.h"

using namespace tarvomime;

namespace {

constexpr std::string_view kFileNameLabel = "; filename = ";

std::string_view kindOf(const EMAIL_DispositionType& field)
{
    return field.mIsAttachment != 0 ? "attachment" : "inline";
}

qint64 writtenSize(const EMAIL_DispositionType& field)
{
    return static_cast<qint64>(kindOf(field).size() + kFileNameLabel.size()) +
           field.mFileName.length();
}

} // namespace

EMAIL_DispositionType::EMAIL_DispositionType() : EMAIL_DispositionType(QCString(), nullptr) {}

EMAIL_DispositionType::EMAIL_DispositionType(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
}

EMAIL_DispositionType::~EMAIL_DispositionType() = default;

void EMAIL_DispositionType::assemble()
{
    if (mParsed == Rewritten) {
        if (mFileName.isEmpty())
            mFileName = QCString::fromLiteral("tmp");
        if (writtenSize(*this) > kLongestWrittenValue) {
            mString = refusedText();
            return;
        }
        mBody = joined({kindOf(*this), kFileNameLabel, mFileName.view()});
    }
    EMAIL_Field::assemble();
}

void EMAIL_DispositionType::parse()
{
    QCString type;
    QCString parameter;
    tarvomime::splitAtFirst(QCString::fromLiteral(";"), mBody, type, parameter, true);
    mIsAttachment = type.find(QCString::fromLiteral("attachment"), 0, false) >= 0 ? 1 : 0;
    const QCString equals = QCString::fromLiteral("=");
    if (parameter.find(equals) >= 0) {
        QCString name;
        QCString value;
        splitAtFirst(equals, parameter, name, value, true);
        mFileName = withoutQuotes(value);
    }
    mParsed = parsedState(mParsed, writtenSize(*this) > kLongestWrittenValue);
}

void EMAIL_DispositionType::setAttachment(int isAttachment)
{
    mIsAttachment = isAttachment;
    mParsed = 1;
}

void EMAIL_DispositionType::setFileName(const QCString& fileName)
{
    mFileName = fileName;
    mParsed = 1;
}

QCString EMAIL_DispositionType::getFileName() const
{
    return withoutQuotes(mFileName);
}
