// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"
#include "tests/support/PlainCodecs.h"

// This library's own codecs without their vectorised paths.
namespace bench {

namespace {

constexpr const char* kName = "plain";

std::size_t size(const QByteArray& result)
{
    return static_cast<std::size_t>(result.size());
}

template <bool breakLines>
std::size_t encodeBase64(const std::string& in)
{
    return size(tarvomime_plain::encodeBase64(in.data(), in.size(), breakLines));
}

std::size_t decodeBase64(const std::string& in)
{
    unsigned long length = 0;
    return size(
        tarvomime_plain::decodeBase64(in.c_str(), &length, tarvomime_plain::NulByte::IsData));
}

std::size_t encodeQp(const std::string& in)
{
    return size(tarvomime_plain::encodeQp(in.data(), in.size(), true));
}

std::size_t decodeQp(const std::string& in)
{
    unsigned long length = 0;
    return size(tarvomime_plain::decodeQp(in.c_str(), &length, tarvomime_plain::NulByte::IsData));
}

const bool added = addWork(kName, Job::EncodeBase64, encodeBase64<true>) &&
                   addWork(kName, Job::EncodeBase64Unbroken, encodeBase64<false>) &&
                   addWork(kName, Job::DecodeBase64, decodeBase64) &&
                   addWork(kName, Job::DecodeBase64Unbroken, decodeBase64) &&
                   addWork(kName, Job::EncodeQp, encodeQp) &&
                   addWork(kName, Job::DecodeQp, decodeQp);

} // namespace

} // namespace bench
