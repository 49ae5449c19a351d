// SPDX-License-Identifier: MIT
// Every message of the collection goes through the whole interface of the applications, in memory
// and from its file: nothing crashes, nothing stays open, and both ways tell the same.
#include "tests/support/OpenResources.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <QDirIterator>
#include <QTemporaryFile>
#include <memory>

namespace whole_interface_test {

namespace {

using MessageGetter = QString (EMAIL_BasicMsg::*)(int) const;
using PlainGetter = QString (EMAIL_BasicMsg::*)() const;

constexpr MessageGetter decodingGetters[] = {
    &EMAIL_BasicMsg::getFrom,     &EMAIL_BasicMsg::getTo,      &EMAIL_BasicMsg::getCc,
    &EMAIL_BasicMsg::getBcc,      &EMAIL_BasicMsg::getReplyTo, &EMAIL_BasicMsg::getSubject,
    &EMAIL_BasicMsg::getFileName, &EMAIL_BasicMsg::getName};
constexpr PlainGetter plainGetters[] = {
    &EMAIL_BasicMsg::headerAsString, &EMAIL_BasicMsg::getSender,     &EMAIL_BasicMsg::getXMailer,
    &EMAIL_BasicMsg::getMimeVersion, &EMAIL_BasicMsg::getRawDateStr, &EMAIL_BasicMsg::getDateStr,
    &EMAIL_BasicMsg::getTypeStr,     &EMAIL_BasicMsg::getSubTypeStr, &EMAIL_BasicMsg::getMethod};

// Everything that a message tells, as lines.
class Transcript
{
public:
    explicit Transcript(const EMAIL_MIME& mime)
    {
        for (const MessageGetter get : decodingGetters)
            add((mime.*get)(CHARSET_ISO_8859_1).toUtf8());
        for (const PlainGetter get : plainGetters)
            add((mime.*get)().toUtf8());
        addNumbers(mime);
        addText(mime);
        addParts(mime);
    }

    const QByteArrayList& lines() const { return mLines; }

private:
    void add(const QByteArray& line) { mLines.append(line); }
    void add(qint64 number) { mLines.append(QByteArray::number(number)); }

    void addNumbers(const EMAIL_MIME& mime)
    {
        unsigned int numbers[3] = {};
        int type = 0;
        mime.getSmartSendInfo(numbers[0], numbers[1], numbers[2], type);
        QCString receipt;
        for (const int number :
             {mime.getXPriority(), mime.getType(), mime.getSubType(), mime.getCharset(),
              mime.getCTE(), mime.needReadReceipt(receipt), int(mime.getXSendDsn()), type,
              mime.getOperation(), mime.getBodySize(), mime.getBodyTruncated(),
              mime.getMultiPartCount(), int(mime.hasAttachment()), mime.getAttachNum(),
              int(mime.isCompleteMessage())})
            add(number);
        add(qint64(mime.getDate()));
        add(receipt);
        add(mime.getBoundary());
    }

    void addText(const EMAIL_MIME& mime)
    {
        QString text;
        QString id;
        add(mime.getBody(text, CHARSET_UTF_8));
        add(text.toUtf8());
        mime.getBodyPartId(id);
        add(id.toUtf8());
        mime.getCalendarPartId(id);
        add(id.toUtf8());
        addStreamed([&mime](QFile* file) { return mime.getBody(file); },
                    mime.getType() == TYPE_MESSAGE);
        addStreamed([&mime](QFile* file) { return mime.getICalendar(file); });
    }

    void addParts(const EMAIL_MIME& mime)
    {
        for (int i = 0; i <= mime.getMultiPartCount(); ++i) {
            EMAIL_MultiPart part(nullptr);
            // A message enclosed in a file is not parsed, so only memory knows it as a part.
            if (mime.getType() != TYPE_MESSAGE && mime.getMultiPart(i, part))
                addPart(part, 0);
        }
    }

