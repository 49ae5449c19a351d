// SPDX-License-Identifier: MIT
#include "utility/tree/AssemblySinks.h"

#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <string>

namespace assembly_sinks_test {

using namespace tarvomime;

TEST(MeasuringAssembly, AddsUpToItsLimit)
{
    MeasuringAssembly sink(4);
    EXPECT_TRUE(sink.write("abc"));
    EXPECT_FALSE(sink.write("de")) << "five bytes";
    EXPECT_EQ(sink.position(), 3);
    EXPECT_TRUE(sink.write("d"));
    EXPECT_FALSE(sink.write("e"));
    EXPECT_EQ(sink.position(), 4);
}

TEST(MeasuringAssembly, AssemblesAHeader)
{
    EMAIL_Header header(QCString("A: 1\r\nTo: 3\r\n"), nullptr);
    header.parse();
    MeasuringAssembly sink(13);
    EXPECT_EQ(sink.writeHeader(header), "To: 3\r\nA: 1\r\n");
    EXPECT_EQ(sink.position(), 13);
    EXPECT_EQ(sink.writeHeader(header), std::nullopt) << "26 bytes";
}

TEST(MemoryAssembly, HandsOutSlicesOfOneText)
{
    EMAIL_Message first;
    EMAIL_Message second;
    MemoryAssembly sink(4);
    EXPECT_TRUE(sink.write("ab"));
    sink.handOut(first, 1);
    EXPECT_TRUE(sink.write("cd"));
    sink.handOut(second, 0);
    EXPECT_EQ(first.getMessage(), "b");
    EXPECT_EQ(second.getMessage(), "abcd");
    EXPECT_EQ(first.getMessage().begin(), second.getMessage().begin() + 1);
    EXPECT_FALSE(sink.write("e")) << "more than was measured";
}

TEST(MemoryAssembly, TakesAHeaderAsItIs)
{
    EMAIL_Header header(QCString("A: 1\r\n"), nullptr);
    header.parse();
    header.assemble();
    header.getField("A")->mBody = "2";
    MemoryAssembly sink(20);
    EXPECT_TRUE(sink.write("--b\r\n"));
    EXPECT_EQ(sink.writeHeader(header), "A: 1\r\n") << "it was assembled when it was measured";
    const char* const start = header.getMessage().begin();
    EXPECT_EQ(std::string_view(start - 5, 5), "--b\r\n") << "a slice of the whole";
    EXPECT_EQ(header.getField("A")->getMessage().begin(), start);
    MemoryAssembly tooShort(5);
    EXPECT_EQ(tooShort.writeHeader(header), std::nullopt) << "more than was measured";
}

// Every way of filling a block, with the text in one piece and in many.
TEST(FileAssembly, WritesBlocks)
{
    for (const std::size_t size : {0U, 1U, 32767U, 32768U, 32769U, 65536U, 70000U}) {
        for (const std::size_t piece : {1U, 7U, 1000U, 32767U, 32768U, 32769U, 100000U}) {
            const std::string text(size, 'x');
            RecordingFile file;
            FileAssembly sink(file);
            for (std::size_t i = 0; i < size; i += piece)
                EXPECT_TRUE(sink.write(std::string_view(text).substr(i, piece)));
            EXPECT_TRUE(sink.flush());
            EXPECT_EQ(file.written().size(), int(size));
            for (const qint64 length : file.writes())
                EXPECT_LE(length, 32768) << size << " in pieces of " << piece;
            EXPECT_EQ(file.writes().size(), (size + 32767) / 32768) << "in pieces of " << piece;
        }
    }
}

TEST(FileAssembly, RefusesAFileThatIsNotOpenForWriting)
{
    QFile closed(QStringLiteral("/nowhere/at/all"));
    FileAssembly sink(closed);
    EXPECT_FALSE(sink.flush()) << "even with nothing to write";
}

} // namespace assembly_sinks_test
