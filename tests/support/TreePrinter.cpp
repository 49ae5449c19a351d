// SPDX-License-Identifier: MIT
#include "tests/support/TreePrinter.h"

#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <vector>

namespace {

constexpr int typeMultipart = 2;
constexpr int typeMessage = 3;
constexpr int typeApplication = 4;
constexpr int subTypeWapRelated = 71;
constexpr int subTypeWapMixed = 72;

bool isContainer(const EMAIL_ContentType* type)
{
    return type != nullptr &&
           (type->mTypeEnum == typeMultipart ||
            (type->mTypeEnum == typeApplication &&
             (type->mSubTypeEnum == subTypeWapRelated || type->mSubTypeEnum == subTypeWapMixed)));
}

bool isLineBreak(char c)
{
    return c == '\r' || c == '\n';
}

QByteArray trimmed(QByteArray text)
{
    while (!text.isEmpty() && isLineBreak(text.at(0)))
        text.remove(0, 1);
    while (!text.isEmpty() && isLineBreak(text.at(text.size() - 1)))
        text.chop(1);
    return text;
}

class Printer
{
public:
    Printer(EnclosedMessages enclosed, const QByteArray& fileContent)
        : mEnclosed(enclosed), mFileContent(fileContent)
    {
    }

    // Deep messages print as well: what is still to print waits on a list.
    QByteArray print(const EMAIL_Entity& message)
    {
        mWaiting.push_back({&message, "message", 0});
        while (!mWaiting.empty()) {
            const Waiting next = mWaiting.back();
            mWaiting.pop_back();
            line(next.depth, next.label);
            for (const EMAIL_Field* field : next.entity->mHeader->mFields)
                line(next.depth + 1,
                     "field " + printText(field->mName) + " = " + printText(field->mBody));
            body(next.entity->mHeader->getContentType(), *next.entity->mBody, next.depth + 1);
        }
        return mOut;
    }

private:
    struct Waiting
    {
        const EMAIL_Entity* entity;
        const char* label;
        int depth;
    };

    void line(int depth, const QByteArray& text)
    {
        mOut += QByteArray(2 * depth, ' ') + text + '\n';
    }

    QByteArray textOf(const EMAIL_Body& body) const
    {
        return body.mInMemory ? QByteArray(body.mString)
                              : mFileContent.mid(body.mOffset, body.mLength);
    }

    void body(const EMAIL_ContentType* type, const EMAIL_Body& body, int depth)
    {
        if (isContainer(type))
            multipart(body, depth);
        else if (type != nullptr && type->mTypeEnum == typeMessage)
            enclosedMessage(body, depth);
        else
            line(depth, textOf(body).isEmpty() ? "no text" : "text " + printText(textOf(body)));
    }

    void multipart(const EMAIL_Body& body, int depth)
    {
        line(depth, "multipart " + printText(body.mBoundary));
        for (int i = body.numBodyParts() - 1; i >= 0; --i)
            mWaiting.push_back({body.bodyPart(i), "part", depth + 1});
    }

    void enclosedMessage(const EMAIL_Body& body, int depth)
    {
        const bool parsed = mEnclosed == EnclosedMessages::Parsed;
        const QByteArray text = parsed ? textOf(body) : trimmed(textOf(body));
        line(depth, "message text " + printText(text));
        if (parsed && body.mMessage != nullptr)
            mWaiting.push_back({body.mMessage, "enclosed message", depth + 1});
    }

    EnclosedMessages mEnclosed;
    QByteArray mFileContent;
    QByteArray mOut;
    std::vector<Waiting> mWaiting;
};

} // namespace

QByteArray printTree(const EMAIL_Entity& message, EnclosedMessages enclosed,
                     const QByteArray& fileContent)
{
    return Printer(enclosed, fileContent).print(message);
}

QByteArray printText(QByteArray text)
{
    QByteArray out("\"");
    text.replace("\r\n", "\n");
    for (const char c : text) {
        if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else if (c == '\t')
            out += "\\t";
        else if (c == '"' || c == '\\')
            out += QByteArray("\\") + c;
        else if (c >= ' ' && c <= '~')
            out += c;
        else
            out += "\\x" + QByteArray(1, c).toHex();
    }
    return out + '"';
}
