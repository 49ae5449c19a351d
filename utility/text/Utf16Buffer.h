// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVarLengthArray>
#include <string_view>

namespace tarvomime {

/// Gathers the pieces of a decoded field, so that the text it makes is allocated once. A field of
/// the usual length never leaves the stack.
class Utf16Buffer
{
public:
    void appendLatin1(std::string_view bytes);
    /// What `QString::fromUtf8` gives: malformed bytes become replacement characters.
    void appendUtf8(std::string_view bytes);
    void append(const QString& text);
    /// Room for `count` units, to be filled by the caller.
    ushort* extend(int count);
    /// Takes the last `count` units back.
    void shrink(int count) { mUnits.resize(mUnits.size() - count); }

    const QChar* data() const { return reinterpret_cast<const QChar*>(mUnits.constData()); }
    int size() const { return static_cast<int>(mUnits.size()); }
    QString toString() const { return QString(data(), size()); }

private:
    bool appendValidUtf8(std::string_view bytes);

    // An array of QChar would be cleared before it is filled.
    QVarLengthArray<ushort, 512> mUnits;
};

} // namespace tarvomime
