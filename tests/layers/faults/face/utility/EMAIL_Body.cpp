// SPDX-License-Identifier: MIT
int body()
{
    return EMAIL_Util::cteStrToEnum("base64");
}
