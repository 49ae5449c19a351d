// SPDX-License-Identifier: MIT
#pragma once

#include "types/QCString.h"

/// Names of media types and subtypes and their numbers, both ways.
namespace tarvomime {

int mediaTypeFromName(const QCString& name);
bool writeMediaTypeName(int type, QCString& name);
int subtypeFromName(const QCString& name);
bool writeSubtypeName(int subtype, QCString& name);

} // namespace tarvomime
