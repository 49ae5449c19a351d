// SPDX-License-Identifier: MIT
#include "tools/tarvomime/CharsetNames.h"

#include "utility/EMAIL_Util.h"

namespace tarvomime::tool {

std::string unknownCharset(const std::string& name)
{
    std::string known;
    QCString charset;
    for (int number = CHARSET_US_ASCII; number <= CHARSET_ISO_8859_15; ++number) {
        EMAIL_Util::charsetEnumToStr(number, charset);
        known += (known.empty() ? "" : ", ") + std::string(charset.view());
    }
    return "unknown charset '" + name + "'; known are " + known;
}

} // namespace tarvomime::tool
