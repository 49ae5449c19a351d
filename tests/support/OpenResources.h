// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <ostream>

/// How many descriptors this process has open, and how many mappings of one file. Equal counts
/// before and after an operation show that it released what it took.
struct OpenResources
{
    int descriptors;
    int mappings;

    static OpenResources of(const QString& path)
    {
        const auto descriptors =
            QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
        QFile maps(QStringLiteral("/proc/self/maps"));
        const QByteArray list = maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
        return {static_cast<int>(descriptors), static_cast<int>(list.count(path.toLocal8Bit()))};
    }
};

inline bool operator==(const OpenResources& a, const OpenResources& b)
{
    return a.descriptors == b.descriptors && a.mappings == b.mappings;
}

inline void PrintTo(const OpenResources& resources, std::ostream* out)
{
    *out << resources.descriptors << " descriptors, " << resources.mappings << " mappings";
}
