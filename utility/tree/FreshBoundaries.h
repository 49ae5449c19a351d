// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Entity;

namespace tarvomime {

/// Gives every container of the tree a boundary that begins no line of a body and no other
/// container's boundary, drawing a new one where that does not hold yet. Returns 0, or -1 with
/// nothing changed when a body in a file cannot be read.
int drawFreshBoundaries(EMAIL_Entity& root);

} // namespace tarvomime
