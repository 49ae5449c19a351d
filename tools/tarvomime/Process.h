// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime::tool {

/// Settles what the process inherited, before any file is opened.
///
/// 1. A standard descriptor that was closed is filled with one that refuses its use. The next file
///    opened would take its number otherwise, and output would end up in a user's mail.
/// 2. A reader that goes away is an error of writing, to be reported like a full disk, and no
///    silent death.
void prepareProcess();

/// File names are turned into Qt's text and back by the rules of the user's locale.
void adoptLocale();

} // namespace tarvomime::tool
