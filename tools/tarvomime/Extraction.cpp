// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Extraction.h"

#include "extra/AttachmentName.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Entity.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

namespace tarvomime::tool {

namespace {

constexpr qint64 kReleaseStep = 16 << 20;

// What is neither shown as text nor stands beside it for programs only.
bool isFile(PartRole role)
{
    return role == PartRole::Attachment || role == PartRole::Message || role == PartRole::Inline ||
           role == PartRole::Invitation;
}

QString fallbackName(const QByteArray& number, const QByteArray& type)
{
    const QString name = number.isEmpty() ? "part" : "part-" + QString::fromLatin1(number);
    QString extension;
    EMAIL_Util::getExtionBySubType(
        EMAIL_Util::subTypeStrToEnum(QCString(type.mid(type.indexOf('/') + 1))), extension);
    if (extension.isEmpty() && type.startsWith("text/"))
        extension = type == "text/html" ? "html" : "txt";
    return extension.isEmpty() ? name : name + '.' + extension;
}

} // namespace

Extraction::Extraction(Mail& mail, const ExtractOptions& options, TargetFolder* folder,
                       Session& session)
    : mMail(mail), mContent(mail.content()), mOptions(options), mFolder(folder), mSession(session)
{
    const InputFile& file = *mail.place().file;
    file.release(file.size());
}

void Extraction::run()
{
    if (mOptions.part.empty())
        extractMany();
    else
        extractNumber();
}

void Extraction::extractNumber()
{
    const int index = findPart(mContent, mOptions.part.c_str());
    if (index < 0)
        complain("has no part numbered " + mOptions.part);
    else if (holdsParts(index))
        complain("part " + mOptions.part + " holds parts, no bytes of its own");
    else
        extractPart(index);
}

void Extraction::extractMany()
{
    // An enclosed message is written whole: its parts are in it.
    for (int index = 0; index < mContent.parts.size() && !wasInterrupted(); ++index) {
        const ContentPart& part = mContent.parts[index];
        if (part.message == 0 && !holdsParts(index) && (mOptions.all || isFile(part.role)))
            extractPart(index);
    }
}

bool Extraction::holdsParts(int index) const
{
    return mContent.parts[index].entity->mBody->numBodyParts() > 0;
}

void Extraction::extractPart(int index)
{
    const EMAIL_Entity& entity = *mContent.parts[index].entity;
    if (!entity.mHeader->isAttDownloaded())
        complain("the part numbered " + partNumber(mContent, index).toStdString() +
                 " was left on the server");
    else if (mFolder != nullptr)
        writeFile(index);
    else if (!decode(entity, mSession.output(), nullptr) && !wasInterrupted())
        mSession.complainOfOutput(mSession.output().errorString().toStdString());
}

void Extraction::writeFile(int index)
{
    const ContentPart& part = mContent.parts[index];
    const QByteArray number = partNumber(mContent, index);
    WatchedFile target;
    const Result<QString> created =
        mFolder->create(attachmentName(*part.entity->mHeader, mMail.fallback()), target,
                        fallbackName(number, part.type));
    if (!created) {
        mSession.complain(mOptions.out, created.reason().toStdString());
        return;
    }
    const std::string path = mOptions.out + '/' + created->toStdString();
    ProgressBar bar(created->toStdString(), part.entity->mBody->mString.length());
    target.setBar(&bar);
    if (decode(*part.entity, target, &bar)) {
        mSession.print(number + "  " + printableLine(path) + '\n');
        return;
    }
    (void)mFolder->remove(*created); // what stopped the writing is what the user needs to know
    if (!wasInterrupted())
        mSession.complain(path, target.errorString().toStdString());
}

// What was decoded is not needed again: a large attachment must not fill the memory. Every
// encoding has at least as many bytes as what it stands for.
bool Extraction::decode(const EMAIL_Entity& entity, QFile& target, ProgressBar* bar)
{
    const QCString& body = entity.mBody->mString;
    const InputFile& file = *mMail.place().file;
    const qint64 offset = body.begin() - file.data();
    const bool isMapped = offset >= 0 && offset <= file.size();
    qint64 released = 0;
    const auto proceed = [&] {
        if (isMapped && bar != nullptr && bar->done() - released >= kReleaseStep) {
            released = bar->done();
            file.release(offset + released);
        }
        return stopWhenInterrupted();
    };
    const int cte = entity.mHeader->getCte();
    return EMAIL_Util::decFromCTE(body.begin(), body.length(), &target, cte, proceed) == 0 &&
           target.flush();
}

void Extraction::complain(const std::string& reason)
{
    mSession.complain(mMail.name(), reason);
}

} // namespace tarvomime::tool
