// SPDX-License-Identifier: MIT
#pragma once

#include "types/SharedBytes.h"
#include "types/TarvomimeExport.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

/// 8-bit text of the wire: a slice of a shared buffer.
///
/// A `QCString` is a start and a length in the reference-counted buffer of a `QByteArray`. Copying
/// it, cutting it (`left`, `right`, `mid`) and trimming it cost O(1) and share the bytes; the
/// buffer lives as long as its last slice, unless that is told to `detach`. Positions and lengths
/// are in bytes.
///
/// - Null and empty differ: a default-constructed text is null (`isNull`), "" is not. Both are
///   empty (`isEmpty`) and compare equal, since comparisons look at the bytes only. A null
///   `const char*` compares as an empty text.
/// - A text normally holds no NUL: the constructors end it at the first one. Only `fromBytes` keeps
///   them.
/// - Case conversion and case-insensitive search know ASCII letters only, so that no locale changes
///   how mail is read.
///
/// Lengths are `int`, and no operation of this library builds a text, of bytes or of characters,
/// that is longer than `longestLength`: a text that would grow beyond it becomes empty.
///
/// Texts are not synchronised: `data()` may terminate the slice in place even on a const object.
class TARVOMIME_EXPORT QCString
{
    // Qt 5's byte array hides a conversion to int, which makes it as near to a char as to a text:
    // where one name takes both, an overload for exactly this type decides.
    template <class Bytes>
    using IfByteArray = std::enable_if_t<std::is_same_v<Bytes, QByteArray>, bool>;

public:
    /// The length of the longest text, in bytes: a terminator and a head of its buffer still count
    /// in an `int`.
    static constexpr int longestLength = std::numeric_limits<int>::max() - 64;

    /// A null text.
    QCString() noexcept = default;
    QCString(const QCString&) noexcept = default;
    /// The text that was moved from is null.
    QCString(QCString&& other) noexcept
        : mBytes(std::move(other.mBytes)), mText(std::exchange(other.mText, nullptr)),
          mLength(std::exchange(other.mLength, 0)), mIsForeign(other.mIsForeign)
    {
    }
    QCString& operator=(const QCString&) noexcept = default;
    QCString& operator=(QCString&& other) noexcept
    {
        mBytes = std::move(other.mBytes);
        std::swap(mText, other.mText);
        std::swap(mLength, other.mLength);
        std::swap(mIsForeign, other.mIsForeign);
        return *this;
    }
    ~QCString() = default;
    /// A copy of the NUL-terminated `text`; null gives a null text.
    QCString(const char* text); // NOLINT(google-explicit-constructor): literals are texts
    /// A copy of at most `length` bytes of `text`, ending at the first NUL.
    QCString(const char* text, int length);
    /// The bytes up to the first NUL, shared with `bytes`; a null array gives a null text.
    QCString(const QByteArray& bytes); // NOLINT(google-explicit-constructor): arrays are texts

    /// All of `bytes`, NUL bytes included, shared with `bytes`; too many give a null text.
    static QCString fromBytes(const QByteArray& bytes);
    /// A text over a string literal: nothing is copied, the literal lives for ever.
    template <std::size_t N>
    static QCString fromLiteral(const char (&literal)[N])
    {
        return QCString(literal, int(N) - 1, false);
    }
    /// A text over `length` foreign bytes, NUL bytes included: nothing is copied, and the caller
    /// keeps them, unchanged, for as long as this text, copies and slices of it, and whatever is
    /// parsed from it are used. `data()`, `detach()` and writing make a copy. Null, or a length
    /// below 0 or above `longestLength`, gives a null text.
    static QCString fromRawData(const char* bytes, int length)
    {
        const bool isText = bytes != nullptr && length >= 0 && length <= longestLength;
        return isText ? QCString(bytes, length, true) : QCString();
    }

    /// Number of bytes, without a terminator.
    int length() const noexcept { return mLength; }
    /// Number of bytes with the terminator that `data()` shows; 0 for a null text.
    int size() const noexcept { return isNull() ? 0 : mLength + 1; }
    bool isNull() const noexcept { return mText == nullptr; }
    bool isEmpty() const noexcept { return mLength == 0; }

    /// The text, NUL-terminated; never a null pointer. Valid until the text is changed or
    /// destroyed. A slice that does not already end at a NUL first becomes a private copy.
    const char* data() const;
    /// The bytes as they lie in the shared buffer, not terminated; costs nothing.
    std::string_view view() const noexcept { return {begin(), static_cast<std::size_t>(mLength)}; }
    const char* begin() const noexcept { return isNull() ? "" : mText; }
    const char* end() const noexcept { return begin() + mLength; }

    /// Lets go of whatever is not this text's own: a slice, which would keep the whole buffer that
    /// it was cut from, and a text over foreign bytes become a copy.
    void detach();

