// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <memory>
#include <string_view>
#include <vector>

class QTextCodec;

namespace tarvomime {

/// A charset of one byte for each character, read off its codec once: a codec of the platform may
/// open a converter for each text, however short.
class SingleByteCharset
{
public:
    /// The charset's table; null when its characters take several bytes or the platform has no
    /// codec for it.
    static const SingleByteCharset* of(int charset);

    /// Null when `codec` does not turn each byte into one unit.
    static std::unique_ptr<const SingleByteCharset> readOff(const QTextCodec& codec);

    /// Writes what the codec's decoder gives, one unit for each byte, to `out`.
    void decode(std::string_view bytes, ushort* out) const;
    /// Sets `bytes` to what the codec gives; false, with nothing to be read from `bytes`, when some
    /// unit of `text` does not come back from the bytes it is written as, or there is no room.
    bool encode(const QString& text, QByteArray& bytes) const;

private:
    SingleByteCharset(const QString& units, const QByteArray& written);

    static constexpr short kNoByte = -1;
    using Page = std::array<short, 256>;

    void add(QChar unit, unsigned char byte);

    std::array<ushort, 256> mUnits;
    // From a unit's high byte to the page of its low byte; page 0 holds no byte at all.
    std::array<unsigned char, 256> mPageOf{};
    std::vector<Page> mPages;
};

} // namespace tarvomime
