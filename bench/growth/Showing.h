// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

/// The command "show" of the tool, inside this process: reading the arguments costs next to nothing
/// then, and what it allocates is counted. What it prints is thrown away.
class Showing
{
public:
    Showing();
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    ~Showing();

    void show(const std::string& path);

private:
    struct Command;
    std::unique_ptr<Command> mCommand;
};
