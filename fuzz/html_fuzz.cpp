// SPDX-License-Identifier: MIT
// Any HTML becomes text, which holds nothing that a script or a comment said.

#include "extra/HtmlText.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QString html = QString::fromUtf8(toArray(bytes, size));
    const QString text = tarvomime::textFromHtml(html);
    require(text.size() <= 32 * html.size() + 32, "the text grows with its source only");
    require(text.isEmpty() || text.endsWith('\n'), "the text ends its last line");
    return 0;
}
