// SPDX-License-Identifier: MIT
// Two threads, each with messages of its own: what the library keeps for the whole program - the
// counter of boundaries, the zone, the tables of codecs - must not bind them. Texts are shared by
// their bytes, so a text that both threads know is read by both, too.
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <array>
#include <barrier>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace threads_test {

namespace {

constexpr int rounds = 40;

const QByteArray
    mixed("From: =?ISO-2022-JP?B?GyRCRnxLXBsoQg==?= <ann@example.org>\r\n"
          "To: a@x, =?utf-8?Q?J=C3=B6rn?= <b@y>\r\nSubject: =?iso-8859-5?Q?=BF=E0?=\r\n"
          "Date: Mon, 1 Jan 2024 10:00:00 +0100\r\n"
          "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
          "--b\r\nContent-Type: text/plain; charset=\"windows-1251\"\r\n"
          "Content-Transfer-Encoding: quoted-printable\r\n\r\n=CF=F0=E8\r\n"
          "--b\r\nContent-Type: image/png; name=\"p.png\"\r\n"
          "Content-Transfer-Encoding: base64\r\n\r\nAAECAwQFBgcICQ==\r\n"
          "--b\r\nContent-Type: message/rfc822\r\n\r\nSubject: in\r\n\r\nbody\r\n"
          "--b--\r\n");

// What a thread has seen in one round; the same as anybody else sees.
using Seen = std::vector<std::string>;

std::string bytesOf(const QString& text)
{
    return text.toUtf8().toStdString();
}

Seen parse()
{
    const EMAIL_MIME message(mixed);
    Seen seen{bytesOf(message.getFrom(CHARSET_UTF_8)), bytesOf(message.getTo(CHARSET_UTF_8)),
              bytesOf(message.getSubject(CHARSET_UTF_8)), bytesOf(message.getDateStr()),
              std::to_string(message.getAttachNum())};
    QString text;
    seen.push_back(std::to_string(message.getBody(text, CHARSET_UTF_8)) + bytesOf(text));
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        message.getMultiPart(i, part);
        seen.push_back(bytesOf(part.getName()) + part.getBody().toStdString());
    }
    return seen;
}

EMAIL_MultiPart attachment(const char* body)
{
    EMAIL_MultiPart part;
    part.setTypeStr("application");
    part.setSubTypeStr("octet-stream");
    part.setName(QStringLiteral("Z\u00FCge.bin"));
    part.setCTE(CTE_BASE64);
    part.setAttSize(-1);
    part.setBody(QByteArray(body), false);
    return part;
}

void compose(EMAIL_MIME& message)
{
    message.setTypeStr("multipart");
    message.setSubTypeStr("mixed");
    message.setDefaultFileds();
    message.setFrom(QStringLiteral("J\u00F6rn <j@example.org>"));
    message.setSubject(QStringLiteral("\u65E5\u672C"));
    message.setDate(86400);
    message.addMultiPart(attachment("one"), 0);
    message.addMultiPart(attachment("two"), 1);
    message.makeBoundariesUnique();
    message.makeHeaderSendable();
}

// The boundary is the one thing in which two composed messages differ.
std::string withoutBoundary(const EMAIL_MIME& message, const QCString& text)
{
    return QByteArray(text.data(), text.length())
        .replace(QByteArray(message.getBoundary().data()), "BOUNDARY")
        .toStdString();
}

Seen composeInMemory()
{
    EMAIL_MIME message;
    compose(message);
    const QCString text = message.assemble();
    return {withoutBoundary(message, text)};
}

Seen composeToFile()
{
    EMAIL_MIME message;
    compose(message);
    const StoredFile folder("");
    QFile file(folder.path());
    if (!file.open(QIODevice::WriteOnly) || message.assemble(&file) != 0)
        return {"not written"};
    file.close();
    return {withoutBoundary(message, QCString(contentOf(folder.path())))};
}