    /// The byte at `index`, or NUL outside the text.
    char at(int index) const noexcept
    {
        return index >= 0 && index < mLength ? mText[index] : '\0';
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
        return isNull() ? QCString() : cut(part.data(), static_cast<int>(part.size()));
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
    template <class Bytes, IfByteArray<Bytes> = true>
    int find(const Bytes& text, int from = 0, bool caseSensitive = true) const
    {
        return find(QCString(text), from, caseSensitive);
    }
    template <class Bytes, IfByteArray<Bytes> = true>
    int findRev(const Bytes& text, int from = -1, bool caseSensitive = true) const
    {
        return findRev(QCString(text), from, caseSensitive);
    }
    template <class Bytes, IfByteArray<Bytes> = true>
    int contains(const Bytes& text, bool caseSensitive = true) const
    {
        return contains(QCString(text), caseSensitive);
    }

    QCString lower() const;
    QCString upper() const;

    QCString& append(const QCString& text);
    QCString& append(char c);
    QCString& prepend(const QCString& text);
    QCString& operator+=(const QCString& text) { return append(text); }
    QCString& operator+=(char c) { return append(c); }
    template <class Bytes, IfByteArray<Bytes> = true>
    QCString& append(const Bytes& text)
    {
        return append(QCString(text));
    }
    template <class Bytes, IfByteArray<Bytes> = true>
    QCString& operator+=(const Bytes& text)
    {
        return append(QCString(text));
    }
    /// Cuts the text off behind `length` bytes; a longer `length` changes nothing.
    void truncate(int length);

    /// Reads a decimal number of 32 bits: white space around it, one optional "+" (for `toInt` also
    /// "-"), digits, nothing else. A failure or an overflow gives 0 and `*ok` false.
    int toInt(bool* ok = nullptr) const;
    unsigned int toUInt(bool* ok = nullptr) const;
    /// Replaces the text by the number in decimal.
    QCString& setNum(int number) { return setNum(static_cast<long long>(number)); }
    QCString& setNum(unsigned int number)
    {
        return setNum(static_cast<unsigned long long>(number));
    }
    QCString& setNum(long number) { return setNum(static_cast<long long>(number)); }
    QCString& setNum(unsigned long number)
    {
        return setNum(static_cast<unsigned long long>(number));
    }
    QCString& setNum(long long number);
    QCString& setNum(unsigned long long number);

    /// The bytes of the text; shared where the text is the whole of its buffer, copied otherwise.
    operator QByteArray() const; // NOLINT(google-explicit-constructor): the one way out

private:
    QCString(QByteArray buffer, int offset, int length) noexcept;
    // Over bytes that nobody counts.
    QCString(const char* text, int length, bool isForeign) noexcept
        : mText(text), mLength(length), mIsForeign(isForeign)
    {
    }
    QCString cut(const char* start, int length) const
    {
        QCString part(*this);
        part.mText = start;
        part.mLength = length;
        return part;
    }
    // Whether a NUL stands behind the text. There is always a byte to look at, but behind foreign
    // bytes: an array keeps a terminator at its very end.
    bool isTerminated() const noexcept { return !mIsForeign && mText[mLength] == '\0'; }
    bool isWhole() const noexcept
    {
        return !isNull() && isTerminated() && mBytes.isWhole(mText, mLength);
    }
    QCString& appendBytes(const char* bytes, int count);

    mutable tarvomime::SharedBytes mBytes;
    // Null for a null text.
    mutable const char* mText = nullptr;
    int mLength = 0;
    mutable bool mIsForeign = false;
};

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
// Qt 6's views take any class that looks like a container, by `data()` and `size()`, and `size()`
// counts the terminator here: they would see one byte too many, and compete with the conversion to
// a byte array. Text is no such container.
QT_BEGIN_NAMESPACE
namespace QtPrivate {
template <>
struct IsContainerCompatibleWithQByteArrayView<QCString> : std::false_type
{
};
template <>
struct IsContainerCompatibleWithQUtf8StringView<QCString> : std::false_type
{
};
} // namespace QtPrivate
QT_END_NAMESPACE
#endif

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
inline bool operator<(const QCString& a, const QByteArray& b) noexcept
{
    return a.view() < std::string_view(b.constData(), static_cast<std::size_t>(b.size()));
}
inline bool operator<(const QByteArray& a, const QCString& b) noexcept
{
    return std::string_view(a.constData(), static_cast<std::size_t>(a.size())) < b.view();
}

namespace tarvomime {

// One of the two is a text, and the second is ordered before the first by `<`.
template <class A, class B>
using IfTextOrders = std::enable_if_t<
    (std::is_same_v<A, QCString> || std::is_same_v<B, QCString>)&&std::is_convertible_v<
        decltype(std::declval<const B&>() < std::declval<const A&>()), bool>,
    bool>;

} // namespace tarvomime

template <class A, class B, tarvomime::IfTextOrders<A, B> = true>
bool operator>(const A& a, const B& b) noexcept
{
    return b < a;
}
template <class A, class B, tarvomime::IfTextOrders<A, B> = true>
bool operator<=(const A& a, const B& b) noexcept
{
    return !(b < a);
}
template <class A, class B, tarvomime::IfTextOrders<B, A> = true>
bool operator>=(const A& a, const B& b) noexcept
{
    return !(a < b);
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
    // Bytes are no text, but what is made here is on its way to one.
    return a.size() > QCString::longestLength - b.length() ? QByteArray()
                                                           : a.append(b.begin(), b.length());
}
inline QCString operator+(QCString a, char b)
{
    return a.append(b);
}
inline QCString operator+(char a, const QCString& b)
{
    return QCString(&a, 1).append(b);
}
