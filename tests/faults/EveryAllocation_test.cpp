// SPDX-License-Identifier: MIT
// Each operation on a tree, with its first allocation failing, then with its second, and so on to
// its last. Whatever happens, the tree can be read, assembled and freed afterwards, nothing leaks,
// and freeing takes no memory; or the program stops at an assertion that names what is missing.
#include "tests/faults/AllocationTrial.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DateTime.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <QFile>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <set>
#include <string>

namespace every_allocation_test {

namespace {

const QCString mixed("From: Ann <ann@example.org>\r\nTo: a@x, b@y, team: c@z\r\nSubject: s\r\n"
                     "Date: Mon, 1 Jan 2024 10:00:00 +0100\r\nX-One: 1\r\nX-Two: 2\r\n"
                     "Content-Type: multipart/mixed; boundary=b; x=1; y=2\r\n\r\n"
                     "--b\r\nContent-Type: multipart/related; boundary=i\r\n\r\n"
                     "--i\r\nA: 1\r\n\r\none\r\n--i\r\nA: 2\r\n\r\ntwo\r\n--i--\r\n"
                     "--b\r\nContent-Type: message/rfc822\r\n\r\nSubject: in\r\n\r\nbody\r\n"
                     "--b\r\nContent-Disposition: attachment; filename=f\r\n\r\nthree\r\n"
                     "--b--\r\n");

struct Row
{
    const char* name;
    bool isParsed;
    std::function<void(EMAIL_Message&)> action;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

void read(const EMAIL_Entity& entity)
{
    const EMAIL_Header& header = *entity.mHeader;
    header.getTo();
    header.getDate();
    header.getContentType();
    header.getContentDisposition();
    for (int i = 0; i < entity.mBody->numBodyParts(); ++i)
        read(*entity.mBody->bodyPart(i));
}

class TreeTrial : public AllocationTrial
{
public:
    explicit TreeTrial(const Row& row) : mRow(row), mMessage(mixed, nullptr)
    {
        if (row.isParsed)
            mMessage.parse();
    }

    void act() override { mRow.action(mMessage); }

