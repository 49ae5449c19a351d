// SPDX-License-Identifier: MIT
#pragma once

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

/// A file name for JSON, which knows Unicode text only.
inline QString jsonPath(const std::string& path)
{
    return QString::fromUtf8(path.c_str());
}

} // namespace tarvomime::tool
