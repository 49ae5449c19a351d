// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

/// Texts that are longer than memory, over pages that are never written: zeros behind a first
/// character that needs an encoding, and one page of "a" shown again and again.
class HugeTexts
{
public:
    static constexpr std::size_t kLength = (std::size_t(1) << 33) + (std::size_t(1) << 22);

    HugeTexts() : mZeros(reserve(PROT_READ | PROT_WRITE)), mLetters(reserve(PROT_NONE))
    {
        if (!areMapped())
            return;
        madvise(mZeros, kLength, MADV_HUGEPAGE);
        *static_cast<char16_t*>(static_cast<void*>(mZeros)) = 0x0416;
        showLetters();
    }
    HugeTexts(const HugeTexts&) = delete;
    HugeTexts& operator=(const HugeTexts&) = delete;
    ~HugeTexts()
    {
        munmap(mZeros, kLength);
        munmap(mLetters, kLength);
    }

    bool areMapped() const { return mZeros != MAP_FAILED && mLetters != MAP_FAILED; }

    const char* zeros() const { return mZeros; }
    const char* letters() const { return mLetters; }
    template <class Size>
    QByteArray bytes(Size size) const
    {
        return QByteArray::fromRawData(mZeros, size);
    }
    /// U+0416 and U+0000.
    template <class Size>
    QString units(Size size) const
    {
        return QString::fromRawData(static_cast<const QChar*>(static_cast<const void*>(mZeros)),
                                    size);
    }
    /// U+6161.
    template <class Size>
    QString letterUnits(Size size) const
    {
        return QString::fromRawData(static_cast<const QChar*>(static_cast<const void*>(mLetters)),
                                    size);
    }
    /// A text that ends at a NUL behind `size` letters, until the next call.
    const char* lettersUpToNul(std::size_t size)
    {
        mLetters[mEnd] = 'a';
        mEnd = size;
        mLetters[mEnd] = '\0';
        return mLetters;
    }

private:
    static constexpr std::size_t kWindow = std::size_t(1) << 22;

    static char* reserve(int access)
    {
        return static_cast<char*>(
            mmap(nullptr, kLength, access, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    }

    void showLetters()
    {
        const int file = memfd_create("letters", MFD_CLOEXEC);
        const std::vector<char> window(kWindow, 'a');
        bool isShown = write(file, window.data(), kWindow) == static_cast<ssize_t>(kWindow);
        for (std::size_t start = 0; isShown && start < kLength; start += kWindow)
            isShown = mmap(mLetters + start, kWindow, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_FIXED | MAP_NORESERVE, file, 0) != MAP_FAILED;
        close(file);
    }

    char* const mZeros;
    char* const mLetters;
    std::size_t mEnd = 0;
};
