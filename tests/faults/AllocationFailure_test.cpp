// SPDX-License-Identifier: MIT
// When a component cannot get its children, the program stops through the C library's assertion
// handler, whose message names the source file, the function's signature and the member.
#include "tests/faults/FailingNew.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <functional>
#include <string>

namespace allocation_failure_test {

namespace {

struct FailureRow
{
    const char* name;
    const char* file;
    const char* signature;
    const char* assertion;
    std::size_t failingSize;
    int skipped;
    std::function<void()> action;
};

void PrintTo(const FailureRow& row, std::ostream* out)
{
    *out << row.name;
}

class AllocationFailure : public testing::TestWithParam<FailureRow>
{
};

std::string escaped(const std::string& text)
{
    std::string pattern;
    for (const char c : text) {
        if (std::string("()*&[]+.").find(c) != std::string::npos)
            pattern += '\\';
        pattern += c;
    }
    return pattern;
}

void parseMessageType()
{
    EMAIL_Message message(QCString("Content-Type: message/rfc822\n\nA: 1\n\nx"), nullptr);
    failNothrowNew(sizeof(EMAIL_Message));
    message.parse();
}

void parseMultipart()
{
    EMAIL_Message message(QCString("Content-Type: multipart/mixed; boundary=b\n\n--b\nx\n--b--\n"),
                          nullptr);
    failNothrowNew(sizeof(EMAIL_BodyPart));
    message.parse();
}

void parseAddresses(const char* body)
{
    EMAIL_AddrList list;
    list.mBody = body;
    list.parse();
}

void stripLongText()
{
    QCString out;
    const QCString in(QByteArray(996, 'x'));
    failNothrowNew(997);
    EMAIL_Header::stripCFWS(in, out);
}

void useEmptyHandle(const std::function<void(EMAIL_MIME&)>& action)
{
    EMAIL_MIME mime;
    delete mime.mMessage;
    mime.mMessage = nullptr;
    failNothrowNew(sizeof(EMAIL_Message));
    action(mime);
}

void convertPart(int type)
{
    EMAIL_Message message;
    EMAIL_MultiPart part(nullptr);
    part.setType(type);
    failNothrowNew(sizeof(EMAIL_BodyPart));
    EMAIL_MIME::mulitPartToEntity(part, message, 0);
}

void convertEntity()
{
    EMAIL_Message message(QCString("Content-Type: multipart/mixed; boundary=b\n\n--b\nx\n--b--\n"),
                          nullptr);
    message.parse();
    EMAIL_MultiPart part(nullptr);
    failNothrowNew(sizeof(EMAIL_MultiPart));
    EMAIL_MIME::entityToMulitPart(&message, part);
}

constexpr const char* entityDefault = "EMAIL_Entity::EMAIL_Entity()";
constexpr const char* entityFromText =
    "EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*)";

} // namespace

TEST_P(AllocationFailure, StopsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "fast");
    const FailureRow& row = GetParam();
    const std::string message = std::string(row.file) + ":[0-9]+: " + escaped(row.signature) +
                                ": Assertion `" + row.assertion + "' failed\\.";
    EXPECT_DEATH(
        {
            if (row.failingSize != 0)
                failNothrowNew(row.failingSize, row.skipped);
            row.action();
        },
        // In front of the file's name stands the program's, never a folder.
        "(^|: )" + message);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AllocationFailure,
    testing::Values(FailureRow{"header of a new entity", "utility/EMAIL_Entity\\.cpp",
                               entityDefault, "mHeader", sizeof(EMAIL_Header), 0,
                               [] { EMAIL_Message(); }},
                    FailureRow{"body of a new entity", "utility/EMAIL_Entity\\.cpp", entityDefault,
                               "mBody", sizeof(EMAIL_Body), 0, [] { EMAIL_Message(); }},
                    FailureRow{"header of an entity with text", "utility/EMAIL_Entity\\.cpp",
                               entityFromText, "mHeader", sizeof(EMAIL_Header), 0,
                               [] { EMAIL_Message(QCString("x"), nullptr); }},
                    FailureRow{"body of an entity with text", "utility/EMAIL_Entity\\.cpp",
                               entityFromText, "mBody", sizeof(EMAIL_Body), 0,
                               [] { EMAIL_Message(QCString("x"), nullptr); }},
                    FailureRow{"enclosed message", "utility/EMAIL_Body\\.cpp",
                               "void EMAIL_Body::parse(const char*, int, int, const QString&)",
                               "mMessage", 0, 0, parseMessageType},
                    FailureRow{"part of a multipart body", "utility/EMAIL_Body\\.cpp",
                               "void EMAIL_Body::parse(const char*, int, int, const QString&)",
                               "bodyPart", 0, 0, parseMultipart},
                    FailureRow{"work buffer", "utility/EMAIL_Header\\.cpp",
                               "static void EMAIL_Header::stripCFWS(const QCString&, QCString&)",
                               "tmp", 0, 0, stripLongText},
                    FailureRow{"mailbox", "utility/EMAIL_AddrList\\.cpp",
                               "virtual void EMAIL_AddrList::parse()", "g", sizeof(EMAIL_Address),
                               0, [] { parseAddresses("a@x"); }},
                    FailureRow{"second mailbox", "utility/EMAIL_AddrList\\.cpp",
                               "virtual void EMAIL_AddrList::parse()", "g", sizeof(EMAIL_Address),
                               1, [] { parseAddresses("a@x, b@y"); }},
                    FailureRow{"address group", "utility/EMAIL_AddrList\\.cpp",
                               "virtual void EMAIL_AddrList::parse()", "g", sizeof(EMAIL_Address),
                               0, [] { parseAddresses("team: a@x"); }}));