    // Recursion is fine here: nothing in the collection nests deeper than a stack holds.
    void addPart(const EMAIL_MultiPart& part, int level)
    {
        add(level);
        for (const QString& text : {part.mTypeStr, part.mSubTypeStr, part.mName, part.mDispFileName,
                                    part.mDescription, part.mLocation, part.mID, part.mMethod,
                                    part.mASAttName, part.mPartID, part.mBoundary})
            add(text.toUtf8());
        for (const int number : {part.mTypeEnum, part.mSubTypeEnum, part.mCTE, part.mCharset,
                                 part.mDispType, int(part.mAttDownloaded), part.mAttSize})
            add(number);
        // Line breaks around an enclosed message are dropped in a file only.
        if (part.mTypeEnum != TYPE_MESSAGE) {
            QString text;
            add(part.getSize());
            add(part.getTextBody(text, CHARSET_UTF_8));
            add(text.toUtf8());
        }
        addStreamed([&part](QFile* file) { return part.getBody(file); },
                    part.mTypeEnum == TYPE_MESSAGE);
        for (int i = 0; i < part.getSubMultiPartCount(); ++i)
            addPart(*part.getSubMultiPart(i), level + 1);
    }

    template <class Write>
    void addStreamed(const Write& write, bool trimmed = false)
    {
        static QTemporaryFile target;
        if (!target.isOpen())
            target.open();
        target.resize(0);
        target.seek(0);
        add(write(&target));
        target.seek(0);
        const QByteArray bytes = target.readAll();
        add(trimmed ? bytes.trimmed() : bytes);
    }

    QByteArrayList mLines;
};

void expectEqual(const QByteArrayList& inMemory, const QByteArrayList& inFile)
{
    ASSERT_EQ(inMemory.size(), inFile.size());
    for (int i = 0; i < inMemory.size(); ++i)
        ASSERT_EQ(inMemory[i], inFile[i]) << "line " << i;
}

QByteArray assembledToFile(EMAIL_MIME& mime, int& result)
{
    QTemporaryFile target;
    if (!target.open())
        return {};
    result = mime.assemble(&target);
    target.seek(0);
    return target.readAll();
}

void walk(const QByteArray& bytes)
{
    EMAIL_MIME inMemory(bytes);
    const Transcript memoryTells(inMemory);
    const StoredFile stored(bytes);
    const OpenResources before = OpenResources::of(stored.path());
    {
        EMAIL_MIME inFile;
        ASSERT_EQ(inFile.parse(stored.path()), bytes.isEmpty() ? -1 : 0);
        // In memory a text ends at its first NUL, and a length counts up to there.
        const Transcript fileTells(inFile);
        if (!bytes.contains('\0'))
            expectEqual(memoryTells.lines(), fileTells.lines());
        int result = -1;
        assembledToFile(inFile, result);
        EXPECT_EQ(result, 0);
        inFile.makeHeaderSendable();
        assembledToFile(inFile, result);
        EXPECT_EQ(result, 0);
    }
    EXPECT_EQ(OpenResources::of(stored.path()), before);
    const EMAIL_MIME again{QByteArray(inMemory.assemble())};
    const Transcript assembledTells(again);
    inMemory.makeHeaderSendable();
    inMemory.assemble();
}

} // namespace

TEST(WholeInterface, ReadsEveryMessageOfTheCollection)
{
    if (!QDir(QStringLiteral(TARVOMIME_CORPUS_DIR)).exists())
        GTEST_SKIP() << "no messages in " << TARVOMIME_CORPUS_DIR;
    int count = 0;
    QDirIterator files(QStringLiteral(TARVOMIME_CORPUS_DIR), QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        SCOPED_TRACE(path.toStdString());
        walk(contentOf(path));
        ++count;
    }
    EXPECT_GT(count, 0);
    RecordProperty("messages", count);
}

} // namespace whole_interface_test
