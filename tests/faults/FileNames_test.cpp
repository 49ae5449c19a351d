// SPDX-License-Identifier: MIT
// What files are called: names outside ASCII in every kind of locale, and names that no file has.
#include "tests/faults/JobTest.h"
#include "tests/support/RowNames.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <string>

namespace file_names_test {

namespace {

int printedWords = 0;

void countWords(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++printedWords;
}

class LocaleOf : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        setenv("LOCPATH", TARVOMIME_LOCALES, 1);
        const bool isThere = std::setlocale(LC_ALL, GetParam()) != nullptr;
        unsetenv("LOCPATH");
        if (!isThere && std::setlocale(LC_ALL, GetParam()) == nullptr)
            GTEST_SKIP() << "this machine has no locale " << GetParam();
    }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

} // namespace

// Whatever bytes a locale makes of the name, they are those that Qt stored the file under.
TEST_P(LocaleOf, AFileIsFoundAgain)
{
    const QTemporaryDir folder;
    for (const FileJob& job : allJobs()) {
        SCOPED_TRACE(job.name);
        const QString path = folder.filePath(QString::fromUtf8("caf\xc3\xa9"));
        const QByteArray content = job.stored(contentOfSize(1000));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QFile out(folder.filePath(QStringLiteral("out")));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        EXPECT_EQ(job.prepare(path, static_cast<int>(content.size()))(&out, nullptr), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Names, LocaleOf, testing::Values("C", "C.UTF-8", "de_DE.ISO-8859-1"),
                         [](const auto& row) {
                             std::string name(row.param);
                             std::replace_if(
                                 name.begin(), name.end(),
                                 [](char c) { return c == '.' || c == '-'; }, '_');
                             return name;
                         });

// The system ends a name at its first NUL and would take the file that is called so, and Qt prints
// a warning.
TEST(FileNames, NoFileHasANulInItsName)
{
    const StoredFile stored("Content-Type: text/plain\r\n\r\ntext");
    const QString path = stored.path() + QChar(0) + QStringLiteral("x");
    const auto handler = qInstallMessageHandler(countWords);
    printedWords = 0;
    EMAIL_MIME message;
    EMAIL_MultiPart part;
    EMAIL_MultiPart other;
    EMAIL_Body body;
    bool hasHeader = false;
    QCString text;
    EXPECT_EQ(message.parse(path), -1);
    EXPECT_EQ(EMAIL_MIME::convertFileToMulitPart(path, part, hasHeader), -1);
    EXPECT_EQ(part.setBodyInfo(path, 0, 4, false), -1);
    EXPECT_EQ(part.getBody(nullptr), -1);
    body.setBodyInfo(path, 0, 4, true);
    EXPECT_EQ(body.getBodyText(text), -1);
    EXPECT_EQ(EMAIL_MIME::getIcsPart(path, QString(), QString(), &part, &other), -1);
    message.setRawBody(path);
    EXPECT_EQ(message.mMessage->mBody->mLength, 0);
    qInstallMessageHandler(handler);
    EXPECT_EQ(printedWords, 0);
}

} // namespace file_names_test
