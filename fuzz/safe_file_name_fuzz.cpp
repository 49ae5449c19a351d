// SPDX-License-Identifier: MIT
// Any name becomes one that a folder can take, and a name that was made safe stays as it is.

#include "extra/SafeFileName.h"
#include "fuzz/support/Cursor.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime::fuzz;

namespace {

void requireSafe(const QString& name, int longest)
{
    require(!name.isEmpty() && name.toUtf8().size() <= longest, "a name has a length");
    for (const QChar c : name)
        require(c >= ' ' && !QStringLiteral("/\\<>:\"|?*\x7f").contains(c), "a plain character");
    require(name.front() != '.' && name.front() != '-', "neither hidden nor an option");
    require(!name.front().isSpace() && !name.back().isSpace(), "no blanks around it");
    require(name.back() != '.', "no dot at its end");
    require(QString::fromUtf8(name.toUtf8()) == name, "it can be written as UTF-8");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    using namespace tarvomime;
    Cursor input(bytes, size);
    const int copy = input.takeNumber();
    const QString wanted = input.takeString();
    const QString fallback = input.takeString();
    const QString name = safeFileName(wanted, fallback);
    requireSafe(name, 201);
    // A name of a device may pass the limit by its "_".
    require(name.toUtf8().size() > 200 || safeFileName(name) == name, "a safe name stays");
    requireSafe(numberedFileName(name, copy), 255);
    return 0;
}
