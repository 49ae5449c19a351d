// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryFile>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size);

namespace tarvomime::fuzz {

/// Stops the program, which the fuzzer takes for a finding, when `holds` is false.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

inline QByteArray toArray(const uint8_t* bytes, size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
}

/// The input as a text: it ends at the first NUL.
inline QCString toText(const uint8_t* bytes, size_t size)
{
    return QCString(toArray(bytes, size));
}

inline QByteArray toArray(const QCString& text)
{
    return QByteArray(text.begin(), text.length());
}

/// A file that disappears with this object.
class ScratchFile
{
public:
    ScratchFile() { require(mFile.open(), "a temporary file can be created"); }

    QFile* file() { return &mFile; }
    QString path() const { return mFile.fileName(); }

    void write(const uint8_t* bytes, size_t size)
    {
        const auto length = static_cast<qint64>(size);
        const bool written = mFile.write(reinterpret_cast<const char*>(bytes), length) == length;
        require(written && mFile.flush(), "the temporary file takes the input");
    }

    QByteArray content()
    {
        mFile.seek(0);
        return mFile.readAll();
    }

private:
    QTemporaryFile mFile;
};

} // namespace tarvomime::fuzz
