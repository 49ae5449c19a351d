// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

class EMAIL_Header;

namespace tarvomime::tool {

/// The private fields of a header, named for programs: download state, truncation, smart send,
/// receipts.
QJsonObject privateFields(const EMAIL_Header& header);

} // namespace tarvomime::tool