    bool isUsable() override
    {
        read(mMessage);
        QFile nowhere(QStringLiteral("/dev/null"));
        return mMessage.assemble(nullptr) == 0 && nowhere.open(QIODevice::WriteOnly) &&
               mMessage.assemble(&nowhere) == 0;
    }

private:
    const Row& mRow;
    EMAIL_Message mMessage;
};

const std::set<std::string> assertions{
    "utility/EMAIL_Entity.cpp: EMAIL_Entity::EMAIL_Entity(): mHeader",
    "utility/EMAIL_Entity.cpp: EMAIL_Entity::EMAIL_Entity(): mBody",
    "utility/EMAIL_Entity.cpp: EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*): "
    "mHeader",
    "utility/EMAIL_Entity.cpp: EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*): "
    "mBody",
    "utility/EMAIL_Body.cpp: void EMAIL_Body::parse(const char*, int, int, const QString&): "
    "mMessage",
    "utility/EMAIL_Body.cpp: void EMAIL_Body::parse(const char*, int, int, const QString&): "
    "bodyPart",
    "utility/EMAIL_Header.cpp: static void EMAIL_Header::stripCFWS(const QCString&, QCString&): "
    "tmp",
    "utility/EMAIL_Header.cpp: EMAIL_Field* EMAIL_Header::createField(const QCString&): created",
    "utility/EMAIL_Header.cpp: EMAIL_Field* EMAIL_Header::field(const QCString&): mFields",
    "utility/EMAIL_Header.cpp: void EMAIL_Header::addField(EMAIL_Field*): mFields",
    "utility/EMAIL_Header.cpp: virtual void EMAIL_Header::parse(): mFields",
    "utility/EMAIL_AddrList.cpp: virtual void EMAIL_AddrList::parse(): g"};

class EveryAllocation : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(EveryAllocation, MayFail)
{
    expectEveryAllocationMayFail([] { return std::make_unique<TreeTrial>(GetParam()); },
                                 assertions);
}

namespace {

void addPlainField(EMAIL_Header& header, const char* name, const char* body)
{
    auto plain = std::unique_ptr<EMAIL_Field>(new (std::nothrow) EMAIL_Field);
    if (plain == nullptr)
        return;
    plain->mName = name;
    plain->mBody = body;
    header.addField(plain.release());
}

void insertPart(EMAIL_Body& body, int index)
{
    auto part = std::unique_ptr<EMAIL_BodyPart>(new (std::nothrow) EMAIL_BodyPart);
    if (part != nullptr && body.insertBodyPart(part.get(), index))
        part.release();
}

// Nothing to prepare, and nothing left behind: a file that could not be written is the caller's.
void assembleToAFile(EMAIL_Message& message)
{
    QFile out(QStringLiteral("/dev/null"));
    if (out.open(QIODevice::WriteOnly))
        message.assemble(&out);
}

void assembleInMemory(EMAIL_Message& message)
{
    const QCString before = message.getMessage();
    if (message.assemble(nullptr) != 0 && message.getMessage() != before)
        endTrialWithTextLost();
}

// Texts are made beforehand: an application's own copies are its own affair.
const QCString value("some value");

// The walk gets deeper after the text of a part could have been handed out. The list has room.
void assembleTheDeepestPartLast(EMAIL_Message& message)
{
    QPtrList<EMAIL_BodyPart>& parts = message.mBody->mBodyParts;
    parts.append(parts.take(0));
    const EMAIL_BodyPart& part = *parts.at(1);
    part.mBody->setMessage(value);
    const QCString before = part.getMessage();
    if (message.assemble(nullptr) != 0 && part.getMessage() != before)
        endTrialWithTextLost();
}

const StoredFile stored(mixed);
const QString path = stored.path();
const QCString addresses("a@x, B <b@y>, team: c@z");
QCString method("REQUEST");

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Walks, EveryAllocation,
    testing::Values(Row{"parse in memory", false, [](EMAIL_Message& m) { m.parse(); }},
                    Row{"parse in a file", false,
                        [](EMAIL_Message& m) { m.parse(mixed.begin(), 0, mixed.length(), path); }},
                    Row{"assemble in memory", true, assembleInMemory},
                    Row{"assemble the deepest part last", true, assembleTheDeepestPartLast},
                    Row{"assemble to a file", true, assembleToAFile},
                    Row{"assemble a header", true, [](EMAIL_Message& m) { m.mHeader->assemble(); }},
                    Row{"assemble a body", true, [](EMAIL_Message& m) { m.mBody->assemble(); }}));

INSTANTIATE_TEST_SUITE_P(
    Setters, EveryAllocation,
    testing::Values(
        Row{"To", true, [](EMAIL_Message& m) { m.mHeader->setTo(addresses); }},
        Row{"Cc, which is new", true, [](EMAIL_Message& m) { m.mHeader->setCc(addresses); }},
        Row{"Subject", true, [](EMAIL_Message& m) { m.mHeader->setSubject(value); }},
        Row{"X-Mailer, which is new", true, [](EMAIL_Message& m) { m.mHeader->setXMailer(value); }},
        Row{"Date", true, [](EMAIL_Message& m) { m.mHeader->setDate(1000000); }},
        Row{"transfer encoding", true, [](EMAIL_Message& m) { m.mHeader->setCte(5); }},
        Row{"description", true, [](EMAIL_Message& m) { m.mHeader->setContentDescription(value); }},
        Row{"method", true, [](EMAIL_Message& m) { m.mHeader->setMethod(method); }},
        Row{"attachment size", true, [](EMAIL_Message& m) { m.mHeader->setAttSize(100000); }},
        Row{"smart send", true, [](EMAIL_Message& m) { m.mHeader->setSmartSendInfo(1, 2, 3, 4); }},
        Row{"smart data", true, [](EMAIL_Message& m) { m.mHeader->getSmartData(); }},
        Row{"strip", true, [](EMAIL_Message&) {
                QCString out;
                EMAIL_Header::stripCFWS(value, out);
            }}));

INSTANTIATE_TEST_SUITE_P(
    Lists, EveryAllocation,
    testing::Values(
        Row{"add a field", true,
            [](EMAIL_Message& m) { addPlainField(*m.mHeader, "X-Three", "3"); }},
        Row{"replace a field", true,
            [](EMAIL_Message& m) { addPlainField(*m.mHeader, "Subject", "3"); }},
        Row{"put a typed field in the place of another", true,
            [](EMAIL_Message& m) {
                addPlainField(*m.mHeader, "Content-Disposition", "inline; filename=g");
                m.mHeader->contentDisposition();
            }},
        Row{"remove a field", true, [](EMAIL_Message& m) { m.mHeader->removeField("X-One"); }},
        Row{"make sendable", true, [](EMAIL_Message& m) { m.mHeader->asSendable(true); }},
        Row{"insert a part", true, [](EMAIL_Message& m) { insertPart(*m.mBody, 1); }},
        Row{"insert parts", true,
            [](EMAIL_Message& m) {
                insertPart(*m.mBody, 0);
                insertPart(*m.mBody, -1);
            }},
        Row{"remove a part", true, [](EMAIL_Message& m) { m.mBody->removeBodyPart(0); }}));

} // namespace every_allocation_test
