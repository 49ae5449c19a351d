// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Body;
class EMAIL_Entity;
class QString;

namespace tarvomime {

/// Parses an entity, or a body, of which the `length` bytes of `data` from `start` on are the text,
/// with everything below it, without recursion over its depth. With a `path`, `data` is the content
/// of that file, and bodies stay ranges of it. Without one, the header of an entity is taken from
/// `data` and its body from its own text; a body looks at `data` only while it has no text.
///
/// What is exactly of the library's class is walked. In memory, a body of any other class below an
/// entity gets its text and its own `parse()` is called.
void parseEntity(EMAIL_Entity& entity, const char* data, int start, int length,
                 const QString& path);
void parseBody(EMAIL_Body& body, const char* data, int start, int length, const QString& path);

} // namespace tarvomime
