// SPDX-License-Identifier: MIT
#include "utility/tree/WritingOrder.h"

#include "utility/EMAIL_Header.h"
#include "utility/header/FieldNames.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvomime {

std::vector<EMAIL_Field*> writingOrder(const EMAIL_Header& header)
{
    const std::array leaders{header.getField(FieldName::from()), header.getField(FieldName::to()),
                             header.getField(FieldName::date()),
                             header.getField(FieldName::subject())};
    std::vector<EMAIL_Field*> order;
    order.reserve(static_cast<std::size_t>(header.mFields.count()));
    std::copy_if(leaders.begin(), leaders.end(), std::back_inserter(order),
                 [](const EMAIL_Field* field) { return field != nullptr; });
    std::copy_if(header.mFields.begin(), header.mFields.end(), std::back_inserter(order),
                 [&leaders](const EMAIL_Field* field) {
                     return std::find(leaders.begin(), leaders.end(), field) == leaders.end();
                 });
    return order;
}

} // namespace tarvomime
