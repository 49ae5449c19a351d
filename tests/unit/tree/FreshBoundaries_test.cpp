// SPDX-License-Identifier: MIT
#include "tests/support/RowNames.h"
#include "tests/support/StoredFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <cstdlib>
#include <ctime>
#include <set>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace fresh_boundaries_test {

namespace {

struct BodyRow
{
    const char* name;
    QByteArray body;
    bool isTaken;
};

void PrintTo(const BodyRow& row, std::ostream* out)
{
    *out << row.name;
}

class BodyBesideABoundary : public testing::TestWithParam<BodyRow>
{
protected:
    static constexpr char kBoundary[] = "limit";

    EMAIL_MIME message;

    BodyBesideABoundary()
    {
        message.setType(TYPE_MULTIPART);
        message.setSubTypeStr(QStringLiteral("mixed"));
        message.getHeader()->contentType()->setBoundary(kBoundary);
    }

    static EMAIL_MultiPart part(int cte)
    {
        EMAIL_MultiPart part(nullptr);
        part.setTypeStr(QStringLiteral("application"));
        part.setSubTypeStr(QStringLiteral("octet-stream"));
        part.setCTE(cte);
        return part;
    }

    EMAIL_ContentType& addContainer(const QByteArray& boundary)
    {
        EMAIL_MultiPart container(nullptr);
        container.setType(TYPE_MULTIPART);
        container.setSubTypeStr(QStringLiteral("mixed"));
        message.addMultiPart(container, -1);
        const EMAIL_Body& body = *message.mMessage->mBody;
        EMAIL_ContentType& type =
            *body.bodyPart(body.numBodyParts() - 1)->mHeader->getContentType();
        type.setBoundary(boundary);
        return type;
    }

    // Holds all boundaries against each other and against the lines of `body`.
    void expectUnique(const QByteArray& body, const char* name)
    {
        QByteArrayList boundaries{message.getBoundary()};
        for (const EMAIL_BodyPart* part : message.mMessage->mBody->mBodyParts) {
            if (part->mHeader->getContentType()->mTypeEnum == TYPE_MULTIPART)
                boundaries += part->mHeader->getContentType()->mBoundary;
        }
        for (const QByteArray& boundary : boundaries) {
            EXPECT_FALSE(('\n' + body).contains("\n--" + boundary))
                << name << ": " << boundary.constData();
            for (const QByteArray& other : boundaries)
                EXPECT_TRUE(&other == &boundary || !other.startsWith(boundary))
                    << name << ": " << boundary.constData() << " and " << other.constData();
        }
    }

    void expectFresh(bool fresh)
    {
        EXPECT_EQ(message.makeBoundariesUnique(), 0);
        const QByteArray drawn = message.getBoundary();
        EXPECT_EQ(drawn != kBoundary, fresh);
        EXPECT_EQ(drawn.size(), fresh ? 36 : 5);
        EXPECT_EQ(message.makeBoundariesUnique(), 0);
        EXPECT_EQ(message.getBoundary(), drawn) << "it is good now";
    }
};

} // namespace

TEST_P(BodyBesideABoundary, InMemory)
{
    EMAIL_MultiPart added = part(CTE_BINARY);
    added.setBody(GetParam().body, true);
    message.addMultiPart(added, -1);
    expectFresh(GetParam().isTaken);
}

TEST_P(BodyBesideABoundary, InTheMiddleOfAFile)
{
    const StoredFile file("--limit\n" + GetParam().body + "\n--limit");
    EMAIL_MultiPart added = part(CTE_BINARY);
    added.setBodyInfo(file.path(), 8, int(GetParam().body.size()), true);
    message.addMultiPart(added, -1);
    expectFresh(GetParam().isTaken);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BodyBesideABoundary,
    testing::Values(
        BodyRow{"empty", "", false}, BodyRow{"text", "a\nlimit\n--\n--limi", false},
        BodyRow{"whole body", "--limit", true}, BodyRow{"first line", "--limit\na", true},
        BodyRow{"last line", "a\n--limit", true}, BodyRow{"behind CR LF", "a\r\n--limit", true},
        BodyRow{"longer word", "--limits", true}, BodyRow{"inside a line", "a --limit", false},
        BodyRow{"behind NUL", QByteArray("a\0\n--limit", 10), true},
        BodyRow{"across blocks", QByteArray(32764, 'a') + "\n--limit", true},
        BodyRow{"long line across blocks", QByteArray(99999, 'a') + "\n--limit", true}),
    rowName<BodyRow>);

namespace {

struct AttachedRow
{
    const char* name;
    int cte;
    QByteArray content;
    bool isTaken;
};

class AttachedFile : public BodyBesideABoundary
{
};

} // namespace

