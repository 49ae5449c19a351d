// SPDX-License-Identifier: MIT
#include "extra/Maildir.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace maildir_test {

using namespace tarvomime;

namespace {

struct FlagRow
{
    const char* name;
    QString fileName;
    QString flags;
};

class MaildirFlag : public testing::TestWithParam<FlagRow>
{
};

void makeFolder(const QString& path)
{
    for (const char* part : {"/new", "/cur", "/tmp"})
        ASSERT_TRUE(QDir().mkpath(path + QLatin1String(part)));
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

TEST_P(MaildirFlag, IsRead)
{
    EXPECT_EQ(maildirFlags(GetParam().fileName), GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(Extra, MaildirFlag,
                         testing::Values(FlagRow{"None", "1.a.host", ""},
                                         FlagRow{"Empty", "1.a.host:2,", ""},
                                         FlagRow{"Seen", "1.a.host:2,S", "S"},
                                         FlagRow{"Sorted", "1.a.host:2,SRF", "FRS"},
                                         FlagRow{"Twice", "1.a.host:2,SS", "S"},
                                         FlagRow{"OfTheStore", "1.a.host:2,Sa", "Sa"},
                                         FlagRow{"MoreBehind", "1.a.host:2,S,x=1", "S"},
                                         FlagRow{"AnotherVersion", "1.a.host:1,S", ""}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Maildir, GivesItsMessagesInOrder)
{
    const QTemporaryDir folder;
    const QString path = folder.path();
    makeFolder(path);
    makeFolder(path + "/.Sent");
    write(path + "/cur/1700000002.b.host:2,RS", "A: 1\n");
    write(path + "/new/1700000001.a.host", "A: 22\n");
    write(path + "/tmp/1700000000.c.host", "half");
    write(path + "/.Sent/cur/1700000000.d.host:2,S", "A: 3\n");
    write(path + "/cur/.hidden", "x");

    const Result<QList<MaildirMessage>> messages = readMaildir(path);
    ASSERT_TRUE(messages) << messages.reason().toStdString();
    ASSERT_EQ(messages->size(), 2);
    const MaildirMessage& first = messages->at(0);
    EXPECT_EQ(first.path, path + "/new/1700000001.a.host");
    EXPECT_TRUE(first.isNew);
    EXPECT_EQ(first.delivered.toSecsSinceEpoch(), 1700000001);
    EXPECT_EQ(first.size, 6);
    EXPECT_FALSE(first.hasFlag('S'));
    const MaildirMessage& second = messages->at(1);
    EXPECT_FALSE(second.isNew);
    EXPECT_EQ(second.flags, "RS");
    EXPECT_TRUE(second.hasFlag('R'));
    EXPECT_EQ(maildirFolders(path), QStringList{path + "/.Sent"});
}

TEST(Maildir, TakesTheTimeOfAFileWhoseNameHasNone)
{
    const QTemporaryDir folder;
    makeFolder(folder.path());
    write(folder.filePath("cur/msg:2,S"), "A: 1\n");
    const Result<QList<MaildirMessage>> messages = readMaildir(folder.path());
    ASSERT_TRUE(messages);
    ASSERT_EQ(messages->size(), 1);
    EXPECT_GT(messages->at(0).delivered.toSecsSinceEpoch(), 1700000000);
}

TEST(Maildir, IsToldFromOtherFolders)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(isMaildir(folder.path()));
    const Result<QList<MaildirMessage>> messages = readMaildir(folder.path());
    EXPECT_FALSE(messages);
    EXPECT_FALSE(messages.reason().isEmpty());
    EXPECT_FALSE(readMaildir(folder.filePath("none")));
}

} // namespace maildir_test
