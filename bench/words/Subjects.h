// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

/// Subjects as a mailbox holds them.
struct Subject
{
    /// As it stands in the header.
    QByteArray wire;
    /// As it is shown.
    QString text;
    /// A charset it can be written in, by number and by name.
    int charset;
    QByteArray charsetName;
};

/// `count` different subjects: a quarter plain ASCII, most others UTF-8 in both forms, the rest in
/// older charsets; one in ten is folded over several words.
std::vector<Subject> mixedSubjects(int count);
