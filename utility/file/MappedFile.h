// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdio>

namespace tarvomime {

/// Maps a whole file read-only and private; see `EMAIL_Util::openBuffer`. A file that is refused
/// leaves the arguments as they were.
int mapFile(const QString& path, std::FILE*& stream, char*& data, int& size);

} // namespace tarvomime
