// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

class EMAIL_Body;
class EMAIL_Entity;
class QFile;

namespace tarvomime {

/// Assembles an entity, or a body, with everything below it, without recursion over its depth.
///
/// Without a `file`, each byte is written once into one buffer, and every component gets its slice
/// of it as `mString`. With a `file`, the text is streamed there in blocks and the entities'
/// `mString` stays empty. Returns 0, or -1 when something could not be read or written, when a text
/// in memory would be longer than `limit` bytes, or when there is no memory; the texts of the
/// entities and bodies of a tree in memory are then what they were. Headers, and components of an
/// application's own class, may be assembled by then.
///
/// What is exactly of the library's class is walked. In memory, anything else is asked for its text
/// through its own `assemble()`, but for the component that is assembled: its own has called this.
int assembleEntity(EMAIL_Entity& entity, QFile* file, int limit = QCString::longestLength);
int assembleBody(EMAIL_Body& body, QFile* file, int limit = QCString::longestLength);

/// Whether assembling the body makes its text anew, from its parts; any other text is its own.
bool isRebuilt(EMAIL_Body& body);

} // namespace tarvomime
