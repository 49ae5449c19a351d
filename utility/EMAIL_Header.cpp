// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Header.h"

#include "types/AllocationCheck.h"
#include "types/Ascii.h"
#include "utility/EMAIL_Field.h"
#include "utility/header/FieldFactory.h"
#include "utility/header/FieldNames.h"
#include "utility/text/Joined.h"
#include "utility/text/Tokens.h"
#include "utility/tree/HeaderAssembly.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace {

using namespace tarvomime;

// Where the first logical line ends (RFC 5322, section 2.2.3): an LF that SP or HTAB follows is a
// fold, and the line goes on with the fold inside it.
std::size_t lineEnd(std::string_view text)
{
    std::size_t end = 0;
    do {
        const std::size_t lineFeed = text.find('\n', end);
        if (lineFeed == std::string_view::npos)
            return text.size();
        end = lineFeed + 1;
    } while (end < text.size() && isBlank(text[end]));
    return end;
}

// The first logical line, without the CR and LF characters at its end; `text` becomes what is
// behind it.
std::string_view takeLine(std::string_view& text)
{
    std::string_view line = text.substr(0, lineEnd(text));
    text.remove_prefix(line.size());
    while (!line.empty() && isLineBreak(line.back()))
        line.remove_suffix(1);
    return line;
}

// Most names already differ in their lengths, which are looked at in place.
int indexOf(const QPtrList<EMAIL_Field>& fields, const QCString& text)
{
    const std::string_view name = text.view();
    const auto found = std::find_if(fields.begin(), fields.end(), [name](const EMAIL_Field* field) {
        return field->mName.length() == static_cast<int>(name.size()) &&
               equalIgnoringCase(field->mName.view(), name);
    });
    return found == fields.end() ? -1 : static_cast<int>(found - fields.begin());
}

} // namespace

EMAIL_Header::EMAIL_Header()
{
    init();
}

EMAIL_Header::EMAIL_Header(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_BaseComponent(text, parent)
{
    init();
}

void EMAIL_Header::init()
{
    mFields.setAutoDelete(true);
}

EMAIL_Header::~EMAIL_Header()
{
    mFields.clear();
}

void EMAIL_Header::parse()
{
    const QCString nameless;
    for (std::string_view rest = mString.view(); !rest.empty();) {
        const std::string_view line = takeLine(rest);
        const Sides sides = sidesOfFirst(":", line, true);
        EMAIL_Field* parsed = createFieldOf(*this, line.empty() ? nameless : mString, sides.left);
        if (sides.right)
            parsed->mBody = mString.slice(*sides.right);
        parsed->mString = mString.slice(line);
        TARVOMIME_CHECK_ALLOCATION(mFields.append(parsed), "mFields", "utility/EMAIL_Header.cpp",
                                   "virtual void EMAIL_Header::parse()");
    }
}

void EMAIL_Header::assemble()
{
    if (!assembleHeader(*this))
        mString = refusedText();
}

EMAIL_Field* EMAIL_Header::getField(const QCString& name) const
{
    return mFields.at(indexOf(mFields, name));
}

EMAIL_Field* EMAIL_Header::field(const QCString& name)
{
    if (EMAIL_Field* existing = getField(name))
        return existing;
    EMAIL_Field* created = createField(name);
    TARVOMIME_CHECK_ALLOCATION(mFields.append(created), "mFields", "utility/EMAIL_Header.cpp",
                               "EMAIL_Field* EMAIL_Header::field(const QCString&)");
    return created;
}

void EMAIL_Header::addField(EMAIL_Field* f)
{
    if (f == nullptr)
        return;
    f->setParent(this);
    removeField(f->mName);
    TARVOMIME_CHECK_ALLOCATION(mFields.append(f), "mFields", "utility/EMAIL_Header.cpp",
                               "void EMAIL_Header::addField(EMAIL_Field*)");
}

void EMAIL_Header::removeField(const QCString& name)
{
    mFields.remove(indexOf(mFields, name));
}

// The copy is a buffer of its own, so that `in` and `out` may be one text, and so that running out
// of memory for it is told by name.
void EMAIL_Header::stripCFWS(const QCString& in, QCString& out)
{
    if (in.isEmpty())
        return;
    const auto isIgnored = [](char c) { return isBlank(c) || isLineBreak(c); };
    const char* first = std::find_if_not(in.begin(), in.end(), isIgnored);
    const auto length = in.end() - first;
    const std::unique_ptr<char[]> tmp(
        new (std::nothrow) char[static_cast<std::size_t>(length) + 1]);
    TARVOMIME_CHECK_ALLOCATION(tmp, "tmp", "utility/EMAIL_Header.cpp",
                               "static void EMAIL_Header::stripCFWS(const QCString&, QCString&)");
    std::copy(first, in.end(), tmp.get());
    out = QCString(tmp.get(), static_cast<int>(length));
}

void EMAIL_Header::asSendable(bool removeBcc)
{
    removeSmartDataInfo();
    removeBodyTruncatedInfo();
    if (removeBcc)
        removeField(FieldName::bcc());
    removeField(FieldName::attachmentNotDownloaded());
    removeField(FieldName::attachmentName());
    removeField(FieldName::deliveryNotification());
}
