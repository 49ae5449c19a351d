// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TarvomimeExtraExport.h"

#include <QString>

namespace tarvomime {

/// The subject of an answer: "Re: " and the original's, without the prefixes of answers that stand
/// there already ("Re", "AW", "SV", "Antw", "RES", "回复" and others, with counters like "Re[2]",
/// and behind a mailing list's "[name]" too).
TARVOMIME_EXTRA_EXPORT QString replySubject(const QString& original);

/// The subject of a forwarded message: "Fwd: " and the original's, without the prefixes of
/// forwarding that stand there already ("Fwd", "FW", "WG", "TR", "VB", "转发" and others).
TARVOMIME_EXTRA_EXPORT QString forwardSubject(const QString& original);

/// The subject without any of these prefixes, as it was first written: for threads.
TARVOMIME_EXTRA_EXPORT QString baseSubject(const QString& subject);

} // namespace tarvomime
