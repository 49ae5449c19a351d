// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Mbox.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct MboxRow
{
    const char* name;
    std::string bytes;
    std::vector<std::string> messages;
    bool isMbox = true;
};

class Mbox : public testing::TestWithParam<MboxRow>
{
};

const std::string kFrom = "From a@b Mon Jun  3 10:15:00 2024\n";

} // namespace

TEST_P(Mbox, IsCut)
{
    tarvomime::tool::MboxReader reader(GetParam().bytes);
    EXPECT_EQ(reader.isMbox(), GetParam().isMbox);
    std::vector<std::string> messages;
    std::string_view message;
    while (reader.next(message))
        messages.emplace_back(message);
    EXPECT_EQ(messages, GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, Mbox,
    testing::Values(
        MboxRow{"Empty", "", {}, false},
        MboxRow{"OneMessageFile",
                "A: 1\n\nx\n\nFrom here to 10:15\n",
                {"A: 1\n\nx\n\nFrom here to 10:15\n"},
                false},
        MboxRow{"One", kFrom + "A: 1\n\nx\n", {"A: 1\n\nx\n"}},
        MboxRow{"Two",
                kFrom + "A: 1\n\nx\n\n" + kFrom + "A: 2\n\ny\n\n",
                {"A: 1\n\nx\n", "A: 2\n\ny\n"}},
        MboxRow{"CrLf",
                "From a 10:15\r\nA: 1\r\n\r\nx\r\n\r\nFrom b 10:16\r\nA: 2\r\n",
                {"A: 1\r\n\r\nx\r\n", "A: 2\r\n"}},
        MboxRow{"FromInsideAParagraph",
                kFrom + "A: 1\n\nx\n" + kFrom + "y\n",
                {"A: 1\n\nx\n" + kFrom + "y\n"}},
        MboxRow{"FromWithoutATime",
                kFrom + "A: 1\n\nFrom my side, fine\n\nFrom me: yes\n",
                {"A: 1\n\nFrom my side, fine\n\nFrom me: yes\n"}},
        MboxRow{"QuotedFrom", kFrom + "A: 1\n\n>From a 10:15\n", {"A: 1\n\n>From a 10:15\n"}},
        MboxRow{"NothingBehindTheSeparator", kFrom, {""}},
        MboxRow{"SeparatorWithoutLineEnd", "From a 10:15", {""}},
        MboxRow{"TimeAtTheEnd", "From a 1:1", {"From a 1:1"}, false}),
    [](const auto& row) { return std::string(row.param.name); });
