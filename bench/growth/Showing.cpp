// SPDX-License-Identifier: MIT
#include "bench/growth/Showing.h"

#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Session.h"

#include <CLI/CLI.hpp>

struct Showing::Command
{
    Command() { tarvomime::tool::addShow(app, session); }

    tarvomime::tool::Session session;
    CLI::App app;
};

Showing::Showing() : mCommand(std::make_unique<Command>()) {}

Showing::~Showing() = default;

void Showing::show(const std::string& path)
{
    // CLI11 takes its arguments from the end.
    mCommand->app.parse(std::vector<std::string>{path, "--no-pager", "show"});
    mCommand->session.output().flush();
}
