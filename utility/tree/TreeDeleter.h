// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Body;

namespace tarvomime {

/// Deletes the enclosed message and the parts of `body` with everything below them, without
/// recursion over their depth. A list that does not own its parts keeps them alive.
void deleteChildren(EMAIL_Body& body);

} // namespace tarvomime
