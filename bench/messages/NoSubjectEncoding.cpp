// SPDX-License-Identifier: MIT
// For the libraries that encode no subject on their own: never called, since canDo() says so.
#include "bench/messages/Library.h"

namespace bench {

struct LibraryText
{
};

LibraryText* newLibraryText(const std::string&)
{
    return nullptr;
}

void deleteLibraryText(LibraryText*) {}

std::string encodeSubject(const LibraryText&, Language, bool)
{
    return {};
}

} // namespace bench
