// SPDX-License-Identifier: MIT
// Any text flows and is itself again, and any enriched text becomes plain.

#include "extra/EnrichedText.h"
#include "extra/Quoting.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime;
using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QString text = QString::fromUtf8(toArray(bytes, size));
    quotedText(text);
    textFromFlowed(text, true);
    // What flowing changes, it changes once: blanks at line ends, and how quotes are written. Of
    // the CRs that stand before a line end, each reading takes one.
    QString lines = text;
    lines.remove('\r');
    const QString plain = textFromFlowed(flowedText(lines));
    require(textFromFlowed(flowedText(plain)) == plain, "a text that flowed is itself again");
    require(textFromEnriched(text).size() <= 13 * text.size(), "only quotes make it longer");
    require(textFromRichText(text).size() <= 13 * text.size(), "only quotes make it longer");
    return 0;
}
