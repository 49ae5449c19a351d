// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Style.h"

namespace tarvomime::tool {

/// The names above what is printed of several messages, an empty line in front of all but the
/// first.
class Heading
{
public:
    Heading(Session& session, const Style& style) : mSession(session), mStyle(style) {}

    void print(const MailSource& source, const Mail& mail)
    {
        if (!source.holdsSeveral())
            return;
        if (!mIsFirst)
            mSession.print("\n");
        mIsFirst = false;
        mSession.print(mStyle.heading("==> " + printableLine(mail.name()) + " <==") + '\n');
    }

private:
    Session& mSession;
    const Style& mStyle;
    bool mIsFirst = true;
};

} // namespace tarvomime::tool
