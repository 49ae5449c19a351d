// SPDX-License-Identifier: MIT
// Every golden/NAME.eml is parsed and compared with the tree printed in NAME.expected, and so is
// what it assembles to. A new case is these two files.
//
// Each message runs with LF and with CR LF line ends, from memory and from a file. A body in a file
// holds its enclosed message as text only: where that shows, NAME.file.expected holds the tree.
//
// The literal rules, by which random messages are judged, must print the same trees.
#include "tests/support/GoldenFiles.h"
#include "tests/support/LiteralCutting.h"

namespace golden_trees_test {

namespace {

const QString goldenFolder = QStringLiteral(TARVOMIME_SOURCE_DIR "/tests/tree/golden/");
constexpr int fewestSamples = 60;

void compare(const QString& name, const QByteArray& expected, const QByteArray& printed)
{
    golden::compare(QStringLiteral(TARVOMIME_OUTPUT_DIR "/") + name, expected, printed);
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
    EXPECT_GE(golden::sampleNames(goldenFolder).size(), fewestSamples)
        << goldenFolder.toStdString();
}

TEST_P(GoldenTrees, FromMemory)
{
    const QByteArray tree = expected(QStringLiteral(".expected"));
    compare(GetParam() + QStringLiteral(".memory"), tree, golden::printedFromMemory(mText));
    compare(GetParam() + QStringLiteral(".crlf.memory"), tree,
            golden::printedFromMemory(golden::withCrLf(mText)));
}

TEST_P(GoldenTrees, FromAFile)
{
    QByteArray tree = expected(QStringLiteral(".file.expected"));
    if (tree.isEmpty())
        tree = expectedTree();
    compare(GetParam() + QStringLiteral(".file"), tree, golden::printedFromFile(mText));
    compare(GetParam() + QStringLiteral(".crlf.file"), tree,
            golden::printedFromFile(golden::withCrLf(mText)));
}

TEST_P(GoldenTrees, FromTheLiteralRules)
{
    const QByteArray tree = expectedTree();
    compare(GetParam() + QStringLiteral(".literal"), tree, literal::printedTree(mText));
    compare(GetParam() + QStringLiteral(".crlf.literal"), tree,
            literal::printedTree(golden::withCrLf(mText)));
}

INSTANTIATE_TEST_SUITE_P(Samples, GoldenTrees,
                         testing::ValuesIn(golden::sampleNames(goldenFolder)));

} // namespace golden_trees_test
