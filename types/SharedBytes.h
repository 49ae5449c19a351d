// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <utility>

namespace tarvomime {

/// A share in the buffer of a byte array, which keeps the bytes alive and says nothing of which of
/// them are meant. It takes a pointer, where an array beside every slice would bring a start and a
/// length that the slice has of its own.
class SharedBytes
{
public:
    SharedBytes() noexcept = default;
    /// A share in the buffer of `array`; none when the bytes are not the array's own.
    // Qt hands out the head of an array only for writing.
    // cppcheck-suppress passedByValue
    explicit SharedBytes(QByteArray array) noexcept : mHead(headOf(array)) { retain(); }
    SharedBytes(const SharedBytes& other) noexcept : mHead(other.mHead) { retain(); }
    SharedBytes(SharedBytes&& other) noexcept : mHead(std::exchange(other.mHead, nullptr)) {}
    SharedBytes& operator=(const SharedBytes& other) noexcept { return *this = SharedBytes(other); }
    SharedBytes& operator=(SharedBytes&& other) noexcept
    {
        std::swap(mHead, other.mHead);
        return *this;
    }
    ~SharedBytes()
    {
        if (mHead != nullptr && !isStillShared())
            Head::deallocate(mHead);
    }

    bool isNull() const noexcept { return mHead == nullptr; }
    /// Whether `length` bytes at `text`, which a NUL follows, are what an array over all of the
    /// buffer holds.
    bool isWhole(const char* text, int length) const noexcept
    {
        return mHead != nullptr && text == start() && isUsedUpTo(length);
    }
    /// The array of a text that `isWhole`; the share goes over to it.
    QByteArray takeArray(const char* text, int length) noexcept
    {
        return arrayOf(std::exchange(mHead, nullptr), text, length);
    }

private:
    using Head = QTypedArrayData<char>;

    // Qt 5 keeps the length of an array beside its buffer's head, Qt 6 in each array.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    static Head* headOf(QByteArray& array) noexcept
    {
        return array.data_ptr().d_ptr();
    }
    static QByteArray arrayOf(Head* head, const char* text, int length) noexcept
    {
        return QByteArray(QByteArray::DataPointer(head, const_cast<char*>(text), length));
    }
    const char* start() const noexcept
    {
        return Head::dataStart(mHead, alignof(Head::AlignmentDummy));
    }
    static bool isUsedUpTo(int) noexcept
    {
        return true;
    }
    void retain() noexcept
    {
        if (mHead != nullptr)
            mHead->ref();
    }
    bool isStillShared() noexcept
    {
        return mHead->deref();
    }
#else
    static Head* headOf(QByteArray& array) noexcept
    {
        return array.data_ptr();
    }
    static QByteArray arrayOf(Head* head, const char*, int) noexcept
    {
        return QByteArray(QByteArrayDataPtr{head});
    }
    const char* start() const noexcept
    {
        return mHead->data();
    }
    bool isUsedUpTo(int length) const noexcept
    {
        return length == mHead->size;
    }
    void retain() noexcept
    {
        if (mHead != nullptr)
            mHead->ref.ref();
    }
    bool isStillShared() noexcept
    {
        return mHead->ref.deref();
    }
#endif

    Head* mHead = nullptr;
};

} // namespace tarvomime
