// SPDX-License-Identifier: MIT
#include "extra/CharsetStatistics.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <uchardet/uchardet.h>

namespace tarvomime {

namespace {

// More letters than this do not change the answer.
constexpr int kExamined = 64 * 1024;

struct DetectorDeleter
{
    void operator()(uchardet_t detector) const { uchardet_delete(detector); }
};

using Detector = std::unique_ptr<std::remove_pointer_t<uchardet_t>, DetectorDeleter>;

// From the line that holds the first 8-bit byte on: what is plain before it says nothing.
QByteArray examinedPart(const QByteArray& bytes)
{
    const auto first = std::find_if(bytes.begin(), bytes.end(),
                                    [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    const int at = static_cast<int>(first - bytes.begin());
    const int lineStart = static_cast<int>(bytes.lastIndexOf('\n', at)) + 1;
    return bytes.mid(at - lineStart < kExamined / 2 ? lineStart : at, kExamined);
}

} // namespace

QByteArray charsetByStatistics(const QByteArray& bytes)
{
    const Detector detector(uchardet_new());
    const QByteArray examined = examinedPart(bytes);
    if (!detector || uchardet_handle_data(detector.get(), examined.constData(),
                                          static_cast<std::size_t>(examined.size())) != 0)
        return {};
    uchardet_data_end(detector.get());
    const QByteArray charset = uchardet_get_charset(detector.get());
    // Nobody mails in these; what looks like them is a few letters of a western language.
    const bool isHardlyMailed = charset == "IBM852" || charset == "MAC-CENTRALEUROPE";
    return isHardlyMailed ? QByteArray() : charset;
}

} // namespace tarvomime
