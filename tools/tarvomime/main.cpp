// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Process.h"
#include "tools/tarvomime/Tool.h"

int main(int argc, char** argv)
{
    tarvomime::tool::prepareProcess();
    return tarvomime::tool::runTool(argc, argv);
}
