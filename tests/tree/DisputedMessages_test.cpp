// SPDX-License-Identifier: MIT
// Messages that readers and gateways take apart in different ways. Every disputed/NAME.eml is
// compared with NAME.expected: a first line that says which reading is this library's, then the
// tree, what an application shows, and what the message assembles to. A new case is these two
// files.
//
// Each message runs with LF and with CR LF line ends, or as it is where NAME ends in ".exact", from
// memory and from a file. What a file gives otherwise (an enclosed message is not parsed there, a
// NUL ends nothing) is in NAME.file.expected.
#include "tests/support/GoldenFiles.h"
#include "tests/support/LiteralCutting.h"
#include "tests/support/ReaderView.h"
#include "utility/EMAIL_MIME.h"

#include <QSet>

namespace disputed_messages_test {

namespace {

const QString disputedFolder = QStringLiteral(TARVOMIME_SOURCE_DIR "/tests/tree/disputed/");
constexpr int fewestSamples = 200;

QByteArray reasonOf(const QByteArray& expected)
{
    return expected.startsWith("why: ") ? expected.mid(5, expected.indexOf('\n') - 5) : "";
}

QByteArray seenFromMemory(const QByteArray& text)
{
    return printReaderView(EMAIL_MIME(text));
}

QByteArray seenFromFile(const QByteArray& text)
{
    const StoredFile file(text);
    EMAIL_MIME message;
    message.parse(file.path());
    return printReaderView(message);
}

// In memory a text ends at its first NUL.
QByteArray upToNul(const QByteArray& text)
{
    return text.left(text.contains('\0') ? text.indexOf('\0') : text.size());
}

class DisputedMessages : public testing::TestWithParam<QString>
{
protected:
    DisputedMessages() { mExpected.remove(0, mExpected.indexOf('\n') + 1); }

    QList<QByteArray> forms() const
    {
        if (GetParam().endsWith(QLatin1String(".exact")))
            return {mText};
        return {mText, golden::withCrLf(mText)};
    }

    QByteArray expectedBefore(const char* section) const
    {
        return mExpected.left(mExpected.indexOf(section));
    }

    void compare(const char* form, const QByteArray& expected, const QByteArray& printed) const
    {
        golden::compare(QStringLiteral(TARVOMIME_OUTPUT_DIR "/") + GetParam() + form, expected,
                        printed);
    }

    QString mPath = disputedFolder + GetParam();
    QByteArray mText = contentOf(mPath + QStringLiteral(".eml"));
    QByteArray mExpected = contentOf(mPath + QStringLiteral(".expected"));
};

} // namespace

TEST(DisputedMessageFolder, IsFilledAndSaysWhy)
{
    const QStringList names = golden::sampleNames(disputedFolder);
    EXPECT_GE(names.size(), fewestSamples) << disputedFolder.toStdString();
    QSet<QByteArray> reasons;
    for (const QString& name : names) {
        const QByteArray reason = reasonOf(contentOf(disputedFolder + name + ".expected"));
        EXPECT_GT(reason.size(), 15) << name.toStdString() << " does not say why";
        EXPECT_FALSE(reasons.contains(reason)) << name.toStdString() << " says what another says";
        reasons.insert(reason);
    }
}

TEST_P(DisputedMessages, FromMemory)
{
    for (const QByteArray& text : forms())
        compare(".memory", mExpected,
                golden::printedFromMemory(upToNul(text), seenFromMemory(text)));
}

TEST_P(DisputedMessages, FromAFile)
{
    QByteArray expected = contentOf(mPath + QStringLiteral(".file.expected"));
    if (expected.isEmpty())
        expected = expectedBefore("assembled\n");
    for (const QByteArray& text : forms())
        compare(".file", expected, golden::printedFromFile(text) + seenFromFile(text));
}

TEST_P(DisputedMessages, FromTheLiteralRules)
{
    for (const QByteArray& text : forms())
        compare(".literal", expectedBefore("seen\n"), literal::printedTree(upToNul(text)));
}

INSTANTIATE_TEST_SUITE_P(Samples, DisputedMessages,
                         testing::ValuesIn(golden::sampleNames(disputedFolder)));

} // namespace disputed_messages_test
