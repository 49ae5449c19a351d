// SPDX-License-Identifier: MIT
// A project of its own that knows nothing but the installed library.

#include <cstdio>
#include <utility/EMAIL_Field.h>

int main()
{
    EMAIL_Field field;
    field.mName = "Subject";
    field.mBody = "Hello";
    field.assemble();
    const bool written = field.mString == "Subject: Hello\r\n";
    std::printf("%s", field.mString.data());
    return written ? 0 : 1;
}
