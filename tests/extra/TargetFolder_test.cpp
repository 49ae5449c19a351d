// SPDX-License-Identifier: MIT
#include "extra/TargetFolder.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace target_folder_test {

using tarvomime::Result;
using tarvomime::TargetFolder;

namespace {

// A folder "target" in a folder of its own, so that whatever leaves the first shows in the second.
class TargetFolderTest : public testing::Test
{
protected:
    QString path() const { return mOuter.filePath("target"); }
    QStringList names() const { return QDir(path()).entryList(kAll, QDir::Name); }
    QStringList outside() const { return QDir(mOuter.path()).entryList(kAll); }

    void writeBefore(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(path());
        QFile file(path() + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray content(const QString& name) const
    {
        QFile file(path() + '/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    static QString save(TargetFolder& folder, const QString& wanted, const QByteArray& content)
    {
        QFile file;
        const Result<QString> name = folder.create(wanted, file, "fallback");
        EXPECT_TRUE(name) << wanted.toStdString() << ": " << name.reason().toStdString();
        EXPECT_EQ(file.write(content), content.size());
        return name.valueOr({});
    }

    static constexpr QDir::Filters kAll =
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

private:
    QTemporaryDir mOuter;
};

} // namespace

TEST_F(TargetFolderTest, IsMadeAndTakesFiles)
{
    Result<TargetFolder> folder = TargetFolder::open(path());
    ASSERT_TRUE(folder) << folder.reason().toStdString();
    EXPECT_EQ(save(*folder, "../a.txt", "1"), "a.txt");
    EXPECT_EQ(save(*folder, "a.txt", "2"), "a (2).txt");
    EXPECT_EQ(save(*folder, "a (2).txt", "3"), "a (2) (2).txt");
    EXPECT_EQ(save(*folder, "", "4"), "fallback");
    EXPECT_EQ(content("a.txt"), "1");
    EXPECT_EQ(content("a (2).txt"), "2");
    EXPECT_TRUE(folder->remove("a.txt"));
    EXPECT_EQ(names(), QStringList({"a (2) (2).txt", "a (2).txt", "fallback"}));
    EXPECT_FALSE(folder->remove("a.txt").reason().isEmpty());
}

TEST_F(TargetFolderTest, KeepsWhatIsThere)
{
    writeBefore("Plan.PDF", "old");
    ASSERT_TRUE(QFile::link("/nowhere/at/all", path() + "/link"));
    Result<TargetFolder> folder = TargetFolder::open(path());
    ASSERT_TRUE(folder);
    EXPECT_EQ(save(*folder, "plan.pdf", "new"), "plan (2).pdf");
    EXPECT_EQ(save(*folder, "link", "new"), "link (2)");
    EXPECT_EQ(content("Plan.PDF"), "old");
}

TEST_F(TargetFolderTest, GivesWayToOtherPrograms)
{
    Result<TargetFolder> folder = TargetFolder::open(path());
    ASSERT_TRUE(folder);
    EXPECT_EQ(save(*folder, "first", "1"), "first");
    writeBefore("a.txt", "other"); // behind the folder's back
    EXPECT_EQ(save(*folder, "a.txt", "mine"), "a (2).txt");
    EXPECT_EQ(content("a.txt"), "other");
}

struct TwinRow
{
    const char* name;
    QString first;
    QString second;
};

class TargetFolderTwins : public TargetFolderTest, public testing::WithParamInterface<TwinRow>
{
};

TEST_P(TargetFolderTwins, AreNumbered)
{
    Result<TargetFolder> folder = TargetFolder::open(path());
    ASSERT_TRUE(folder);
    save(*folder, GetParam().first, "1");
    EXPECT_TRUE(save(*folder, GetParam().second, "2").contains("(2)"));
}

INSTANTIATE_TEST_SUITE_P(
    Extra, TargetFolderTwins,
    testing::Values(TwinRow{"Case", "a.txt", "A.TXT"},
                    TwinRow{"CaseOfOtherScripts", QString::fromUtf8("ПЛАН"),
                            QString::fromUtf8("план")},
                    TwinRow{"SharpS", QString::fromUtf8("Straße"), "STRASSE"},
                    TwinRow{"Accent", QString(QChar(0xE9)), QString("e") + QChar(0x301)},
                    TwinRow{"AccentAndCase", QString(QChar(0xC9)), QString("e") + QChar(0x301)}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(TargetFolderTest, TellsWhyItCannot)
{
    writeBefore("file", "");
    EXPECT_FALSE(TargetFolder::open(path() + "/file").reason().isEmpty());
    EXPECT_FALSE(TargetFolder::open(path() + "/no/such/folder").reason().isEmpty());
    EXPECT_FALSE(TargetFolder::open(QString()).reason().isEmpty());
}

TEST_F(TargetFolderTest, HoldsTenThousandHostileNames)
{
    const QStringList pieces = {
        "..",     "/",          "\\",   ".",      "a",      "A",    "~",        ":",       "*",
        "CON",    "nul",        " ",    "\n",     "\t",     "-",    "$(x)",     "`x`",     "%2e%2e",
        "%2F",    ".txt",       ".exe", "|",      "\"",     "'",    "é",        "e\u0301", "\u202E",
        "\u2066", "\u200B",     "日本", "😀",      "(2)",    "ß",    "SS",       "ı",       "İ",
        "file",   "etc/passwd", "C:",   "\uFEFF", "\uFFFF", "LPT1", "..\\..\\", "aux.",    "./",
    };
    std::mt19937 random(20261121);
    Result<TargetFolder> folder = TargetFolder::open(path());
    ASSERT_TRUE(folder);
    QSet<QString> folded;
    constexpr int count = 10000;
    for (int i = 0; i < count; ++i) {
        QString wanted(random() % 50 == 0 ? int(random() % 400) : 0, 'x');
        for (auto left = random() % 6; left > 0; --left)
            wanted += pieces.at(static_cast<int>(random() % static_cast<uint>(pieces.size())));
        if (random() % 10 == 0)
            wanted += QChar(static_cast<ushort>(random() % 0x10000));
        const QString name = save(*folder, wanted, QByteArray::number(i));
        ASSERT_FALSE(folded.contains(name.toCaseFolded())) << name.toStdString();
        folded.insert(name.toCaseFolded());
        ASSERT_EQ(content(name), QByteArray::number(i)) << name.toStdString();
    }
    EXPECT_EQ(names().size(), count);
    EXPECT_EQ(outside(), QStringList("target"));
}

} // namespace target_folder_test
