// SPDX-License-Identifier: MIT
#include "utility/text/B.h"
