// SPDX-License-Identifier: MIT
// Each operation of the classes that applications use, with every allocation failing in turn. A
// body that could not be encoded makes the assembly fail until it is set again or taken away.
#include "tests/faults/AllocationTrial.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/EMAIL_Util.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sys/mman.h>

namespace every_allocation_of_the_api_test {

namespace {

const QByteArray tree("From: Ann <ann@example.org>\r\nTo: a@x, b@y\r\nSubject: =?utf-8?B?zrE=?=\r\n"
                      "Date: Mon, 1 Jan 2024 10:00:00 +0100\r\nX-QRN-DSN: 1\r\n"
                      "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
                      "--b\r\nContent-Type: multipart/alternative; boundary=i\r\n\r\n"
                      "--i\r\nContent-Type: text/plain; charset=utf-8\r\nX-MESSAGE-PARTID: 7\r\n"
                      "Content-Transfer-Encoding: base64\r\n\r\nzrE=\r\n"
                      "--i\r\nContent-Type: text/calendar; method=REQUEST\r\n\r\nBEGIN\r\n--i--\r\n"
                      "--b\r\nA: 1\r\n\r\nuntyped\r\n"
                      "--b\r\nContent-Type: image/png; name=n\r\nContent-Description: d\r\n"
                      "Content-Disposition: attachment; filename=f\r\n\r\nthree\r\n"
                      "--b--\r\n");
const QByteArray single("Subject: s\r\nContent-Type: text/plain; charset=utf-8; name=n\r\n"
                        "Content-Disposition: inline; filename=f\r\n"
                        "Content-Transfer-Encoding: quoted-printable\r\n\r\n=CE=B1 text\r\n");
const QByteArray enclosing("Content-Type: message/rfc822\r\n\r\nSubject: in\r\n\r\nbody\r\n");

const QByteArray clashing("Content-Type: multipart/mixed; boundary=b\r\n\r\n"
                          "--b\r\nContent-Type: multipart/mixed; boundary=-\r\n\r\n"
                          "---\r\nA: 1\r\n\r\none\r\n-----\r\n"
                          "--b\r\nContent-Type: multipart/mixed; boundary=bc\r\n\r\n--b--\r\n");

struct Row
{
    const char* name;
    QByteArray message;
    void (*action)(EMAIL_MIME&, EMAIL_MultiPart&);
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

EMAIL_MultiPart leafOf(const char* type, const QByteArray& body)
{
    EMAIL_MultiPart part;
    part.setType(TYPE_TEXT);
    part.setSubTypeStr(QLatin1String(type));
    part.setBody(body, true);
    part.setName(QStringLiteral("n"));
    part.setDispFileName(QStringLiteral("f"));
    part.setID(QStringLiteral("<i>"));
    part.setPartID(QStringLiteral("3"));
    return part;
}

// A container of two leaves and a container.
void fill(EMAIL_MultiPart& part)
{
    part.setType(TYPE_MULTIPART);
    part.setSubType(SUBTYPE_MIXED);
    for (const char* type : {"plain", "html"})
        part.addSubMultiPart(new EMAIL_MultiPart(leafOf(type, "text")), -1);
    auto* inner = new EMAIL_MultiPart;
    inner->setType(TYPE_MULTIPART);
    inner->setSubType(SUBTYPE_ALTERNATIVE);
    inner->addSubMultiPart(new EMAIL_MultiPart(leafOf("plain", "inner")), 0);
    part.addSubMultiPart(inner, 1);
}

class ApiTrial : public AllocationTrial
{
public:
    explicit ApiTrial(const Row& row) : mRow(row), mMessage(row.message) { fill(mPart); }

    void act() override { mRow.action(mMessage, mPart); }

