// SPDX-License-Identifier: MIT
#include "utility/codec/High.h"
