// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <initializer_list>
#include <string_view>

namespace tarvomime {

/// The pieces one behind the other, in one allocation.
QByteArray joined(std::initializer_list<std::string_view> pieces);

} // namespace tarvomime
