// SPDX-License-Identifier: MIT
#include "utility/time/B.h"
