// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"
#include "types/TarvomimeExport.h"

#include <QByteArray>
#include <QString>

/// \file
/// What the calendar application looks up by its plain name at run time. Each function forwards to
/// the member of `EMAIL_Util` whose name it bears, with its arguments and its result.

// The functions are called from C++ only: their names are C's, their types need not be.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

/// `EMAIL_Util::encQp`, the form in memory.
TARVOMIME_EXPORT QByteArray encQp_Cal(char const* data, unsigned long len, int breakLines);
/// `EMAIL_Util::charsetEnumToStr`.
TARVOMIME_EXPORT int charsetEnumToStr_Cal(int cs, QCString& name);
/// `EMAIL_Util::encWithCharset`.
TARVOMIME_EXPORT void encWithCharset_Cal(QCString& out, QString const& text, int cs);
/// `EMAIL_Util::decFromCharset`.
TARVOMIME_EXPORT void decFromCharset_Cal(QByteArray const& bytes, QString& out, int cs);
}

#if defined(__clang__)
#pragma clang diagnostic pop
#endif
