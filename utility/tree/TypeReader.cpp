// SPDX-License-Identifier: MIT
#include "utility/tree/TypeReader.h"

#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/header/FieldNames.h"
#include "utility/header/TypedField.h"

#include <algorithm>

namespace tarvomime {

namespace {

// Whether parsing gives nothing but what the text says.
bool isUntouched(const EMAIL_ContentType& type)
{
    return typeid(type) == typeid(EMAIL_ContentType) && type.mParsed == 0 &&
           type.mParams.isEmpty() && type.mBoundary.isNull() && type.mMethod.isNull();
}

void takeReading(EMAIL_ContentType& type, const EMAIL_ContentType& other)
{
    type.mParams = other.mParams;
    type.mType = other.mType;
    type.mSubType = other.mSubType;
    type.mTypeEnum = other.mTypeEnum;
    type.mSubTypeEnum = other.mSubTypeEnum;
    type.mBoundary = other.mBoundary;
    type.mParsed = other.mParsed;
}

} // namespace

const EMAIL_ContentType* TypeReader::read(const EMAIL_Header& header)
{
    auto* type = asTyped<EMAIL_ContentType>(header.getField(FieldName::contentType()));
    if (type == nullptr || !isUntouched(*type))
        return parsedAs<EMAIL_ContentType>(type);
    const auto* const known =
        std::find_if(mRecent.begin(), mRecent.end(), [type](const EMAIL_ContentType* recent) {
            return recent != nullptr && recent->mBody == type->mBody;
        });
    if (known != mRecent.end()) {
        takeReading(*type, **known);
        return type;
    }
    type->parse();
    mRecent[mNext++ % mRecent.size()] = type;
    return type;
}

} // namespace tarvomime
