// SPDX-License-Identifier: MIT
// The header of a part, and the members of EMAIL_MultiPart that stand for it.
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/codec/EncodedWordDecoder.h"
#include "utility/codec/EncodedWordEncoder.h"
#include "utility/codec/MediaTypes.h"
#include "utility/header/FieldNames.h"
#include "utility/text/Joined.h"
#include "utility/text/Latin1.h"

using namespace tarvomime;

namespace {

// 1. A value that only begins or only ends with a double quote is left alone too.
QCString quoted(const QCString& value)
{
    const bool hasQuote = value.at(0) == '"' || value.at(value.length() - 1) == '"';
    return hasQuote ? value : joined({"\"", value.view(), "\""});
}

QCString encodedWords(const QString& value, int charset)
{
    QCString wire;
    encodeWords(value, charset, wire);
    return wire;
}

QString decodedWords(const QCString& value)
{
    QString text;
    if (!value.isEmpty())
        decodeWords(value.view(), text, CHARSET_UNKNOWN);
    return text;
}

void writeContentType(const EMAIL_MultiPart& part, EMAIL_Header& header)
{
    const QCString type = toLatin1(part.mTypeStr);
    const QCString subType = toLatin1(part.mSubTypeStr);
    if (!type.isEmpty() && !subType.isEmpty()) {
        EMAIL_ContentType* field = header.contentType();
        field->setTypeStr(type);
        field->setSubTypeStr(subType);
        field->setCharset(part.mCharset);
        if (isContainer({part.mTypeEnum, part.mSubTypeEnum}))
            field->createBoundary();
    }
    if (!part.mMethod.isEmpty())
        header.contentType()->setMethod(toLatin1(part.mMethod));
    const QCString name = encodedWords(part.mName, part.mCharset);
    if (!name.isEmpty())
        header.contentType()->setName(quoted(name));
}

void writeDisposition(const EMAIL_MultiPart& part, EMAIL_Header& header)
{
    const QCString fileName = encodedWords(part.mDispFileName, part.mCharset);
    if (fileName.isEmpty())
        return;
    EMAIL_DispositionType* field = header.contentDisposition();
    field->setFileName(quoted(fileName));
    field->setAttachment(part.mDispType);
}

void writeDownloadState(const EMAIL_MultiPart& part, EMAIL_Header& header)
{
    if (!part.isAttDownloaded())
        header.setAttUndownloaded();
    if (!part.mASAttName.isEmpty())
        header.setASAttName(toLatin1(part.mASAttName));
    if (part.mAttSize >= 0)
        header.setAttSize(part.mAttSize);
    if (!part.mPartID.isEmpty())
        header.setPartID(toLatin1(part.mPartID));
}

// The Content-Type field; a missing one is created as text/plain. One of an application's own class
// is there: the typed field takes its text over.
EMAIL_ContentType* contentTypeOrPlainText(EMAIL_Header& header)
{
    const bool isMissing = header.getField(FieldName::contentType()) == nullptr;
    EMAIL_ContentType* field = header.contentType();
    if (isMissing) {
        field->setType(TYPE_TEXT);
        field->setSubType(SUBTYPE_PLAIN);
    }
    return field;
}

void readContentType(EMAIL_Header& header, EMAIL_MultiPart& part)
{
    EMAIL_ContentType* field = contentTypeOrPlainText(header);
    // The texts decide: numbers are derived from them again.
    part.setTypeStr(fromLatin1(field->mType));
    part.setSubTypeStr(fromLatin1(field->mSubType));
    QCString name;
    field->getName(name);
    if (!name.isEmpty())
        part.setName(decodedWords(name));
    const QCString method = header.getMethod();
    if (!method.isEmpty())
        part.setMethod(fromLatin1(method));
    part.setBoundary(fromLatin1(field->mBoundary));
    if (field->hasCharset())
        part.setCharset(field->getCharset());
}

void readDownloadState(const EMAIL_Header& header, EMAIL_MultiPart& part)
{
    if (!header.isAttDownloaded())
        part.setNoAttDownloaded();
    const QCString name = header.getASAttName();
    if (!name.isEmpty())
        part.setASAttName(fromLatin1(name));
    part.setAttSize(header.getAttSize());
    const QCString partId = header.getPartID();
    if (!partId.isEmpty())
        part.setPartID(fromLatin1(partId));
}

} // namespace

void EMAIL_MIME::setHeadFromMultiPart(const EMAIL_MultiPart& part, EMAIL_Header* header)
{
    if (header == nullptr)
        return;
    writeContentType(part, *header);
    header->setCte(part.mCTE);
    if (!part.mDescription.isEmpty())
        header->setContentDescription(toLatin1(part.mDescription));
    writeDisposition(part, *header);
    if (!part.mID.isEmpty())
        header->setContentId(toLatin1(part.mID));
    if (!part.mLocation.isEmpty())
        header->setContentLocation(toLatin1(part.mLocation));
    writeDownloadState(part, *header);
}

void EMAIL_MIME::setHeadToMultiPart(EMAIL_Header* header, EMAIL_MultiPart& part)
{
    if (header == nullptr)
        return;
    readContentType(*header, part);
    part.setDescription(fromLatin1(header->getContentDescription()));
    const int cte = header->getCte();
    part.setCTE(cte == CTE_UNKNOWN ? int(CTE_7BIT) : cte);
    if (const EMAIL_DispositionType* disposition = header->getContentDisposition()) {
        part.setDispFileName(decodedWords(disposition->getFileName()));
        part.setDispType(disposition->mIsAttachment);
    }
    part.setLocation(fromLatin1(header->getContentLocation()));
    part.setID(fromLatin1(header->getContentId()));
    readDownloadState(*header, part);
}
