// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Body;
class EMAIL_Entity;
class QFile;

namespace tarvomime {

/// Assembles an entity, or a body, with everything below it, without recursion over its depth.
///
/// Without a `file`, each byte is written once into one growing buffer, and every component gets
/// its slice of it as `mString`. With a `file`, the text is streamed there in blocks and the
/// entities' `mString` stays empty. Returns 0, or -1 when something could not be read or written.
int assembleEntity(EMAIL_Entity& entity, QFile* file);
int assembleBody(EMAIL_Body& body, QFile* file);

} // namespace tarvomime