// What counts is what is written.
TEST_F(AttachedFile, IsReadAsItIsWritten)
{
    // The encoder ends its line behind them.
    const QByteArray cut = QByteArray(69, 'a') + "--limit";
    for (const AttachedRow& row :
         {AttachedRow{"as it is", CTE_8BIT, "--limit", true},
          AttachedRow{"base64", CTE_BASE64, "--limit", false},
          AttachedRow{"quoted-printable", CTE_QUOTED_PRINTABLE, "--limit", true},
          AttachedRow{"behind a soft line break", CTE_QUOTED_PRINTABLE, cut, true},
          AttachedRow{"not cut there", CTE_8BIT, cut, false}}) {
        const StoredFile file(row.content);
        EMAIL_MultiPart added = part(row.cte);
        added.setBodyInfo(file.path(), 0, int(row.content.size()), false);
        message.addMultiPart(added, -1);
        const StoredFile target("");
        QFile written(target.path());
        ASSERT_TRUE(written.open(QIODevice::ReadWrite));
        ASSERT_EQ(message.mMessage->mBody->bodyPart(0)->assemble(&written), 0);
        written.close();
        ASSERT_EQ(contentOf(target.path()).contains("\n--limit"), row.isTaken) << row.name;
        expectFresh(row.isTaken);
        message.removeMultiPart(0);
        message.getHeader()->contentType()->setBoundary(kBoundary);
    }
}

TEST_F(AttachedFile, UnreadableBodiesChangeNothing)
{
    const StoredFile file("--limit");
    const StoredFile folder("");
    // Nobody writes into it.
    ASSERT_EQ(mkfifo(qPrintable(folder.missingPath()), 0600), 0);
    const QString paths[] = {file.missingPath(),   QString(),   QString(QChar()),
                             folder.missingPath(), file.path(), QStringLiteral("/dev/zero")};
    for (const int encoding : {CTE_8BIT, CTE_QUOTED_PRINTABLE}) {
        for (const QString& path : paths) {
            EMAIL_MultiPart added = part(encoding);
            added.setBodyInfo(path, 0, 9, false);
            message.addMultiPart(added, -1);
            EXPECT_EQ(message.makeBoundariesUnique(), -1) << path.toStdString();
            EXPECT_EQ(message.getBoundary(), kBoundary);
            message.removeMultiPart(0);
        }
    }
}

TEST_F(AttachedFile, OneBoundaryDoesNotBeginAnother)
{
    for (const char* inner : {"limit", "lim", "limits", ""}) {
        EMAIL_MultiPart container(nullptr);
        container.setType(TYPE_MULTIPART);
        container.setSubTypeStr(QStringLiteral("mixed"));
        message.addMultiPart(container, 0);
        EMAIL_ContentType& type = *message.mMessage->mBody->bodyPart(0)->mHeader->getContentType();
        type.setBoundary(inner);
        EXPECT_EQ(message.makeBoundariesUnique(), 0);
        EXPECT_EQ(message.getBoundary(), kBoundary);
        EXPECT_EQ(type.mBoundary.length(), 36) << inner;
        message.removeMultiPart(0);
    }
}

// Assembled, each boundary begins the lines that are its own and no others.
TEST_F(AttachedFile, EveryBoundaryIsFreeOfTheOthersAndOfAllLines)
{
    struct TreeRow
    {
        const char* name;
        QByteArray body;
        std::vector<QByteArray> boundaries;
        // Whether the message's own stays as well.
        bool staysLimit;
    };
    std::vector<QByteArray> digits;
    QByteArray lines;
    for (const char digit : QByteArray("0123456789ABCDEF")) {
        digits.push_back(QByteArray(12, '-') + digit);
        lines += "--" + digits.back() + "\n";
    }
    const QByteArray drawn = QByteArray(12, '-') + "0123456789ABCDEF01234567";
    for (const TreeRow& row :
         {TreeRow{"hyphen beside a clash", "", {"-", "limit"}, true},
          TreeRow{"hyphen in front of a line", "--- signature", {"-"}, true},
          TreeRow{"hyphens of all lengths", "", {"-", "--", "---", "----", "-----"}, true},
          TreeRow{"what a drawn one begins with", lines, digits, true},
          TreeRow{"the same without lines", "--limit", digits, false},
          TreeRow{"long line below a hyphen", "--" + drawn, {"-", drawn}, true},
          TreeRow{"drawn one and its beginning", "", {drawn.left(35), drawn}, true},
          TreeRow{"drawn one that goes on", "--" + drawn + "0", {drawn + "0", drawn}, true}}) {
        EMAIL_MultiPart leaf = part(CTE_8BIT);
        leaf.setBody(row.body, true);
        message.addMultiPart(leaf, -1);
        for (const QByteArray& boundary : row.boundaries)
            addContainer(boundary);
        message.getHeader()->contentType()->setBoundary(kBoundary);
        ASSERT_EQ(message.makeBoundariesUnique(), 0) << row.name;
        EXPECT_EQ(message.getBoundary() == kBoundary, row.staysLimit) << row.name;
        expectUnique(row.body, row.name);
        while (message.removeMultiPart(0))
            continue;
    }
}

