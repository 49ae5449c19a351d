// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Cal.h"

#include "utility/EMAIL_Util.h"

QByteArray encQp_Cal(char const* data, unsigned long len, int breakLines)
{
    return EMAIL_Util::encQp(data, len, breakLines);
}
