// SPDX-License-Identifier: MIT
#include "utility/file/MappedFile.h"

#include "utility/file/RegularFile.h"

#include <sys/mman.h>

namespace tarvomime {

int mapFile(const QString& path, std::FILE*& stream, char*& data, int& size)
{
    RegularFile file(path);
    if (!file.isOpen())
        return -1;
    const auto length = static_cast<std::size_t>(file.size());
    void* const mapping = mmap(nullptr, length, PROT_READ, MAP_PRIVATE, file.descriptor(), 0);
    if (mapping == MAP_FAILED)
        return -1;
    std::FILE* const opened = fdopen(file.descriptor(), "r+");
    if (opened == nullptr) {
        munmap(mapping, length);
        return -1;
    }
    file.release();
    stream = opened;
    data = static_cast<char*>(mapping);
    size = file.size();
    return 0;
}

} // namespace tarvomime
