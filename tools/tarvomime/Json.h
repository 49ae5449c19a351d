// SPDX-License-Identifier: MIT
#pragma once

#include "extra/Utf8.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <string>

namespace tarvomime::tool {

/// An object on one line, without a line end.
inline QByteArray compactJson(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Bytes for JSON, which knows Unicode text only: what is no UTF-8 is an object of its base64.
inline QJsonValue jsonText(const QByteArray& bytes)
{
    if (isUtf8({bytes.constData(), static_cast<std::size_t>(bytes.size())}))
        return QString::fromUtf8(bytes);
    return QJsonObject{{"base64", QString::fromLatin1(bytes.toBase64())}};
}

/// A file name for JSON.
inline QJsonValue jsonPath(const std::string& path)
{
    return jsonText(QByteArray::fromStdString(path));
}

} // namespace tarvomime::tool
