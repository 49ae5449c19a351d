// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Cells.h"

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <limits>

namespace tarvomime::tool {

namespace {

constexpr char16_t kEllipsis = 0x2026;

// The table that knows all of Unicode, whatever the user's locale, for the calling thread.
class UnicodeTable
{
public:
    UnicodeTable() : mOld(uselocale(unicodeLocale())) {}
    UnicodeTable(const UnicodeTable&) = delete;
    UnicodeTable& operator=(const UnicodeTable&) = delete;
    ~UnicodeTable() { uselocale(mOld); }

    static int cellsOf(char32_t character)
    {
        const int cells = wcwidth(static_cast<wchar_t>(character));
        // It knows nothing of characters that came later than it did.
        return cells < 0 ? 1 : cells;
    }

private:
    // None at all leaves the locale as it is.
    static locale_t unicodeLocale()
    {
        static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return locale;
    }

    locale_t mOld;
};

struct Beginning
{
    qsizetype length;
    int cells;
};

// As many characters as fit, and how many cells they fill.
Beginning fittingBeginning(const QString& text, int cells)
{
    const UnicodeTable table;
    Beginning beginning = {0, 0};
    while (beginning.length < text.size()) {
        const QChar first = text.at(beginning.length);
        const bool pair = first.isHighSurrogate() && beginning.length + 1 < text.size();
        const char32_t character =
            pair ? QChar::surrogateToUcs4(first, text.at(beginning.length + 1)) : first.unicode();
        const int width = character < 0x80 ? 1 : UnicodeTable::cellsOf(character);
        if (beginning.cells + width > cells)
            break;
        beginning.cells += width;
        beginning.length += pair ? 2 : 1;
    }
    return beginning;
}

} // namespace

int cellsOf(const QString& text)
{
    return fittingBeginning(text, std::numeric_limits<int>::max()).cells;
}

QString cutToCells(const QString& text, int cells)
{
    if (fittingBeginning(text, cells).length == text.size())
        return text;
    const Beginning beginning = fittingBeginning(text, std::max(cells - 1, 0));
    return text.left(static_cast<int>(beginning.length)) + QChar(kEllipsis);
}

QString column(const QString& text, int cells)
{
    const QString cut = cutToCells(text, cells);
    return cut + QString(std::max(cells - cellsOf(cut), 0), ' ');
}

} // namespace tarvomime::tool
