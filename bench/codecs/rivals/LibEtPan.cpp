// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <libetpan/libetpan.h>

namespace bench {

namespace {

constexpr const char* kName = "libetpan";

template <auto write, auto... arguments>
std::size_t encode(const std::string& in)
{
    MMAPString* const out = mmap_string_new("");
    int column = 0;
    write(out, &column, arguments..., in.data(), in.size());
    const std::size_t length = out->len;
    mmap_string_free(out);
    return length;
}

template <auto parse, auto... arguments>
std::size_t decode(const std::string& in)
{
    std::size_t position = 0;
    char* result = nullptr;
    std::size_t length = 0;
    parse(in.data(), in.size(), &position, &result, &length, arguments...);
    mmap_string_unref(result);
    return length;
}

const bool added = addWork(kName, Job::EncodeBase64, encode<mailmime_base64_write_mem>) &&
                   addWork(kName, Job::DecodeBase64, decode<mailmime_base64_body_parse>) &&
                   addWork(kName, Job::EncodeQp, encode<mailmime_quoted_printable_write_mem, 0>) &&
                   addWork(kName, Job::DecodeQp, decode<mailmime_quoted_printable_body_parse, 0>);

} // namespace

} // namespace bench
