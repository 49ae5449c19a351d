// SPDX-License-Identifier: MIT
#include "tests/support/EveryProcessor.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace processor_test {

namespace {

using tarvomime::Processor;

std::vector<Processor> kindsOfThisOne()
{
    std::vector<Processor> kinds;
    for (int kind = 0; kind < tarvomime::kProcessors; ++kind) {
        if (tarvomime::runsAs(static_cast<Processor>(kind)))
            kinds.push_back(static_cast<Processor>(kind));
    }
    return kinds;
}

TEST(Processor, TheBestKindIsUsed)
{
    EXPECT_EQ(tarvomime::processor(), kindsOfThisOne().front());
}

TEST(Processor, EveryOneGoesThePlainWayToo)
{
    EXPECT_EQ(kindsOfThisOne().back(), Processor::Plain);
}

// On x86 each kind has all that those behind it have.
TEST(Processor, BetterKindsStandInForWorseOnes)
{
    const auto kinds = kindsOfThisOne();
    if (kinds.front() >= Processor::Neon)
        GTEST_SKIP() << "this processor has one kind of vectors at most";
    EXPECT_EQ(kinds.size(), std::size_t(Processor::Neon) - std::size_t(kinds.front()) + 1);
}

TEST(Processor, EveryKindIsUsedInTurnAndTheBestOneAfterwards)
{
    const Processor best = tarvomime::processor();
    std::vector<Processor> used;
    onEveryProcessor([&] { used.push_back(tarvomime::processor()); });
    EXPECT_EQ(used, kindsOfThisOne());
    EXPECT_EQ(tarvomime::processor(), best);
}

TEST(Processor, NamesAreOfOneKindEach)
{
    std::vector<std::string> names;
    for (int kind = 0; kind < tarvomime::kProcessors; ++kind) {
        const std::string name = tarvomime::processorName(static_cast<Processor>(kind));
        EXPECT_THAT(names, testing::Not(testing::Contains(name)));
        names.push_back(name);
    }
}

} // namespace

} // namespace processor_test
