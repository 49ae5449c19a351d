// SPDX-License-Identifier: MIT
#pragma once

class EMAIL_MultiPart;

namespace tarvomime::tool {

class InputFile;

/// Makes `part` an attachment of the file, named and typed after its name. The content stays in the
/// file until the message is written, where the library can open it again.
void attachFile(const InputFile& file, EMAIL_MultiPart& part);

} // namespace tarvomime::tool
