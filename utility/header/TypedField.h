// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Header.h"

namespace tarvomime {

/// The field, parsed; null for one of another class.
template <class Typed>
Typed* parsedAs(EMAIL_Field* field)
{
    auto* typed = dynamic_cast<Typed*>(field);
    if (typed != nullptr && typed->mParsed == 0)
        typed->parse();
    return typed;
}

/// The first field of that name, parsed; null when absent. A field that an application added under
/// this name may be of another class: it then counts as absent.
template <class Typed>
Typed* parsedField(const EMAIL_Header& header, const QCString& name)
{
    return parsedAs<Typed>(header.getField(name));
}

/// The first field of that name, created when absent and not parsed; never null, since a field of
/// another class under this name is replaced.
template <class Typed>
Typed* typedField(EMAIL_Header& header, const QCString& name)
{
    if (auto* typed = dynamic_cast<Typed*>(header.field(name)))
        return typed;
    header.addField(header.createField(name));
    return static_cast<Typed*>(header.getField(name));
}

} // namespace tarvomime
