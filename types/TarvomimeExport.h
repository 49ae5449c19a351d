// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the shared library exports; everything else is built with hidden visibility.
#define TARVOMIME_EXPORT __attribute__((visibility("default")))
