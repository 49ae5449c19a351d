// SPDX-License-Identifier: MIT
// interop_compose FOLDER: writes every sample as NAME.eml, and what a reader must find as
// NAME.json.
#include "tests/interop/Samples.h"

#include <QFile>
#include <QJsonDocument>
#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (const Sample& sample : makeSamples(folder)) {
        const QString stem = folder + '/' + sample.name;
        QFile message(stem + ".eml");
        QFile expected(stem + ".json");
        if (!message.open(QIODevice::WriteOnly) || sample.message->assemble(&message) != 0 ||
            !expected.open(QIODevice::WriteOnly) ||
            expected.write(QJsonDocument(sample.expected).toJson()) < 0) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(stem));
            return 1;
        }
    }
    return 0;
}
