// SPDX-License-Identifier: MIT
#pragma once

#include "utility/file/BodyBytes.h"

class EMAIL_Body;
class EMAIL_Entity;
class QFile;
class QString;

namespace tarvomime {

/// The bytes of a body where they are.
BodyBytes storedBytes(const EMAIL_Body& body);

/// Sets `text` to that of a part, decoded as its header says, or in `charset` where that names
/// none. A container has no text of its own: it leaves `text` alone, as does a part whose body is
/// empty or cannot be read.
void readText(const EMAIL_Entity& part, int charset, QString& text);

/// Writes the decoded body of a part that is no container. Returns 0, or -1 when there is no
/// `file`, it does not take the body, or that cannot be read.
int writeContent(const EMAIL_Entity& part, QFile* file);

} // namespace tarvomime
