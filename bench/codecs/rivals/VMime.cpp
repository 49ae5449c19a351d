// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <vmime/utility/encoder/b64Encoder.hpp>
#include <vmime/utility/encoder/qpEncoder.hpp>
#include <vmime/utility/inputStreamStringAdapter.hpp>
#include <vmime/utility/outputStreamStringAdapter.hpp>
#include <vmime/vmime.hpp>

namespace bench {

namespace {

constexpr const char* kName = "vmime";

template <class Codec>
std::size_t encode(const std::string& in)
{
    Codec codec;
    codec.getProperties()["maxlinelength"] = 76;
    std::string out;
    vmime::utility::inputStreamStringAdapter source(in);
    vmime::utility::outputStreamStringAdapter target(out);
    codec.encode(source, target);
    return out.size();
}

template <class Codec>
std::size_t decode(const std::string& in)
{
    Codec codec;
    std::string out;
    vmime::utility::inputStreamStringAdapter source(in);
    vmime::utility::outputStreamStringAdapter target(out);
    codec.decode(source, target);
    return out.size();
}

using Base64 = vmime::utility::encoder::b64Encoder;
using Qp = vmime::utility::encoder::qpEncoder;

const bool added = addWork(kName, Job::EncodeBase64, encode<Base64>) &&
                   addWork(kName, Job::DecodeBase64, decode<Base64>) &&
                   addWork(kName, Job::EncodeQp, encode<Qp>) &&
                   addWork(kName, Job::DecodeQp, decode<Qp>);

} // namespace

} // namespace bench