TEST_F(AttachedFile, ShortBoundaryStaysWhereNothingIsDrawn)
{
    EMAIL_ContentType& inner = addContainer("-");
    EXPECT_EQ(message.makeBoundariesUnique(), 0);
    EXPECT_EQ(inner.mBoundary, "-");
    EXPECT_EQ(message.getBoundary(), kBoundary);
}

// An assembly takes its boundary, but nothing changes the field.
TEST_F(AttachedFile, BoundaryOfAnApplicationsOwnFieldStays)
{
    struct FieldRow
    {
        const char* name;
        const char* type;
        const char* other;
        QByteArray body;
        int result;
    };
    for (const FieldRow& row :
         {FieldRow{"free", "multipart/mixed; boundary=own", "other", "text", 0},
          FieldRow{"the others give way", "multipart/mixed; boundary=own", "owner", "text", 0},
          FieldRow{"line of a body", "multipart/mixed; boundary=own", "other", "--own", -1},
          FieldRow{"no boundary", "multipart/mixed", "other", "text", -1},
          FieldRow{"what is drawn begins with it", "multipart/mixed; boundary=-", "-", "a", -1},
          FieldRow{"no container", "text/plain; boundary=own", "own", "a", 0}}) {
        EMAIL_MultiPart leaf = part(CTE_8BIT);
        leaf.setBody(row.body, true);
        EMAIL_MultiPart container(nullptr);
        container.setType(TYPE_MULTIPART);
        container.setSubTypeStr(QStringLiteral("mixed"));
        container.addSubMultiPart(new EMAIL_MultiPart(leaf), 0);
        message.addMultiPart(container, 0);
        EMAIL_Header& header = *message.mMessage->mBody->bodyPart(0)->mHeader;
        header.removeField("Content-Type");
        auto* field = new EMAIL_Field;
        field->mName = "Content-Type";
        field->mBody = row.type;
        header.addField(field);
        EMAIL_ContentType& other = addContainer(row.other);
        EXPECT_EQ(message.makeBoundariesUnique(), row.result) << row.name;
        EXPECT_EQ(field->mBody, row.type) << row.name;
        const bool stays = row.result != 0 || !QByteArray(row.other).startsWith("own") ||
                           QByteArray(row.name) == "no container";
        EXPECT_EQ(other.mBoundary == row.other, stays) << row.name;
        while (message.removeMultiPart(0))
            continue;
    }
}

// What the program before this one drew in this second stands in an attachment.
TEST_F(AttachedFile, WhatCouldBeDrawnIsAvoided)
{
    QByteArray lines;
    const auto now = static_cast<unsigned int>(std::time(nullptr));
    for (unsigned int seed = now; seed < now + 200000; ++seed) {
        std::srand(seed);
        lines += "--------------";
        for (int i = 0; i < 24; ++i)
            lines += "0123456789ABCDEF"[std::rand() % 16];
        lines += '\n';
    }
    EMAIL_MultiPart added = part(CTE_8BIT);
    added.setBody(lines + "--limit\n", true);
    message.addMultiPart(added, -1);
    expectFresh(true);
    EXPECT_FALSE(lines.contains(QByteArray(message.getBoundary())));
}

TEST(FreshBoundaries, HandleWithoutAMessageHasNone)
{
    EMAIL_MIME message;
    delete message.mMessage;
    message.mMessage = nullptr;
    EXPECT_EQ(message.makeBoundariesUnique(), 0);
}

TEST(FreshBoundaries, SinglePartMessageStaysUnread)
{
    EMAIL_MIME message(QByteArray("A: 1\r\n\r\n--x\n"));
    message.setBodyInfo(QStringLiteral("/no/such/file"), 0, 1, true);
    EXPECT_EQ(message.makeBoundariesUnique(), 0);
    EXPECT_EQ(message.getHeader()->mFields.count(), 1);
}

// Two threads compose a message each.
TEST(FreshBoundaries, OfTwoThreadsDiffer)
{
    constexpr int kEach = 2000;
    std::vector<std::string> drawn[2];
    const auto draw = [](std::vector<std::string>& boundaries) {
        EMAIL_ContentType field;
        for (int i = 0; i < kEach; ++i) {
            field.createBoundary();
            boundaries.emplace_back(field.mBoundary.view());
        }
    };
    std::thread other(draw, std::ref(drawn[0]));
    draw(drawn[1]);
    other.join();
    std::set<std::string> all(drawn[0].begin(), drawn[0].end());
    all.insert(drawn[1].begin(), drawn[1].end());
    EXPECT_EQ(all.size(), 2U * kEach);
}

} // namespace fresh_boundaries_test
