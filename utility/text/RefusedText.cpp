// SPDX-License-Identifier: MIT
#include "utility/text/RefusedText.h"

namespace tarvomime {

namespace {

// An array of its own: equal literals may lie in one place. Its first byte ends the text that shows
// none of it, so that the text is never copied to be terminated.
constexpr char kRefusal[2] = {'\0', '\0'};

} // namespace

QCString refusedText()
{
    return QCString::fromLiteral(kRefusal).left(0);
}

bool isRefused(const QCString& text)
{
    return text.isEmpty() && text.begin() == kRefusal;
}

} // namespace tarvomime
