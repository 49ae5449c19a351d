// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// From a file name's extension to media type and subtype, and back.
namespace tarvomime {

int subtypeByExtension(const QString& fileName, int& type);
int extensionBySubtype(int subtype, QString& extension);
QString firstExtensionOfType(int type);

} // namespace tarvomime
