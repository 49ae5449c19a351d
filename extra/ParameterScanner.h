// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tarvomime {

/// One parameter of a field body. The name is lower-case; both are empty for what is none.
struct Parameter
{
    std::string name;
    std::string value;
};

/// Cuts the parameters behind the first ";" of a field body. Section numbers and charsets stay in
/// the names and values.
class ParameterScanner
{
public:
    explicit ParameterScanner(std::string_view body);

    bool atEnd() const { return mRest.empty(); }
    Parameter takeParameter();

private:
    void skipBlanks();
    void skipToNext();
    std::string takeValue();
    std::string takeQuoted();
    bool mayClose() const { return mRest.data() <= mLastClosing; }

    std::string_view mRest;
    // The last quote that can close a value: none is looked for behind it, so that a flood of
    // values without closing quotes stays linear.
    const char* mLastClosing;
};

} // namespace tarvomime
