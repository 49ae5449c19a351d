// SPDX-License-Identifier: MIT
#pragma once
