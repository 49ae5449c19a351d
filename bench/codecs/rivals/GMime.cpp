// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <gmime/gmime.h>
#include <memory>

namespace bench {

namespace {

constexpr const char* kName = "gmime";

std::size_t run(GMimeEncoding* state, const std::string& in)
{
    const std::unique_ptr<char[]> out(new char[g_mime_encoding_outlen(state, in.size())]);
    return g_mime_encoding_flush(state, in.data(), in.size(), out.get());
}

template <GMimeContentEncoding encoding>
std::size_t encode(const std::string& in)
{
    GMimeEncoding state;
    g_mime_encoding_init_encode(&state, encoding);
    return run(&state, in);
}

template <GMimeContentEncoding encoding>
std::size_t decode(const std::string& in)
{
    GMimeEncoding state;
    g_mime_encoding_init_decode(&state, encoding);
    return run(&state, in);
}

constexpr auto kBase64 = GMIME_CONTENT_ENCODING_BASE64;
constexpr auto kQp = GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE;

const bool added = addWork(kName, Job::EncodeBase64, encode<kBase64>) &&
                   addWork(kName, Job::DecodeBase64, decode<kBase64>) &&
                   addWork(kName, Job::DecodeBase64Unbroken, decode<kBase64>) &&
                   addWork(kName, Job::DecodeBase64ShortFirst, decode<kBase64>) &&
                   addWork(kName, Job::DecodeBase64Ragged, decode<kBase64>) &&
                   addWork(kName, Job::EncodeQp, encode<kQp>) &&
                   addWork(kName, Job::DecodeQp, decode<kQp>);

} // namespace

} // namespace bench