INSTANTIATE_TEST_SUITE_P(
    Messages, AllocationFailure,
    testing::Values(
        FailureRow{"new message", "utility/EMAIL_BasicMsg\\.cpp",
                   "EMAIL_BasicMsg::EMAIL_BasicMsg()", "mMessage", sizeof(EMAIL_Message), 0,
                   [] { EMAIL_BasicMsg(); }},
        FailureRow{"message from text", "utility/EMAIL_BasicMsg\\.cpp",
                   "EMAIL_BasicMsg::EMAIL_BasicMsg(const QString&)", "mMessage",
                   sizeof(EMAIL_Message), 0, [] { EMAIL_BasicMsg(QStringLiteral("x")); }},
        FailureRow{"message from bytes", "utility/EMAIL_BasicMsg\\.cpp",
                   "EMAIL_BasicMsg::EMAIL_BasicMsg(const QByteArray&)", "mMessage",
                   sizeof(EMAIL_Message), 0, [] { EMAIL_BasicMsg(QByteArray("x")); }},
        FailureRow{"message for a part that is added", "utility/EMAIL_MIME\\.cpp",
                   "void EMAIL_MIME::addMultiPart(const EMAIL_MultiPart&, int)", "mMessage", 0, 0,
                   [] {
                       useEmptyHandle([](EMAIL_MIME& mime) {
                           mime.addMultiPart(EMAIL_MultiPart(nullptr), 0);
                       });
                   }},
        FailureRow{"message for a part that is set", "utility/EMAIL_MIME\\.cpp",
                   "bool EMAIL_MIME::setMultiPart(const EMAIL_MultiPart&, int, bool)", "mMessage",
                   0, 0,
                   [] {
                       useEmptyHandle([](EMAIL_MIME& mime) {
                           mime.setMultiPart(EMAIL_MultiPart(nullptr), 0, true);
                       });
                   }},
        FailureRow{"body part of a container", "utility/EMAIL_MIME\\.cpp",
                   "void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart&, EMAIL_Entity&, int)",
                   "bodyPart", 0, 0, [] { convertPart(TYPE_MULTIPART); }},
        FailureRow{"body part of a leaf", "utility/EMAIL_MIME\\.cpp",
                   "void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart&, EMAIL_Entity&, int)",
                   "bodyPart", 0, 0, [] { convertPart(TYPE_TEXT); }},
        FailureRow{"sub-part", "utility/EMAIL_MIME\\.cpp",
                   "void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity*, EMAIL_MultiPart&)",
                   "subMulitPart", 0, 0, convertEntity}));

} // namespace allocation_failure_test
