// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <csignal>
#include <gtest/gtest.h>

namespace codec_test {

namespace {

struct CodecRow
{
    const char* name;
    const char* encoding;
    QByteArray raw;
    QByteArray encoded;
    // What decoding adds: a line end that the encoder wrote belongs to quoted-printable text.
    QByteArray tail = {};
};

class Codec : public testing::TestWithParam<CodecRow>
{
protected:
    void expectBothWays(const char* command, const QByteArray& input, const QByteArray& output)
    {
        const ToolResult piped = tool.run({command, GetParam().encoding}, input);
        EXPECT_EQ(piped.status, 0);
        EXPECT_EQ(piped.out, output);
        tool.write("in", input);
        const ToolResult streamed = tool.run({command, GetParam().encoding, "in", "--out", "out"});
        EXPECT_EQ(streamed.status, 0);
        EXPECT_EQ(streamed.out, "");
        EXPECT_EQ(tool.read("out"), output);
    }
    ToolRunner tool;
};

QByteArray manyBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 200000; ++i)
        bytes += char(i * 7 % 251);
    return bytes;
}

} // namespace

TEST_P(Codec, Encodes)
{
    expectBothWays("encode", GetParam().raw, GetParam().encoded);
}

TEST_P(Codec, Decodes)
{
    expectBothWays("decode", GetParam().encoded, GetParam().raw + GetParam().tail);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Codec,
    testing::Values(CodecRow{"Base64", "base64", "abc", "YWJj\r\n"},
                    CodecRow{"Base64OfNothing", "base64", "", ""},
                    CodecRow{"Base64WithNul", "base64", QByteArray("a\0b", 3), "YQBi\r\n"},
                    CodecRow{"QuotedPrintable", "quoted-printable", "a=b", "a=3Db\r\n", "\r\n"},
                    CodecRow{"QuotedPrintableOfNothing", "quoted-printable", "", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CodecRoundTrip, KeepsManyBytes)
{
    const ToolRunner tool;
    tool.write("in", manyBytes());
    ASSERT_EQ(tool.run({"encode", "base64", "in", "--out", "encoded"}).status, 0);
    ASSERT_EQ(tool.run({"decode", "base64", "encoded", "--out", "out"}).status, 0);
    EXPECT_EQ(tool.read("out"), manyBytes());
}

TEST(CodecErrors, FullStandardOutput)
{
    const ToolRunner tool;
    tool.write("in", manyBytes());
    const ToolResult result = tool.runInto("/dev/full", {"encode", "base64", "in"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "tarvomime: standard output: No space left on device\n");
}

class CodecInterrupt : public testing::TestWithParam<QStringList>
{
};

TEST_P(CodecInterrupt, RemovesTheHalfWrittenFile)
{
    const ToolRunner tool;
    QFile large(tool.write("in", ""));
    ASSERT_TRUE(large.resize(qint64(1) << 30));
    const auto process = tool.start(QStringList(GetParam()) << "in"
                                                            << "--out"
                                                            << "out");
    // By then it handles Ctrl-C.
    ASSERT_TRUE(tool.waitForFiles(*process, 2));
    kill(static_cast<pid_t>(process->processId()), SIGINT);
    const ToolResult result = ToolRunner::finish(*process);
    EXPECT_EQ(result.status, 130) << testing::PrintToString(result);
    EXPECT_EQ(tool.files(), QStringList("in"));
}

INSTANTIATE_TEST_SUITE_P(Tool, CodecInterrupt,
                         testing::Values(QStringList{"encode", "base64"},
                                         QStringList{"encode", "quoted-printable"},
                                         // Holds no digit: nothing is ever written.
                                         QStringList{"decode", "base64"},
                                         QStringList{"decode", "quoted-printable"}));

TEST(CodecInterruptAtTheKeyboard, EndsTheWaitForInput)
{
#ifdef TARVOMIME_EMULATED
    GTEST_SKIP() << "the emulator handles every signal itself: nobody sees when the tool begins to";
#endif
    const ToolRunner tool;
    const auto process = tool.start({"encode", "base64", "--out", "out"});
    ASSERT_TRUE(ToolRunner::waitUntilInterruptible(*process));
    kill(static_cast<pid_t>(process->processId()), SIGINT);
    EXPECT_EQ(ToolRunner::finish(*process).status, 130);
    EXPECT_EQ(tool.files(), QStringList());
}

} // namespace codec_test
