// SPDX-License-Identifier: MIT
#pragma once

#include <cctype>
#include <gtest/gtest.h>
#include <string>

/// Names a parameterised test after its row's `name`, for INSTANTIATE_TEST_SUITE_P.
template <class Row>
std::string rowName(const testing::TestParamInfo<Row>& row)
{
    std::string name(row.param.name);
    for (char& c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0)
            c = '_';
    }
    return name;
}