    bool isUsable() override
    {
        read();
        if (assembles())
            return true;
        act();
        while (!assembles() && mMessage.removeMultiPart(0))
            continue;
        return assembles();
    }

private:
    void read()
    {
        mMessage.hasAttachment();
        mMessage.getAttachNum();
        mMessage.isCompleteMessage();
        QString text;
        mMessage.getBody(text, 0);
        mMessage.getDateStr();
        for (int i = 0; i < mMessage.getMultiPartCount(); ++i) {
            EMAIL_MultiPart part;
            mMessage.getMultiPart(i, part);
        }
        const EMAIL_MultiPart copy(mPart);
    }

    bool assembles()
    {
        QFile nowhere(QStringLiteral("/dev/null"));
        return mMessage.mMessage->assemble(nullptr) == 0 && nowhere.open(QIODevice::WriteOnly) &&
               mMessage.assemble(&nowhere) == 0;
    }

    const Row& mRow;
    EMAIL_MIME mMessage;
    EMAIL_MultiPart mPart;
};

const std::string mime("utility/EMAIL_MIME.cpp: ");
const std::string header("utility/EMAIL_Header.cpp: ");
const std::string entity("utility/EMAIL_Entity.cpp: ");
const std::set<std::string> assertions{
    entity + "EMAIL_Entity::EMAIL_Entity(): mHeader",
    entity + "EMAIL_Entity::EMAIL_Entity(): mBody",
    entity + "EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*): mHeader",
    entity + "EMAIL_Entity::EMAIL_Entity(const QCString&, EMAIL_BaseComponent*): mBody",
    mime + "void EMAIL_MIME::mulitPartToEntity(const EMAIL_MultiPart&, EMAIL_Entity&, int): "
           "bodyPart",
    mime + "void EMAIL_MIME::entityToMulitPart(const EMAIL_Entity*, EMAIL_MultiPart&): "
           "subMulitPart",
    header + "static void EMAIL_Header::stripCFWS(const QCString&, QCString&): tmp",
    header + "EMAIL_Field* EMAIL_Header::createField(const QCString&): created",
    header + "EMAIL_Field* EMAIL_Header::field(const QCString&): mFields",
    header + "void EMAIL_Header::addField(EMAIL_Field*): mFields",
    header + "virtual void EMAIL_Header::parse(): mFields",
    "utility/EMAIL_Body.cpp: void EMAIL_Body::parse(const char*, int, int, const QString&): "
    "mMessage",
    "utility/EMAIL_Body.cpp: void EMAIL_Body::parse(const char*, int, int, const QString&): "
    "bodyPart",
    "utility/EMAIL_BasicMsg.cpp: EMAIL_BasicMsg::EMAIL_BasicMsg(): mMessage",
    "utility/EMAIL_BasicMsg.cpp: EMAIL_BasicMsg::EMAIL_BasicMsg(const QString&): mMessage",
    "utility/EMAIL_BasicMsg.cpp: EMAIL_BasicMsg::EMAIL_BasicMsg(const QByteArray&): mMessage",
    "utility/EMAIL_AddrList.cpp: virtual void EMAIL_AddrList::parse(): g"};

class EveryAllocationOfTheApi : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(EveryAllocationOfTheApi, MayFail)
{
    expectEveryAllocationMayFail([] { return std::make_unique<ApiTrial>(GetParam()); }, assertions);
}

namespace {

using M = EMAIL_MIME;
using P = EMAIL_MultiPart;

// Made beforehand: an application's own texts are its own affair.
const QString ascii(QStringLiteral("Ann <ann@example.org>, b@y"));
const QString greek(QString::fromUtf8("\xce\xb1\xce\xb2 text"));
const QByteArray data("some bytes \xff\x01 and a long line of text");
const StoredFile stored(tree);
const QString path = stored.path();
const QCString headerText("X-More: 1\r\nCc: d@z\r\n");

bool hasBoundary(const M& message, int index, const char* boundary)
{
    const EMAIL_BodyPart& part = *message.mMessage->mBody->bodyPart(index);
    return part.mHeader->getContentType()->mBoundary == boundary;
}

void writeTo(const std::function<void(QFile*)>& write)
{
    QFile nowhere(QStringLiteral("/dev/null"));
    if (nowhere.open(QIODevice::WriteOnly))
        write(&nowhere);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    HeaderSetters, EveryAllocationOfTheApi,
    testing::Values(Row{"From", tree, [](M& m, P&) { m.setFrom(greek); }},
                    Row{"To", tree, [](M& m, P&) { m.setTo(ascii); }},
                    Row{"Cc", tree, [](M& m, P&) { m.setCc(ascii); }},
                    Row{"Bcc", tree, [](M& m, P&) { m.setBcc(greek); }},
                    Row{"Reply-To", tree, [](M& m, P&) { m.setReplyTo(greek); }},
                    Row{"Sender", tree, [](M& m, P&) { m.setSender(ascii); }},
                    Row{"Subject", tree, [](M& m, P&) { m.setSubject(greek); }},
                    Row{"X-Mailer", tree, [](M& m, P&) { m.setXMailer(ascii); }},
                    Row{"Mime-Version", tree, [](M& m, P&) { m.setMimeVersion(ascii); }},
                    Row{"Date", tree, [](M& m, P&) { m.setDate(1000000); }},
                    Row{"X-Priority", tree, [](M& m, P&) { m.setXPriority(1); }},
                    Row{"type", single, [](M& m, P&) { m.setType(TYPE_TEXT); }},
                    Row{"subtype", single, [](M& m, P&) { m.setSubType(SUBTYPE_PLAIN); }},
                    Row{"type text", single, [](M& m, P&) { m.setTypeStr(ascii); }},
                    Row{"subtype text", single, [](M& m, P&) { m.setSubTypeStr(ascii); }},
                    Row{"charset", single, [](M& m, P&) { m.setCharset(CHARSET_ISO_8859_1); }},
                    Row{"transfer encoding", tree, [](M& m, P&) { m.setCTE(CTE_BASE64); }},
                    Row{"method", single, [](M& m, P&) { m.setMethod(ascii); }},
                    Row{"receipt", tree, [](M& m, P&) { m.addReceiptRequest(ascii); }},
                    Row{"no receipt", tree, [](M& m, P&) { m.removeReceiptRequest(); }},
                    Row{"delivery notification", single, [](M& m, P&) { m.setXSendDsn(true); }},
                    Row{"no delivery notification", tree, [](M& m, P&) { m.setXSendDsn(false); }},
                    Row{"smart send", tree, [](M& m, P&) { m.setSmartSendInfo(1, 2, 3, 4); }},
                    Row{"no smart data", tree, [](M& m, P&) { m.removeSmartDataInfo(); }},
                    Row{"body size", tree, [](M& m, P&) { m.setBodySize(7); }},
                    Row{"truncated", tree, [](M& m, P&) { m.setBodyTruncated(1); }},
                    Row{"not truncated", tree, [](M& m, P&) { m.removeBodyTruncatedInfo(); }},
                    Row{"header", tree, [](M& m, P&) { m.setHeader(headerText); }},
                    Row{"default fields", tree, [](M& m, P&) { m.setDefaultFileds(); }},
                    // What it lets out ends the program.
                    Row{"unique boundaries", tree,
                        [](M& m, P&) noexcept { m.makeBoundariesUnique(); }},
                    Row{"fresh boundaries", clashing,
                        [](M& m, P&) noexcept {
                            const bool isDone = m.makeBoundariesUnique() == 0;
                            if (hasBoundary(m, 0, "-") == isDone ||
                                hasBoundary(m, 1, "bc") == isDone)
                                endTrialWithTextLost();
                        }},
                    Row{"sendable", tree, [](M& m, P&) { m.makeHeaderSendable(); }},
                    Row{"enclosed sendable", enclosing, [](M& m, P& p) {
                            m.addMultiPart(p, 0);
                            m.makeHeaderSendable();
                        }}));

INSTANTIATE_TEST_SUITE_P(
    Bodies, EveryAllocationOfTheApi,
    testing::Values(Row{"text", single, [](M& m, P&) { m.setBody(greek, true); }},
                    Row{"ASCII text", single, [](M& m, P&) { m.setBody(ascii, true); }},
                    Row{"text as it is", single, [](M& m, P&) { m.setBody(ascii, false); }},
                    Row{"bytes", single, [](M& m, P&) { m.setBody(data); }},
                    Row{"bytes without a type", "A: 1\r\n\r\n", [](M& m, P&) { m.setBody(data); }},
                    Row{"raw body of a part", tree, [](M& m, P&) { m.setRawBody(path); }},
                    Row{"raw body", single, [](M& m, P&) { m.setRawBody(path); }},
                    Row{"reply", single, [](M&, P&) { M::newMessage(tree.constData(), greek, 0); }},
                    Row{"text of a part", tree,
                        [](M& m, P&) {
                            P part;
                            part.setBody(greek, true);
                            m.addMultiPart(part, -1);
                        }},
                    Row{"bytes of a part", tree,
                        [](M& m, P&) {
                            P part;
                            part.setBody(data, false);
                            m.addMultiPart(part, -1);
                        }},
                    Row{"file of a part", tree,
                        [](M& m, P&) {
                            P part;
                            part.setBodyInfo(path, 0, 10, false);
                            m.addMultiPart(part, -1);
                        }},
                    Row{"invitation", tree, [](M& m, P&) {
                            P text;
                            P calendar;
                            M::getIcsPart(path, greek, ascii, &text, &calendar);
                            m.addMultiPart(text, -1);
                            m.addMultiPart(calendar, -1);
                        }}));

INSTANTIATE_TEST_SUITE_P(
    PartSetters, EveryAllocationOfTheApi,
    testing::Values(Row{"type", tree, [](M&, P& p) { p.setType(TYPE_MULTIPART); }},
                    Row{"type text", tree, [](M&, P& p) { p.setTypeStr(ascii); }},
                    Row{"subtype", tree, [](M&, P& p) { p.setSubType(SUBTYPE_MIXED); }},
                    Row{"subtype text", tree, [](M&, P& p) { p.setSubTypeStr(ascii); }},
                    Row{"texts", tree,
                        [](M&, P& p) {
                            p.setName(ascii);
                            p.setDispFileName(greek);
                            p.setDescription(ascii);
                            p.setLocation(ascii);
                            p.setID(ascii);
                            p.setMethod(ascii);
                            p.setASAttName(ascii);
                            p.setPartID(ascii);
                            p.setBoundary(ascii);
                        }},
                    Row{"text", tree, [](M&, P& p) { p.setBody(greek, true); }},
                    Row{"text as it is", tree, [](M&, P& p) { p.setBody(ascii, false); }},
                    Row{"bytes", tree, [](M&, P& p) { p.setBody(data, false); }},
                    Row{"encoded bytes", tree, [](M&, P& p) { p.setBody(data, true); }},
                    Row{"file", tree, [](M&, P& p) { p.setBodyInfo(path, 0, 10, false); }},
                    Row{"remove", tree, [](M&, P& p) { p.removeSubPart(1); }},
                    Row{"sendable", tree, [](M&, P& p) { p.makeHeaderSendable(); }},
                    Row{"copy", tree, [](M&, P& p) { const P copy(p); }},
                    Row{"copy that is added", tree,
                        [](M& m, P& p) {
                            const P copy(p);
                            m.addMultiPart(copy, -1);
                        }},
                    Row{"assign", tree, [](M& m, P& p) {
                            P other;
                            m.getMultiPart(0, other);
                            other = p;
                        }}));

INSTANTIATE_TEST_SUITE_P(
    Conversions, EveryAllocationOfTheApi,
    testing::Values(Row{"add", tree, [](M& m, P& p) { m.addMultiPart(p, 0); }},
                    Row{"add to an empty message", "", [](M& m, P& p) { m.addMultiPart(p, 0); }},
                    Row{"insert", tree, [](M& m, P& p) { m.setMultiPart(p, 1, false); }},
                    Row{"replace", tree, [](M& m, P& p) { m.setMultiPart(p, 0, true); }},
                    Row{"remove", tree, [](M& m, P&) { m.removeMultiPart(0); }},
                    Row{"read out", tree,
                        [](M& m, P&) {
                            for (int i = 0; i < m.getMultiPartCount(); ++i) {
                                P part;
                                m.getMultiPart(i, part);
                            }
                        }},
                    Row{"there and back", tree,
                        [](M& m, P&) {
                            P part;
                            if (m.getMultiPart(0, part))
                                m.setMultiPart(part, 0, true);
                        }},
                    Row{"read the enclosed message", enclosing,
                        [](M& m, P&) {
                            P part;
                            m.getMultiPart(0, part);
                        }},
                    Row{"read a stored part", tree,
                        [](M&, P&) {
                            P part;
                            bool hasHeader = false;
                            M::convertFileToMulitPart(path, part, hasHeader);
                        }},
                    Row{"parse bytes", tree, [](M&, P&) { const M message(tree); }},
                    Row{"parse text", tree,
                        [](M&, P&) { const M message(QString::fromLatin1(tree)); }},
                    Row{"parse a file", "", [](M& m, P&) { m.parse(path); }}));

INSTANTIATE_TEST_SUITE_P(
    Queries, EveryAllocationOfTheApi,
    testing::Values(Row{"attachments", tree,
                        [](M& m, P&) {
                            m.hasAttachment();
                            m.getAttachNum();
                            m.isCompleteMessage();
                        }},
                    Row{"text", tree,
                        [](M& m, P&) {
                            QString text;
                            m.getBody(text, 0);
                        }},
                    Row{"text of a single part", single,
                        [](M& m, P&) {
                            QString text;
                            m.getBody(text, 0);
                            m.EMAIL_BasicMsg::getBody(0);
                        }},
                    Row{"bytes", single,
                        [](M& m, P&) { writeTo([&m](QFile* file) { m.getBody(file, nullptr); }); }},
                    Row{"identifiers", tree,
                        [](M& m, P&) {
                            QString id;
                            m.getBodyPartId(id);
                            m.getCalendarPartId(id);
                        }},
                    Row{"calendar", tree,
                        [](M& m, P&) { writeTo([&m](QFile* file) { m.getICalendar(file); }); }},
                    Row{"part", tree,
                        [](M&, P& p) {
                            const P* leaf = p.getSubMultiPart(0);
                            QString text;
                            leaf->getTextBody(text, 0);
                            leaf->getBody();
                            writeTo([leaf](QFile* file) { leaf->getBody(file, nullptr); });
                        }},
                    Row{"one encoded word", "",
                        [](M&, P&) {
                            QString text;
                            EMAIL_Util::decode_2047_String_Aux(
                                "=?utf-8?B?" + QByteArray(4000, 'Q') + "?=", text, 0);
                        }},
                    Row{"map a file", "",
                        [](M&, P&) {
                            FILE* stream = nullptr;
                            char* mapping = nullptr;
                            int size = 0;
                            if (EMAIL_Util::openBuffer(path, stream, mapping, size) == 0) {
                                munmap(mapping, std::size_t(size));
                                fclose(stream);
                            }
                        }},
                    Row{"header", single, [](M& m, P&) {
                            m.headerAsString();
                            m.getFrom(0);
                            m.getSubject(0);
                            m.getDateStr();
                            m.getRawDateStr();
                            m.getTypeStr();
                            m.getMethod();
                            m.getFileName(0);
                            m.getName(0);
                            m.getBoundary();
                        }}));

} // namespace every_allocation_of_the_api_test
