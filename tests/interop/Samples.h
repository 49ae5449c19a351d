// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_MIME.h"

#include <QJsonObject>
#include <functional>
#include <memory>
#include <vector>

/// A message composed through the library, beside what a reader must find in it.
///
/// `expected` holds "subject", "from", "to" and "root". A node holds "type"; a container its nodes
/// as "parts"; a leaf "name", "file", "disposition", its content as "bytes" in base64, and, for
/// text, "text". It is written down from what went in, not read back through the library.
struct Sample
{
    QString name;
    std::unique_ptr<EMAIL_MIME> message;
    QJsonObject expected;
};

/// All samples; files that attachments need are made in `folder`.
std::vector<Sample> makeSamples(const QString& folder);
