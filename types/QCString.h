// SPDX-License-Identifier: MIT
#pragma once

#include "types/TarvomimeExport.h"

#include <QByteArray>
#include <cstddef>
#include <string_view>

/// 8-bit text of the wire: a slice of a shared buffer.
///
/// A `QCString` is an offset and a length into a reference-counted `QByteArray`. Copying it,
/// cutting it (`left`, `right`, `mid`) and trimming it cost O(1) and share the bytes; the buffer
/// lives as long as its last slice. Positions and lengths are in bytes.
///
/// - Null and empty differ: a default-constructed text is null (`isNull`), "" is not; both are
/// empty
///   (`isEmpty`) and compare equal, since comparisons look at the bytes only. A null `const char*`
///   compares as an empty text.
/// - A text normally holds no NUL: the constructors end it at the first one. Only `fromBytes` keeps
///   them.
/// - Case conversion and case-insensitive search know ASCII letters only, so that no locale changes
///   how mail is read.
///
/// Texts are not synchronised: `data()` may terminate the slice in place even on a const object.
class TARVOMIME_EXPORT QCString
{
public:
    /// A null text.
    QCString() noexcept = default;
    /// A copy of the NUL-terminated `text`; null gives a null text.
    QCString(const char* text); // NOLINT(google-explicit-constructor): literals are texts
    /// A copy of at most `length` bytes of `text`, ending at the first NUL.
    QCString(const char* text, int length);
    /// The bytes up to the first NUL, shared with `bytes`; a null array gives a null text.
    QCString(const QByteArray& bytes); // NOLINT(google-explicit-constructor): arrays are texts

    /// All of `bytes`, NUL bytes included, shared with `bytes`.
    static QCString fromBytes(const QByteArray& bytes);
    /// A text over a string literal: nothing is copied, the literal lives for ever.
    template <std::size_t N>
    static QCString fromLiteral(const char (&literal)[N])
    {
        return QCString(QByteArray::fromRawData(literal, int(N) - 1), 0, int(N) - 1);
    }

    /// Number of bytes, without a terminator.
    int length() const noexcept { return mLength; }
    /// Number of bytes with the terminator that `data()` shows; 0 for a null text.
    int size() const noexcept { return isNull() ? 0 : mLength + 1; }
    bool isNull() const noexcept { return mOffset < 0; }
    bool isEmpty() const noexcept { return mLength == 0; }

    /// The text, NUL-terminated; never a null pointer. Valid until the text is changed or
    /// destroyed. A slice that does not already end at a NUL first becomes a private copy.
    const char* data() const;
    /// The bytes as they lie in the shared buffer, not terminated; costs nothing.
    std::string_view view() const noexcept { return {begin(), static_cast<std::size_t>(mLength)}; }
    const char* begin() const noexcept { return isNull() ? "" : mBuffer.constData() + mOffset; }
    const char* end() const noexcept { return begin() + mLength; }

    /// The byte at `index`, or NUL outside the text.
    char at(int index) const noexcept
    {
        return index >= 0 && index < mLength ? mBuffer.constData()[mOffset + index] : '\0';
    }
    char operator[](int index) const noexcept { return at(index); }

    /// The first, the last `count` bytes (fewer where the text is shorter, none below 0).
    QCString left(int count) const;
    QCString right(int count) const;
    /// `count` bytes from `index` on; all the rest when `count` is negative. An index outside the
    /// text gives an empty text.
    QCString mid(int index, int count = -1) const;
    /// The bytes of `part`, which must be a view into this very text, as a slice of it.
    QCString slice(std::string_view part) const
    {
        return mid(static_cast<int>(part.data() - begin()), static_cast<int>(part.size()));
    }
    /// Without SP, HTAB, CR, LF, VT and FF at both ends.
    QCString stripWhiteSpace() const;

