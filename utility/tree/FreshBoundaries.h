// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_Entity;

namespace tarvomime {

/// Gives every container of the tree a boundary that begins no line of a body and no other
/// container's boundary, drawing a new one where that does not hold yet. Returns 0, or -1 with
/// nothing changed when a body in a file cannot be read, there is no memory, or the boundary would
/// have to change in a field that is the application's.
///
/// 1. Where one is drawn, boundaries of up to 12 hyphens, or of 12 and fewer digits than are drawn,
///    are drawn again too: what is drawn could begin with them.
int drawFreshBoundaries(EMAIL_Entity& root);

} // namespace tarvomime
