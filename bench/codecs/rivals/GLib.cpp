// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <glib.h>

namespace bench {

namespace {

constexpr const char* kName = "glib";

std::size_t encode(const std::string& in)
{
    gchar* const out = g_base64_encode(reinterpret_cast<const guchar*>(in.data()), in.size());
    const std::size_t length = (in.size() + 2) / 3 * 4;
    g_free(out);
    return length;
}

std::size_t decode(const std::string& in)
{
    gsize length = 0;
    g_free(g_base64_decode(in.c_str(), &length));
    return length;
}

const bool added = addWork(kName, Job::EncodeBase64Unbroken, encode) &&
                   addWork(kName, Job::DecodeBase64, decode) &&
                   addWork(kName, Job::DecodeBase64Unbroken, decode);

} // namespace

} // namespace bench
