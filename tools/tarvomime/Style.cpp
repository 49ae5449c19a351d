// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Style.h"

#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Terminal.h"

#include <cstdlib>
#include <string_view>

namespace tarvomime::tool {

namespace {

std::string_view environment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

bool isWished(std::string_view when)
{
    if (when == "auto")
        return isOutputTerminal() && environment("NO_COLOR").empty() &&
               environment("TERM") != "dumb";
    return when == "always";
}

} // namespace

Style::Style(const std::string& when) : mColoured(isWished(when)) {}

QByteArray Style::paint(const char* colour, const QByteArray& text) const
{
    if (!mColoured || text.isEmpty())
        return text;
    return QByteArray("\x1B[") + colour + 'm' + text + "\x1B[0m";
}

void addColor(Arguments& arguments, std::string& when)
{
    when = "auto";
    arguments.choice("--color", when, {"auto", "always", "never"},
                     "Colours: on a terminal unless NO_COLOR is set, always or never");
}

} // namespace tarvomime::tool
