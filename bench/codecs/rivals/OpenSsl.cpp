// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <memory>
#include <openssl/evp.h>

namespace bench {

namespace {

constexpr const char* kName = "openssl";

struct FreeContext
{
    void operator()(EVP_ENCODE_CTX* context) const { EVP_ENCODE_CTX_free(context); }
};
using Context = std::unique_ptr<EVP_ENCODE_CTX, FreeContext>;

const unsigned char* bytes(const std::string& text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

// Lines of 64 digits and LF: the only length it knows.
std::size_t encode(const std::string& in)
{
    const Context context(EVP_ENCODE_CTX_new());
    const std::unique_ptr<unsigned char[]> out(new unsigned char[in.size() / 48 * 65 + 200]);
    int length = 0;
    int rest = 0;
    EVP_EncodeInit(context.get());
    EVP_EncodeUpdate(context.get(), out.get(), &length, bytes(in), static_cast<int>(in.size()));
    EVP_EncodeFinal(context.get(), out.get() + length, &rest);
    return static_cast<std::size_t>(length + rest);
}

std::size_t encodeUnbroken(const std::string& in)
{
    const std::unique_ptr<unsigned char[]> out(new unsigned char[in.size() / 3 * 4 + 8]);
    return static_cast<std::size_t>(
        EVP_EncodeBlock(out.get(), bytes(in), static_cast<int>(in.size())));
}

std::size_t decode(const std::string& in)
{
    const Context context(EVP_ENCODE_CTX_new());
    const std::unique_ptr<unsigned char[]> out(new unsigned char[in.size() / 4 * 3 + 100]);
    int length = 0;
    EVP_DecodeInit(context.get());
    EVP_DecodeUpdate(context.get(), out.get(), &length, bytes(in), static_cast<int>(in.size()));
    return static_cast<std::size_t>(length);
}

const bool added = addWork(kName, Job::EncodeBase64, encode) &&
                   addWork(kName, Job::EncodeBase64Unbroken, encodeUnbroken) &&
                   addWork(kName, Job::DecodeBase64, decode);

} // namespace

} // namespace bench
