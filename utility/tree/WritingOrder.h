// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class EMAIL_Field;
class EMAIL_Header;

namespace tarvomime {

/// The fields of a header in the order in which they are written: the four that a reader looks for
/// first lead, Date before Subject; all others keep their order.
std::vector<EMAIL_Field*> writingOrder(const EMAIL_Header& header);

} // namespace tarvomime
