// SPDX-License-Identifier: MIT
#include "extra/SafeFileName.h"

#include <QStringList>
#include <QVector>

namespace tarvomime {

namespace {

// File systems take 255 bytes; the rest is room for the number of a copy.
constexpr int kLongestName = 200;
// What follows the last "." is an extension only up to this length, the "." included.
constexpr int kLongestExtension = 24;

// What no name of one line holds. Surrogates left alone are no text.
bool breaksText(uint codePoint)
{
    switch (QChar::category(codePoint)) {
    case QChar::Other_Control:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

// Format characters (direction marks, joiners, soft hyphens, tags) are invisible too: a name must
// be what it looks like.
bool isInvisible(uint codePoint)
{
    return breaksText(codePoint) || QChar::category(codePoint) == QChar::Other_Format;
}

bool isReservedCharacter(uint codePoint)
{
    return codePoint < 0x80 && QStringLiteral("<>:\"|?*").contains(QChar(ushort(codePoint)));
}

QString baseName(const QString& path)
{
    const int separator = static_cast<int>(qMax(path.lastIndexOf('/'), path.lastIndexOf('\\')));
    return path.mid(separator + 1);
}

void appendCodePoint(QString& out, uint codePoint)
{
    if (QChar::requiresSurrogates(codePoint)) {
        out += QChar(QChar::highSurrogate(codePoint));
        out += QChar(QChar::lowSurrogate(codePoint));
    } else {
        out += QChar(static_cast<ushort>(codePoint));
    }
}

QString visible(const QString& name)
{
    QString out;
    for (const uint codePoint : name.toUcs4()) {
        if (isReservedCharacter(codePoint))
            out += '_';
        else if (!isInvisible(codePoint))
            appendCodePoint(out, codePoint);
    }
    return out;
}

// Device names are reserved with any extension, and so is the name in front of trailing blanks.
bool isDeviceName(const QString& name)
{
    static const QStringList devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    const QString stem = name.left(static_cast<int>(name.indexOf('.'))).trimmed().toUpper();
    if (devices.contains(stem))
        return true;
    // The superscript digits count too.
    const bool isPort =
        stem.startsWith(QLatin1String("COM")) || stem.startsWith(QLatin1String("LPT"));
    return isPort && stem.size() == 4 && stem.at(3).digitValue() >= 0;
}

bool isCutCharacter(QChar c)
{
    return c == '.' || c.isSpace();
}

// Without blanks at both ends and dots at the end, which some systems drop by themselves.
QString trimmedName(const QString& name)
{
    int end = static_cast<int>(name.size());
    while (end > 0 && isCutCharacter(name.at(end - 1)))
        --end;
    return name.left(end).trimmed();
}

int extensionStart(const QString& name)
{
    const int dot = static_cast<int>(name.lastIndexOf('.'));
    const bool isExtension = dot > 0 && name.mid(dot).toUtf8().size() <= kLongestExtension;
    return isExtension ? dot : static_cast<int>(name.size());
}

// At most `length` bytes of UTF-8 from the start, whole characters only.
QString cutToBytes(const QString& text, int length)
{
    QByteArray bytes = text.toUtf8();
    if (bytes.size() <= length)
        return text;
    while (length > 0 && (static_cast<unsigned char>(bytes.at(length)) & 0xC0) == 0x80)
        --length;
    return QString::fromUtf8(bytes.left(length));
}

QString bounded(const QString& name)
{
    const int dot = extensionStart(name);
    const QString extension = name.mid(dot);
    const int room = kLongestName - static_cast<int>(extension.toUtf8().size());
    return cutToBytes(name.left(dot), room) + extension;
}

QString madeSafe(const QString& wanted)
{
    QString name = trimmedName(bounded(trimmedName(visible(baseName(wanted)))));
    if (name.isEmpty())
        return {};
    if (name.startsWith('.') || name.startsWith('-'))
        name[0] = '_';
    return isDeviceName(name) ? '_' + name : name;
}

} // namespace

QString safeFileName(const QString& wanted, const QString& fallback)
{
    for (const QString& candidate : {wanted, fallback}) {
        QString name = madeSafe(candidate);
        if (!name.isEmpty())
            return name;
    }
    return QStringLiteral("part");
}

QString attachableName(const QString& name)
{
    QString out;
    for (const uint codePoint : name.toUcs4()) {
        if (codePoint == '"')
            out += '\'';
        else if (codePoint == '\\')
            out += '_';
        else if (!breaksText(codePoint))
            appendCodePoint(out, codePoint);
    }
    return out;
}

QString numberedFileName(const QString& name, int copy)
{
    if (copy < 2)
        return name;
    const int dot = extensionStart(name);
    return name.left(dot) + QString(" (%1)").arg(copy) + name.mid(dot);
}

} // namespace tarvomime
