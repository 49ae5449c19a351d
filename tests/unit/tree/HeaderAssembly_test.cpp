// SPDX-License-Identifier: MIT
#include "utility/tree/HeaderAssembly.h"

#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

namespace header_assembly_test {

using namespace tarvomime;

TEST(HeaderAssembly, MakesOneTextOfItsLines)
{
    EMAIL_Header header(QCString("A: 1\r\nB: 2\r\nEmpty:\r\nTo: 3\r\n"), nullptr);
    header.parse();
    EXPECT_TRUE(assembleHeader(header));
    EXPECT_EQ(header.getMessage(), "To: 3\r\nA: 1\r\nB: 2\r\n");
    const char* const start = header.getMessage().begin();
    EXPECT_EQ(header.getField("B")->getMessage(), "B: 2\r\n");
    EXPECT_EQ(header.getField("B")->getMessage().begin(), start + 13) << "a slice";
    EXPECT_EQ(header.getField("To")->getMessage().begin(), start);
    EXPECT_EQ(header.getField("Empty")->getMessage(), "");
    EXPECT_FALSE(header.getField("Empty")->getMessage().isNull());
}

TEST(HeaderAssembly, GivesATextBeyondItsLimitUp)
{
    EMAIL_Header header(QCString("A: 1\r\nB: 2\r\n"), nullptr);
    header.parse();
    header.getField("A")->mBody = "3";
    EXPECT_FALSE(assembleHeader(header, 11)) << "twelve bytes";
    EXPECT_EQ(header.getMessage(), "A: 1\r\nB: 2\r\n");
    EXPECT_TRUE(assembleHeader(header, 12));
    EXPECT_EQ(header.getMessage(), "A: 3\r\nB: 2\r\n");
}

TEST(HeaderAssembly, OfNothingIsEmptyNotNull)
{
    EMAIL_Header header;
    EXPECT_TRUE(assembleHeader(header, 0));
    EXPECT_EQ(header.getMessage(), "");
    EXPECT_FALSE(header.getMessage().isNull());
}

TEST(HeaderAssembly, MovesTextAndLines)
{
    EMAIL_Header header(QCString("A: 1\r\nB: 2\r\n"), nullptr);
    header.parse();
    EXPECT_TRUE(assembleHeader(header));
    auto* later = new EMAIL_Field(QCString("C: 3\r\n"), &header);
    later->mName = "C";
    header.addField(later);
    const QCString whole("--b\r\nA: 1\r\nB: 2\r\n\r\n");
    moveHeader(header, whole, 5);
    EXPECT_EQ(header.getMessage(), "A: 1\r\nB: 2\r\n");
    EXPECT_EQ(header.getMessage().begin(), whole.begin() + 5);
    EXPECT_EQ(header.getField("B")->getMessage(), "B: 2\r\n");
    EXPECT_EQ(header.getField("B")->getMessage().begin(), whole.begin() + 11);
    EXPECT_EQ(later->getMessage(), "C: 3\r\n") << "no line of that text";
}

namespace {

// An application's own field that changes another one which was measured before.
struct Meddler : EMAIL_Field
{
    explicit Meddler(EMAIL_Field* victim) : mVictim(victim) { mName = "Meddler"; }
    void assemble() override { mVictim->mBody = QByteArray(1000, 'x'); }
    EMAIL_Field* mVictim;
};

} // namespace

TEST(HeaderAssembly, NeverWritesMoreThanItHasMeasured)
{
    for (const char* name : {"A", "To"}) {
        EMAIL_Header header;
        auto* victim = new EMAIL_Field;
        victim->mName = name;
        victim->mBody = "1";
        header.addField(victim);
        header.addField(new Meddler(victim));
        EXPECT_FALSE(assembleHeader(header)) << name;
        EXPECT_TRUE(assembleHeader(header)) << "from now on its length is what it was";
        EXPECT_EQ(header.getMessage().length(), 1004 + int(qstrlen(name)));
    }
}

} // namespace header_assembly_test
