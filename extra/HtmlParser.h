// SPDX-License-Identifier: MIT
#pragma once

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

namespace tarvomime {

/// What is called of libxml2, under shorter names.
struct HtmlParser
{
    decltype(&htmlCreateMemoryParserCtxt) create;
    decltype(&htmlCtxtUseOptions) useOptions;
    decltype(&xmlSwitchEncoding) switchEncoding;
    decltype(&htmlParseDocument) parse;
    decltype(&namePop) popName;
    decltype(&htmlFreeParserCtxt) free;
    decltype(&htmlTagLookup) findElement;
    decltype(&htmlEntityLookup) findEntity;
};

/// libxml2, opened by the first call; null where it cannot be opened.
const HtmlParser* htmlParser();

} // namespace tarvomime
