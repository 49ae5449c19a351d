// SPDX-License-Identifier: MIT
#include "utility/text/A.h"
