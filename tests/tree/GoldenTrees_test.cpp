// SPDX-License-Identifier: MIT
// Every golden/NAME.eml is parsed and compared with the tree printed in NAME.expected, and so is
// what it assembles to. A new case is these two files.
//
// Each message runs with LF and with CR LF line ends, from memory and from a file. A body in a file
// holds its enclosed message as text only: where that shows, NAME.file.expected holds the tree.
//
// The literal rules, by which random messages are judged, must print the same trees.
#include "tests/support/LiteralCutting.h"
#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_Message.h"

#include <QDir>

namespace {

const QString goldenFolder = QStringLiteral(TARVOMIME_SOURCE_DIR "/tests/tree/golden/");
const QString outputFolder = QStringLiteral(TARVOMIME_OUTPUT_DIR "/");
constexpr int fewestSamples = 60;

QStringList sampleNames()
{
    QStringList names;
    for (const QString& file : QDir(goldenFolder).entryList({QStringLiteral("*.eml")}, QDir::Files))
        names.append(file.chopped(4));
    return names;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray withCrLf(QByteArray text)
{
    return text.replace("\r\n", "\n").replace("\n", "\r\n");
}

// The tree, then what assembling the message in memory gives, line by line.
QByteArray printedFromMemory(const QByteArray& text)
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    message.parse();
    QByteArray printed = printTree(message, EnclosedMessages::Parsed);
    message.assemble();
    printed += "assembled\n";
    QByteArray assembled = message.getMessage();
    assembled.replace("\r\n", "\n");
    for (const QByteArray& line : assembled.split('\n'))
        printed += "  " + printText(line) + '\n';
    return printed;
}

QByteArray printedFromFile(const QByteArray& text)
{
    EMAIL_Message message;
    message.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
    return printTree(message, EnclosedMessages::Parsed, text);
}

void compare(const QString& name, const QByteArray& expected, const QByteArray& printed)
{
    if (printed == expected)
        return;
    QFile output(outputFolder + name);
    ASSERT_TRUE(output.open(QIODevice::WriteOnly)) << output.fileName().toStdString();
    output.write(printed);
    ADD_FAILURE() << "the tree differs, see " << output.fileName().toStdString() << '\n'
                  << printed.toStdString();
}

class GoldenTrees : public testing::TestWithParam<QString>
{
protected:
    QByteArray expected(const QString& suffix) const
    {
        return contentOf(goldenFolder + GetParam() + suffix);
    }

    // Without what the message assembles to.
    QByteArray expectedTree() const
    {
        QByteArray tree = expected(QStringLiteral(".expected"));
        tree.truncate(tree.indexOf("assembled\n"));
        return tree;
    }

    QByteArray mText = contentOf(goldenFolder + GetParam() + QStringLiteral(".eml"));
};

} // namespace

TEST(GoldenTreeFolder, IsFilled)
{
    EXPECT_GE(sampleNames().size(), fewestSamples) << goldenFolder.toStdString();
}

TEST_P(GoldenTrees, FromMemory)
{
    const QByteArray tree = expected(QStringLiteral(".expected"));
    compare(GetParam() + QStringLiteral(".memory"), tree, printedFromMemory(mText));
    compare(GetParam() + QStringLiteral(".crlf.memory"), tree, printedFromMemory(withCrLf(mText)));
}

TEST_P(GoldenTrees, FromAFile)
{
    QByteArray tree = expected(QStringLiteral(".file.expected"));
    if (tree.isEmpty())
        tree = expectedTree();
    compare(GetParam() + QStringLiteral(".file"), tree, printedFromFile(mText));
    compare(GetParam() + QStringLiteral(".crlf.file"), tree, printedFromFile(withCrLf(mText)));
}

TEST_P(GoldenTrees, FromTheLiteralRules)
{
    const QByteArray tree = expectedTree();
    compare(GetParam() + QStringLiteral(".literal"), tree, literal::printedTree(mText));
    compare(GetParam() + QStringLiteral(".crlf.literal"), tree,
            literal::printedTree(withCrLf(mText)));
}

INSTANTIATE_TEST_SUITE_P(Samples, GoldenTrees, testing::ValuesIn(sampleNames()));
