// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/MailSource.h"

namespace tarvomime::tool {

/// Where a message lies, as the beginning of the object about it.
inline QJsonObject placeAsJson(const MailPlace& place)
{
    QJsonObject object{{"file", jsonPath(place.file->path())}};
    if (place.isInMbox()) {
        object.insert("message", place.number);
        object.insert("offset", place.offset);
    }
    return object;
}

} // namespace tarvomime::tool
