// SPDX-License-Identifier: MIT
#pragma once

// What nearly every test needs, compiled once for all test programs.
#include "tests/support/Printers.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>
