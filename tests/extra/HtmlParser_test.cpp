// SPDX-License-Identifier: MIT
#include "extra/HtmlParser.h"

#include <gtest/gtest.h>

namespace html_parser_test {

TEST(HtmlParser, HasAllItsFunctions)
{
    const tarvomime::HtmlParser* parser = tarvomime::htmlParser();
    ASSERT_NE(parser, nullptr);
    EXPECT_NE(parser->create, nullptr);
    EXPECT_NE(parser->useOptions, nullptr);
    EXPECT_NE(parser->switchEncoding, nullptr);
    EXPECT_NE(parser->parse, nullptr);
    EXPECT_NE(parser->popName, nullptr);
    EXPECT_NE(parser->free, nullptr);
    EXPECT_NE(parser->findElement, nullptr);
    EXPECT_NE(parser->findEntity, nullptr);
}

} // namespace html_parser_test
