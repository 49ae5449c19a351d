// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvomime::tool {

/// The first argument by which a shell asks what could stand behind what was typed.
constexpr const char* kCompleteWord = "__complete";

/// The answer to a shell: `words` are those typed behind the tool's name, the last one as far as it
/// goes.
///
/// The first line says what else is possible: ":files", ":folders" or ":". Each other line is a
/// word that begins like the last one, a tab, and what it means.
QByteArray completionsFor(const CLI::App& tool, const std::vector<std::string>& words);

} // namespace tarvomime::tool
