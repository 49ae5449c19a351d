// SPDX-License-Identifier: MIT
// Stands in for the fuzzer: runs a target once over each file named on the command line.

#include "fuzz/support/Fuzz.h"

#include <vector>

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        QFile file(QString::fromLocal8Bit(argv[i]));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read\n", argv[i]);
            return 1;
        }
        // On the heap and of exact size, so that a sanitizer sees the first byte read past the end.
        const QByteArray content = file.readAll();
        const std::vector<uint8_t> input(content.begin(), content.end());
        std::fprintf(stderr, "%s\n", argv[i]);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    return argc > 1 ? 0 : 1;
}
