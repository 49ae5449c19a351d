// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The text of a message of that shape, in CR LF form; empty when there is no such shape. `size`
/// counts what the shape is made of: parts, levels, lines, addresses, parameters, or bytes.
std::string shapeText(const std::string& shape, int size);
