// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdio>

namespace tarvomime {

/// Maps a whole file read-only and private; see `EMAIL_Util::openBuffer`.
int mapFile(const QString& path, std::FILE*& stream, char*& data, int& size);

} // namespace tarvomime
