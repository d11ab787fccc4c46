#pragma once

#include <QtTest>

/// Calls a function of checks, and leaves the calling one as well when one of them failed: a failed
/// QCOMPARE or QVERIFY ends only the function that it stands in.
#define RUN_CHECK(...)                                                                             \
    do {                                                                                           \
        __VA_ARGS__;                                                                               \
        if (QTest::currentTestFailed()) {                                                          \
            return;                                                                                \
        }                                                                                          \
    } while (false)
