// SPDX-License-Identifier: MIT
// The search for a delimiter line beside the plain search for the same bytes, for each kind of
// processor.
#include "tests/support/EveryProcessor.h"
#include "tests/support/ExactBuffer.h"
#include "tests/support/RandomText.h"
#include "utility/tree/DelimiterSearch.h"

#include <string>

namespace delimiter_search_test {

namespace {

void expectAsPlain(const ExactBuffer& text, std::size_t from, const std::string& boundary)
{
    const std::size_t found = tarvomime::findDelimiterLine(text.view(), from, boundary);
    const std::size_t plain = text.view().find("\n--" + boundary, from);
    ASSERT_EQ(found, plain) << testing::PrintToString(std::string(text.view())) << " boundary "
                            << testing::PrintToString(boundary) << " from " << from;
}

// Every place of one delimiter line, also cut off, among lines that almost match.
TEST(DelimiterSearch, FindsTheLineAtEveryPlace)
{
    onEveryProcessor([] {
        for (const char* boundary : {"", "-", "b", "bound", "\n-"}) {
            const QByteArray line = QByteArray("\n--") + boundary;
            for (int place = 0; place < 200; ++place) {
                const QByteArray before = QByteArray("\n-x\n--boun").repeated(20).left(place);
                for (int cut = 0; cut <= line.size(); ++cut)
                    expectAsPlain(ExactBuffer(before + line.left(cut)), 0, boundary);
                expectAsPlain(ExactBuffer(before + line + before), 0, boundary);
            }
        }
    });
}

TEST(DelimiterSearch, FindsTheSameInRandomTexts)
{
    onEveryProcessor([] {
        RandomText texts(7, {"\n--bound", "\n--boun", "\r\n--", "\n-", "-", "b", "bound\n",
                             QByteArray("\0\xFF", 2), "a line that is longer than one vector is"});
        for (std::size_t round = 0; round < 3000; ++round) {
            const ExactBuffer text(texts.next(40), round % 64);
            for (const char* boundary : {"", "b", "bound", "bound\n"}) {
                for (std::size_t from = 0; from <= text.size(); from += 1 + text.size() / 5)
                    expectAsPlain(text, from, boundary);
            }
        }
    });
}

} // namespace

} // namespace delimiter_search_test
