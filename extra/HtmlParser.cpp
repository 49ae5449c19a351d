// SPDX-License-Identifier: MIT
#include "extra/HtmlParser.h"

#ifdef TARVOMIME_LIBXML2_SONAME
#include <dlfcn.h>
#endif

namespace tarvomime {

// Most programs never read HTML, and many do not live long: to load libxml2 and what it is made of
// took an eighth of a program's start. It is opened by the name that the linker would have written
// down, and found where the loader would have found it.
//
// 1. It is never closed: its own tables live as long as the process.
// 2. Where it is no shared library (or we are none) it is linked, and there is nothing to open.

#ifdef TARVOMIME_LIBXML2_SONAME

namespace {

template <class Function>
bool find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

bool openParser(HtmlParser& parser)
{
    void* library = dlopen(TARVOMIME_LIBXML2_SONAME, RTLD_LAZY | RTLD_LOCAL);
    return library != nullptr && find(library, "htmlCreateMemoryParserCtxt", parser.create) &&
           find(library, "htmlCtxtUseOptions", parser.useOptions) &&
           find(library, "xmlSwitchEncoding", parser.switchEncoding) &&
           find(library, "htmlParseDocument", parser.parse) &&
           find(library, "namePop", parser.popName) &&
           find(library, "htmlFreeParserCtxt", parser.free) &&
           find(library, "htmlTagLookup", parser.findElement) &&
           find(library, "htmlEntityLookup", parser.findEntity);
}

} // namespace

const HtmlParser* htmlParser()
{
    static HtmlParser parser{};
    static const bool isOpen = openParser(parser);
    return isOpen ? &parser : nullptr;
}

#else

const HtmlParser* htmlParser()
{
    static constexpr HtmlParser kParser{htmlCreateMemoryParserCtxt,
                                        htmlCtxtUseOptions,
                                        xmlSwitchEncoding,
                                        htmlParseDocument,
                                        namePop,
                                        htmlFreeParserCtxt,
                                        htmlTagLookup,
                                        htmlEntityLookup};
    return &kParser;
}

#endif

} // namespace tarvomime
