// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Body.h"

#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/text/Joined.h"
#include "utility/tree/StoredBody.h"
#include "utility/tree/TreeAssembler.h"
#include "utility/tree/TreeDeleter.h"
#include "utility/tree/TreeParser.h"

EMAIL_Body::EMAIL_Body() : EMAIL_Body(QCString(), nullptr) {}

EMAIL_Body::EMAIL_Body(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_BaseComponent(text, parent)
{
    mBodyParts.setAutoDelete(true);
}

EMAIL_Body::~EMAIL_Body()
{
    tarvomime::deleteChildren(*this);
}

// A text that is not rebuilt from parts is the body itself: it stands, whatever fails.
void EMAIL_Body::assemble()
{
    if (assemble(nullptr) != 0 && tarvomime::isRebuilt(*this))
        mString = tarvomime::refusedText();
}

void EMAIL_Body::parse()
{
    parse(mString.begin(), 0, mString.length(), QString());
}

void EMAIL_Body::setMessage(const QCString& text)
{
    EMAIL_BaseComponent::setMessage(text);
    mInMemory = true;
    mEncoded = true;
    mLength = text.length();
}

void EMAIL_Body::parse(const char* data, int start, int length, const QString& path)
{
    tarvomime::parseBody(*this, data, start, length, path);
}

int EMAIL_Body::assemble(QFile* file)
{
    return tarvomime::assembleBody(*this, file);
}

void EMAIL_Body::getBodyInfo(QString& path, int& offset, int& length, bool& encoded) const
{
    path = mFile;
    offset = mOffset;
    length = mLength;
    encoded = mEncoded;
}

void EMAIL_Body::setBodyInfo(const QString& path, int offset, int length, bool encoded)
{
    // What was refused is no longer the body.
    if (tarvomime::isRefused(mString))
        mString = QCString();
    mInMemory = false;
    mFile = path;
    mOffset = offset;
    mLength = length;
    mEncoded = encoded;
}

int EMAIL_Body::getBodyText(QCString& out) const
{
    if (mInMemory) {
        out = mString;
        return 0;
    }
    const auto text = tarvomime::storedBytes(*this).all();
    if (!text)
        return -1;
    out = QCString(*text);
    return 0;
}

int EMAIL_Body::numBodyParts() const
{
    return mBodyParts.count();
}

EMAIL_BodyPart* EMAIL_Body::bodyPart(int index) const
{
    return mBodyParts.at(index);
}

bool EMAIL_Body::insertBodyPart(EMAIL_BodyPart* part, int index)
{
    if (part == nullptr)
        return false;
    part->setParent(this);
    const int count = mBodyParts.count();
    return mBodyParts.insert(index < 0 || index > count ? count : index, part);
}

bool EMAIL_Body::removeBodyPart(int index)
{
    return mBodyParts.remove(index);
}
