// SPDX-License-Identifier: MIT
#include "tests/support/ReaderView.h"

#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <QTemporaryFile>
#include <vector>

namespace {

constexpr int typeText = 1;

QByteArray quoted(const QString& text)
{
    return printText(text.toUtf8());
}

// What `write` writes to a file.
template <typename Write>
QByteArray writtenBy(Write write)
{
    QTemporaryFile file;
    if (!file.open() || write(&file) != 0)
        return "cannot be written";
    file.seek(0);
    return file.readAll();
}

class Printer
{
public:
    QByteArray print(const EMAIL_MIME& message)
    {
        line(0, "seen");
        valueLine(1, "subject", message.getSubject(CHARSET_UNKNOWN));
        const int count = message.getAttachNum();
        line(1, QByteArray::number(count) + (count == 1 ? " attachment, " : " attachments, ") +
                    (message.hasAttachment() ? "marked" : "not marked"));
        textLines(message);
        EMAIL_MultiPart whole;
        EMAIL_MIME::entityToMulitPart(message.mMessage, whole);
        tree(whole, 1, "message");
        EMAIL_MultiPart enclosed;
        if (message.getType() == TYPE_MESSAGE && message.getMultiPart(0, enclosed))
            tree(enclosed, 2, "enclosed message");
        return mOut;
    }

private:
    struct Waiting
    {
        const EMAIL_MultiPart* part;
        const char* label;
        int depth;
    };

    void line(int depth, const QByteArray& text)
    {
        mOut += QByteArray(2 * depth, ' ') + text + '\n';
    }

    void valueLine(int depth, const QByteArray& label, const QString& value)
    {
        if (!value.isEmpty())
            line(depth, label + ' ' + quoted(value));
    }

    void textLines(const EMAIL_MIME& message)
    {
        QString text;
        message.getBody(text, CHARSET_UNKNOWN);
        valueLine(1, "message text", text);
        const QByteArray calendar =
            writtenBy([&message](QFile* file) { return message.getICalendar(file); });
        if (!calendar.isEmpty())
            line(1, "calendar " + printText(calendar));
    }

    void tree(const EMAIL_MultiPart& whole, int depth, const char* label)
    {
        mWaiting.push_back({&whole, label, depth});
        while (!mWaiting.empty()) {
            const Waiting next = mWaiting.back();
            mWaiting.pop_back();
            facts(*next.part, next.depth, next.label);
            body(*next.part, next.depth + 1);
            for (int i = next.part->getSubMultiPartCount() - 1; i >= 0; --i)
                mWaiting.push_back({next.part->getSubMultiPart(i), "part", next.depth + 1});
        }
    }

    void facts(const EMAIL_MultiPart& part, int depth, const char* label)
    {
        QByteArray type = label + (' ' + quoted(part.getTypeStr() + '/' + part.getSubTypeStr()));
        if (part.getCharset() != CHARSET_UNKNOWN)
            type += ", charset " + QByteArray::number(part.getCharset());
        line(depth, type + ", " + QByteArray(EMAIL_Util::cteEnumToStr(part.getCTE())));
        valueLine(depth + 1, "name", part.getName());
        const bool isAttachment = part.getDispType() != 0;
        if (isAttachment && part.getDispFileName().isEmpty())
            line(depth + 1, "attachment");
        valueLine(depth + 1, isAttachment ? "attachment" : "inline", part.getDispFileName());
        valueLine(depth + 1, "method", part.getMethod());
        valueLine(depth + 1, "id", part.getID());
    }

    void body(const EMAIL_MultiPart& part, int depth)
    {
        if (part.getType() == typeText) {
            QString text;
            part.getTextBody(text, CHARSET_UNKNOWN);
            valueLine(depth, "text", text);
            return;
        }
        const QByteArray bytes = writtenBy([&part](QFile* file) { return part.getBody(file); });
        if (!bytes.isEmpty())
            line(depth, "bytes " + printText(bytes));
    }

    QByteArray mOut;
    std::vector<Waiting> mWaiting;
};

} // namespace

QByteArray printReaderView(const EMAIL_MIME& message)
{
    return Printer().print(message);
}
