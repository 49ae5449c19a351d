// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <KCodecs>
#include <QByteArray>

namespace bench {

namespace {

constexpr const char* kName = "kcodecs";

QByteArray view(const std::string& in)
{
    return QByteArray::fromRawData(in.data(), static_cast<int>(in.size()));
}

std::size_t encode(const char* codec, const std::string& in)
{
    const auto* found = KCodecs::Codec::codecForName(codec);
    return static_cast<std::size_t>(found->encode(view(in), KCodecs::Codec::NewlineCRLF).size());
}

std::size_t decode(const char* codec, const std::string& in)
{
    const auto* found = KCodecs::Codec::codecForName(codec);
    return static_cast<std::size_t>(found->decode(view(in), KCodecs::Codec::NewlineCRLF).size());
}

std::size_t encodeBase64(const std::string& in)
{
    return encode("base64", in);
}

std::size_t decodeBase64(const std::string& in)
{
    return decode("base64", in);
}

std::size_t encodeQp(const std::string& in)
{
    return encode("quoted-printable", in);
}

std::size_t decodeQp(const std::string& in)
{
    return decode("quoted-printable", in);
}

const bool added = addWork(kName, Job::EncodeBase64, encodeBase64) &&
                   addWork(kName, Job::DecodeBase64, decodeBase64) &&
                   addWork(kName, Job::EncodeQp, encodeQp) &&
                   addWork(kName, Job::DecodeQp, decodeQp);

} // namespace

} // namespace bench
