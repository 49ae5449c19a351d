// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Numbers.h"

class QFile;

/// Streamed output: what every file form of a codec ends in.
namespace tarvomime {

class BodyBytes;

/// A codec writes a block as soon as it holds this many bytes.
constexpr int kBlockThreshold = 32768;

/// Writes `length` bytes and flushes, so that a full disk shows here and not when the file is
/// closed. Returns 0, or -1 when the file did not take them all.
int writeBlock(QFile* file, const char* bytes, int length);
/// 0 when the file has taken all that was written to it, -1 otherwise.
int flushedStatus(QFile* file);

int writeFile(QFile* file, char* buffer, int& used, int threshold,
              const ProgressCallback& callback);
int writeRawData(const char* data, int length, QFile* file, const ProgressCallback& callback);
int writeRawData(const BodyBytes& data, QFile* file, const ProgressCallback& callback);

} // namespace tarvomime
