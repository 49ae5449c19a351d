// SPDX-License-Identifier: MIT
#include "utility/tree/AssemblySinks.h"

#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <string>

using namespace tarvomime;

TEST(MemoryAssembly, HandsOutSlicesOfOneText)
{
    EMAIL_Message first;
    EMAIL_Message second;
    MemoryAssembly sink;
    EXPECT_TRUE(sink.write("ab"));
    sink.handOut(first, 1);
    EXPECT_TRUE(sink.write("cd"));
    sink.handOut(second, 0);
    EXPECT_TRUE(sink.finish(true));
    EXPECT_EQ(first.getMessage(), "b");
    EXPECT_EQ(second.getMessage(), "abcd");
    EXPECT_EQ(first.getMessage().begin(), second.getMessage().begin() + 1);
}

TEST(MemoryAssembly, HandsOutAHeaderAndItsFields)
{
    EMAIL_Header header(QCString("A: 1\r\nB: 2\r\nEmpty:\r\nTo: 3\r\n"), nullptr);
    header.parse();
    MemoryAssembly sink;
    EXPECT_TRUE(sink.write("--b\r\n"));
    EXPECT_EQ(sink.writeHeader(header), "To: 3\r\nA: 1\r\nB: 2\r\n");
    EXPECT_TRUE(sink.write("rest") && sink.finish(true));
    EXPECT_EQ(header.getMessage(), "To: 3\r\nA: 1\r\nB: 2\r\n");
    const char* const start = header.getMessage().begin();
    EXPECT_EQ(std::string_view(start - 5, 5), "--b\r\n") << "a slice of the whole";
    EXPECT_EQ(header.getField("B")->getMessage(), "B: 2\r\n");
    EXPECT_EQ(header.getField("B")->getMessage().begin(), start + 13);
    EXPECT_EQ(header.getField("To")->getMessage().begin(), start);
    EXPECT_EQ(header.getField("Empty")->getMessage(), "");
}

// Assembling a body asks for the Content-Type, which replaces a field of another class.
TEST(MemoryAssembly, LeavesTheLinesOfAHeaderThatChangedSince)
{
    EMAIL_Header header(QCString("A: 1\r\n"), nullptr);
    header.parse();
    auto* plain = new EMAIL_Field;
    plain->mName = "Content-Type";
    plain->mBody = "text/plain";
    header.addField(plain);
    header.field("B")->mBody = "2";
    MemoryAssembly sink;
    EXPECT_TRUE(sink.writeHeader(header).has_value());
    header.contentType();
    EXPECT_TRUE(sink.finish(true));
    EXPECT_EQ(header.getMessage(), "A: 1\r\nContent-Type: text/plain\r\nB: 2\r\n");
    EXPECT_EQ(header.getField("A")->getMessage(), "A: 1\r\n");
    EXPECT_EQ(header.getField("B")->getMessage(), "B: 2\r\n");
}

TEST(MemoryAssembly, GivesAHeaderBeyondItsLimitUp)
{
    EMAIL_Header header(QCString("A: 1\r\nB: 2\r\n"), nullptr);
    header.parse();
    MemoryAssembly sink(11);
    EXPECT_EQ(sink.writeHeader(header), std::nullopt) << "twelve bytes";
    EXPECT_FALSE(sink.finish(false));
    EXPECT_EQ(header.getMessage(), "A: 1\r\nB: 2\r\n");
}

TEST(MemoryAssembly, GivesATextBeyondItsLimitUp)
{
    EMAIL_Message message(QCString("old"), nullptr);
    MemoryAssembly sink(4);
    EXPECT_TRUE(sink.write("abc"));
    EXPECT_FALSE(sink.write("de")) << "five bytes";
    EXPECT_EQ(sink.position(), 3);
    EXPECT_TRUE(sink.write("d"));
    EXPECT_FALSE(sink.write("e"));
    sink.handOut(message, 0);
    EXPECT_FALSE(sink.finish(false));
    EXPECT_EQ(message.getMessage(), "old");
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
            EXPECT_TRUE(sink.finish(true));
            EXPECT_EQ(file.written().size(), int(size));
            for (const qint64 length : file.writes())
                EXPECT_LE(length, 32768) << size << " in pieces of " << piece;
            EXPECT_EQ(file.writes().size(), (size + 32767) / 32768) << "in pieces of " << piece;
        }
    }
}

TEST(FileAssembly, KeepsWhatCameBeforeAFailure)
{
    RecordingFile file;
    FileAssembly sink(file);
    EXPECT_TRUE(sink.write("abc"));
    EXPECT_FALSE(sink.finish(false));
    EXPECT_EQ(file.written(), "abc");
}

TEST(FileAssembly, RefusesAFileThatIsNotOpenForWriting)
{
    QFile closed(QStringLiteral("/nowhere/at/all"));
    FileAssembly sink(closed);
    EXPECT_FALSE(sink.finish(true)) << "even with nothing to write";
}
