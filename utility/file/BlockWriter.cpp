// SPDX-License-Identifier: MIT
#include "utility/file/BlockWriter.h"

#include "utility/file/BodyBytes.h"

#include <QFile>
#include <algorithm>
#include <cstring>

namespace tarvomime {

int writeBlock(QFile* file, const char* bytes, int length)
{
    // Qt prints a warning about a write to a file that is not open for it.
    if (!file->isWritable() || file->write(bytes, length) != length)
        return -1;
    return flushedStatus(file);
}

int flushedStatus(QFile* file)
{
    // QFile keeps small writes back; only a flush tells whether there was room for them.
    const bool flushed = !file->isWritable() || file->flush();
    return flushed && file->error() == QFile::NoError ? 0 : -1;
}

int writeFile(QFile* file, char* buffer, int& used, int threshold, const ProgressCallback& callback)
{
    if (used < threshold)
        return 0;
    if (callback) {
        const int answer = callback();
        if (answer != 0)
            return answer;
    }
    if (writeBlock(file, buffer, used) != 0)
        return -1;
    std::memset(buffer, 0, 4);
    used = 0;
    return 0;
}

int writeRawData(const char* data, int length, QFile* file, const ProgressCallback& callback)
{
    while (length > 0 && data != nullptr) {
        if (callback) {
            const int answer = callback();
            if (answer != 0)
                return answer;
        }
        const int block = std::min(length, kBlockThreshold);
        if (writeBlock(file, data, block) != 0)
            return -1;
        data += block;
        length -= block;
    }
    return 0;
}

int writeRawData(const BodyBytes& data, QFile* file, const ProgressCallback& callback)
{
    for (BodyBlocks blocks(data); !blocks.atEnd();) {
        const auto block = blocks.next();
        if (!block)
            return -1;
        const auto length = static_cast<int>(block->size());
        const int refused = writeRawData(block->data(), length, file, callback);
        if (refused != 0)
            return refused;
    }
    return 0;
}

} // namespace tarvomime
