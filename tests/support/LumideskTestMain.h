// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Lumidesk.h"

#include <QTest>

// main() for a test that needs the program's application object (fonts,
// translations, settings), as QTEST_MAIN is for a plain QApplication.
#define LUMIDESK_TEST_MAIN(TestObject)                                                            \
    int main(int argc, char** argv)                                                               \
    {                                                                                             \
        Lumidesk app(argc, argv);                                                                 \
        TestObject test;                                                                          \
        QTEST_SET_MAIN_SOURCE_PATH                                                                \
        return QTest::qExec(&test, argc, argv);                                                   \
    }
