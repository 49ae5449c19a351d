// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the library on top exports; everything else is built with hidden visibility.
#define TARVOMIME_EXTRA_EXPORT __attribute__((visibility("default")))