    /// Position of the first occurrence at or after `from`, or -1. A negative `from` counts from
    /// the end. An empty pattern is found at `from` itself.
    int find(char c, int from = 0, bool caseSensitive = true) const;
    int find(const QCString& text, int from = 0, bool caseSensitive = true) const;
    /// Position of the last occurrence that starts at or before `from` (-1: the end), or -1.
    int findRev(char c, int from = -1, bool caseSensitive = true) const;
    int findRev(const QCString& text, int from = -1, bool caseSensitive = true) const;
    /// Number of occurrences, overlapping ones included.
    int contains(char c, bool caseSensitive = true) const;
    int contains(const QCString& text, bool caseSensitive = true) const;

    QCString lower() const;
    QCString upper() const;

    QCString& append(const QCString& text);
    QCString& append(char c);
    QCString& prepend(const QCString& text);
    QCString& operator+=(const QCString& text) { return append(text); }
    QCString& operator+=(char c) { return append(c); }
    /// Cuts the text off behind `length` bytes; a longer `length` changes nothing.
    void truncate(int length);

    /// Reads a decimal number of 32 bits: white space around it, one optional "+" (for `toInt` also
    /// "-"), digits, nothing else. A failure or an overflow gives 0 and `*ok` false.
    int toInt(bool* ok = nullptr) const;
    unsigned int toUInt(bool* ok = nullptr) const;
    /// Replaces the text by the number in decimal.
    QCString& setNum(int number) { return setNum(static_cast<long>(number)); }
    QCString& setNum(unsigned int number) { return setNum(static_cast<unsigned long>(number)); }
    QCString& setNum(long number);
    QCString& setNum(unsigned long number);

    /// The bytes of the text; shared where the text is the whole of its buffer, copied otherwise.
    operator QByteArray() const; // NOLINT(google-explicit-constructor): the one way out

private:
    QCString(QByteArray buffer, int offset, int length) noexcept;
    QCString& appendBytes(const char* bytes, int count);

    // A null text has offset -1 and length 0. mBuffer keeps its own terminator at its very end.
    mutable QByteArray mBuffer;
    mutable int mOffset = -1;
    int mLength = 0;
};

inline bool operator==(const QCString& a, const QCString& b) noexcept
{
    return a.view() == b.view();
}
inline bool operator!=(const QCString& a, const QCString& b) noexcept
{
    return !(a == b);
}
inline bool operator<(const QCString& a, const QCString& b) noexcept
{
    return a.view() < b.view();
}

TARVOMIME_EXPORT bool operator==(const QCString& a, const char* b) noexcept;
TARVOMIME_EXPORT bool operator<(const QCString& a, const char* b) noexcept;
TARVOMIME_EXPORT bool operator<(const char* a, const QCString& b) noexcept;
inline bool operator==(const char* a, const QCString& b) noexcept
{
    return b == a;
}
inline bool operator!=(const QCString& a, const char* b) noexcept
{
    return !(a == b);
}
inline bool operator!=(const char* a, const QCString& b) noexcept
{
    return !(b == a);
}

// Exact matches, since text and byte array convert into each other.
inline bool operator==(const QCString& a, const QByteArray& b) noexcept
{
    return a.view() == std::string_view(b.constData(), static_cast<std::size_t>(b.size()));
}
inline bool operator==(const QByteArray& a, const QCString& b) noexcept
{
    return b == a;
}
inline bool operator!=(const QCString& a, const QByteArray& b) noexcept
{
    return !(a == b);
}
inline bool operator!=(const QByteArray& a, const QCString& b) noexcept
{
    return !(b == a);
}

inline QCString operator+(QCString a, const QCString& b)
{
    return a.append(b);
}
inline QCString operator+(QCString a, const char* b)
{
    return a.append(b);
}
inline QCString operator+(const char* a, const QCString& b)
{
    return QCString(a).append(b);
}
inline QCString operator+(QCString a, const QByteArray& b)
{
    return a.append(QCString(b));
}
inline QByteArray operator+(QByteArray a, const QCString& b)
{
    return a.append(b.begin(), b.length());
}
inline QCString operator+(QCString a, char b)
{
    return a.append(b);
}
inline QCString operator+(char a, const QCString& b)
{
    return QCString(&a, 1).append(b);
}
