// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

class QTextCodec;

namespace tarvomime {

/// A charset of ASCII and of characters of two bytes, read off its codec once: a codec of the
/// platform may open a converter for each text, which takes longer than a word does.
///
/// What is not in the tables, because it is longer, cut or unknown, is left to the codec.
class DoubleByteCharset
{
public:
    /// The charset's tables; null when it is of another kind or the platform has no codec for it.
    static const DoubleByteCharset* of(int charset);

    /// Null when `codec` does not read ASCII as such.
    static std::unique_ptr<const DoubleByteCharset> readOff(const QTextCodec& codec);

    /// Writes the units that the codec's decoder gives to `out`, which has room for as many as
    /// there are bytes, and returns their number; nothing for what the tables lack.
    std::optional<int> decode(std::string_view bytes, ushort* out) const;
    /// Sets `bytes` to what the codec gives; false, with nothing to be read from `bytes`, when the
    /// tables lack some unit of `text`, or there is no room. What is given comes back as it was.
    bool encode(const QString& text, QByteArray& bytes) const;

private:
    static constexpr int kFirstLead = 0x81;
    static constexpr int kFirstTrail = 0x40;
    static constexpr int kLeads = 0xFE - kFirstLead + 1;
    static constexpr int kTrails = 0xFE - kFirstTrail + 1;
    static constexpr ushort kNone = 0;
    using Page = std::array<ushort, 256>;

    DoubleByteCharset() = default;
    void readUnits(const QTextCodec& codec);
    void readBytes(const QTextCodec& codec);
    void add(QChar unit, ushort pair);
    ushort unitOf(unsigned char lead, unsigned char trail) const;

    std::array<ushort, static_cast<std::size_t>(kLeads* kTrails)> mUnits{};
    // From a unit's high byte to the page of its low byte; page 0 holds no pair at all.
    std::array<unsigned char, 256> mPageOf{};
    std::vector<Page> mPages;
};

} // namespace tarvomime
