// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <algorithm>
#include <typeinfo>

namespace tarvomime {

/// A typed field whose written value would be longer keeps the text that it was read from. Short
/// parameters may share one long value, so that what is written grows with the square of what was
/// read; no receiver knows what to do with a value of this length.
constexpr qint64 kLongestWrittenValue = 1048576;

/// What `mParsed` says of a typed field. The members of one that is `Rewritten` are authoritative;
/// one that is `Kept` was read from a value too long to be written, and its text stands.
enum Parsed { Unparsed = 0, Rewritten = 1, Kept = 2 };

/// The state of a field in state `before` that was read from its text, and whose value is `tooLong`
/// to be written. What an application has set is never put aside.
inline int parsedState(int before, bool tooLong)
{
    return before != Rewritten && tooLong ? Kept : Rewritten;
}

/// The field as one of its class; null for one of another. Nearly all are exactly of the class,
/// which is told without a walk over the classes above.
template <class Typed>
Typed* asTyped(EMAIL_Field* field)
{
    if (field != nullptr && typeid(*field) == typeid(Typed))
        return static_cast<Typed*>(field);
    return dynamic_cast<Typed*>(field);
}

/// The field, parsed; null where there is none. One that an application added under the name may be
/// of another class: it then counts as absent.
template <class Typed>
Typed* parsedAs(EMAIL_Field* field)
{
    Typed* typed = asTyped<Typed>(field);
    if (typed != nullptr && typed->mParsed == 0)
        typed->parse();
    return typed;
}

/// Puts a field of the class that belongs to the name in the place of `other`, which is deleted; it
/// takes the text over.
inline EMAIL_Field* replaceField(EMAIL_Header& header, EMAIL_Field* other)
{
    // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker): what is replaced is there
    EMAIL_Field* created = header.createField(other->mName);
    created->mString = other->mString;
    created->mBody = other->mBody;
    QPtrList<EMAIL_Field>& fields = header.mFields;
    const auto index =
        static_cast<int>(std::find(fields.begin(), fields.end(), other) - fields.begin());
    delete fields.take(index);
    // One was just taken out: there is room.
    fields.insert(index, created);
    return created;
}

/// The first field of that name, created when absent and not parsed; never null, since a field of
/// another class under this name is replaced.
template <class Typed>
Typed* typedField(EMAIL_Header& header, const QCString& name)
{
    EMAIL_Field* field = header.field(name);
    if (Typed* typed = asTyped<Typed>(field))
        return typed;
    return static_cast<Typed*>(replaceField(header, field));
}

} // namespace tarvomime
