// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <iterator>
#include <mimetic/mimetic.h>

namespace bench {

namespace {

constexpr const char* kName = "mimetic";

template <class Codec>
std::size_t run(const std::string& in)
{
    Codec codec;
    std::string out;
    mimetic::code(in.begin(), in.end(), codec, std::back_inserter(out));
    return out.size();
}

const bool added = addWork(kName, Job::EncodeBase64, run<mimetic::Base64::Encoder>) &&
                   addWork(kName, Job::DecodeBase64, run<mimetic::Base64::Decoder>) &&
                   addWork(kName, Job::EncodeQp, run<mimetic::QP::Encoder>) &&
                   addWork(kName, Job::DecodeQp, run<mimetic::QP::Decoder>);

} // namespace

} // namespace bench