Seen openFile()
{
    const StoredFile stored(mixed);
    EMAIL_MIME message;
    const int result = message.parse(stored.path());
    EMAIL_MultiPart part;
    message.getMultiPart(1, part);
    const StoredFile folder("");
    QFile file(folder.path());
    if (result != 0 || !file.open(QIODevice::WriteOnly) || part.getBody(&file) != 0)
        return {"not read"};
    file.close();
    return {contentOf(folder.path()).toStdString()};
}

Seen assembleAgain()
{
    EMAIL_MIME message(mixed);
    message.setSubject(QStringLiteral("other"));
    return {message.assemble().data()};
}

// Of a text that both threads know, its bytes are shared: everything const but `data()` only reads,
// and `data()` of a thread's own copy leaves the other copies alone.
const QCString& sharedText()
{
    static const QCString text = QCString("Subject: both know it; and more").mid(9);
    return text;
}

Seen readSharedText()
{
    const QCString& text = sharedText();
    const QCString own = text.left(12);
    const QCString changed = QCString(text).append('!');
    return {std::string(text.view()),
            std::to_string(text.find("know")) + std::to_string(text.findRev('o')),
            std::string(1, text.at(3)) + std::to_string(text.size()),
            own.data(),
            changed.data(),
            text.upper().data(),
            text == own ? "same" : "other"};
}

struct Row
{
    const char* name;
    Seen (*action)();
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class TwoThreads : public testing::TestWithParam<Row>
{
};

constexpr std::array rows{
    Row{"parse", parse},
    Row{"open a file", openFile},
    Row{"assemble again", assembleAgain},
    Row{"compose in memory", composeInMemory},
    Row{"compose to a file", composeToFile},
    Row{"read a shared text", readSharedText},
};

// Runs `action` in both threads at once, again and again.
template <class Action>
void inTwoThreads(const Action& action)
{
    std::barrier start(2);
    const auto loop = [&start, &action](std::size_t thread) {
        start.arrive_and_wait();
        for (int round = 0; round < rounds; ++round)
            action(thread);
    };
    std::thread other(loop, 1);
    loop(0);
    other.join();
}

} // namespace

// What is made once, at the first use, is made while both are at it.
TEST_P(TwoThreads, SeeWhatOneSees)
{
    std::array<std::set<Seen>, 2> seen;
    inTwoThreads([&](std::size_t thread) { seen[thread].insert(GetParam().action()); });
    const std::set<Seen> alone{GetParam().action()};
    EXPECT_EQ(seen[0], alone);
    EXPECT_EQ(seen[1], alone);
}

INSTANTIATE_TEST_SUITE_P(All, TwoThreads, testing::ValuesIn(rows), rowName<Row>);

TEST(Threads, EachDoesSomethingElse)
{
    std::array<std::vector<Seen>, 2> seen;
    inTwoThreads([&](std::size_t thread) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            seen[thread].push_back(rows[(i + 3 * thread) % rows.size()].action());
    });
    for (std::size_t i = 0; i < seen[0].size(); ++i) {
        const std::size_t first = i % rows.size();
        EXPECT_EQ(seen[0][i], rows[first].action()) << rows[first].name;
        const std::size_t second = (i + 3) % rows.size();
        EXPECT_EQ(seen[1][i], rows[second].action()) << rows[second].name;
    }
}

TEST(Threads, NoTwoMessagesShareABoundary)
{
    std::array<std::vector<std::string>, 2> boundaries;
    inTwoThreads([&](std::size_t thread) {
        EMAIL_MIME message;
        compose(message);
        boundaries[thread].emplace_back(message.getBoundary().data());
    });
    std::set<std::string> all(boundaries[0].begin(), boundaries[0].end());
    all.insert(boundaries[1].begin(), boundaries[1].end());
    EXPECT_EQ(all.size(), 2U * rounds);
}

} // namespace threads_test
