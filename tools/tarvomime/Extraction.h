// SPDX-License-Identifier: MIT
#pragma once

#include "extra/TargetFolder.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/OutputFile.h"

namespace tarvomime::tool {

class Session;

struct ExtractOptions
{
    MailInputs inputs;
    std::string part;
    bool all = false;
    std::string out = ".";
};

/// Decodes the bodies of one message into the target folder, or one of them to standard output
/// where there is no folder.
class Extraction
{
public:
    Extraction(Mail& mail, const ExtractOptions& options, TargetFolder* folder, Session& session);

    void run();

private:
    void extractNumber();
    void extractMany();
    bool holdsParts(int index) const;
    void extractPart(int index);
    void writeFile(int index);
    bool decode(const EMAIL_Entity& entity, QFile& target, ProgressBar* bar);
    void complain(const std::string& reason);

    Mail& mMail;
    const MessageContent& mContent;
    const ExtractOptions& mOptions;
    TargetFolder* mFolder;
    Session& mSession;
};

} // namespace tarvomime::tool
