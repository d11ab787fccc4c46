#pragma once

#include <QtTest>

/// Has Qt draw into memory, and give texts the size that they have on the unit's screen, whatever
/// the host's screen is like. What whoever started the program has chosen stands.
inline bool prepareScreen()
{
    const auto choose = [](const char *variable, const char *value) {
        return qEnvironmentVariableIsSet(variable) || qputenv(variable, value);
    };
    return choose("QT_QPA_PLATFORM", "offscreen") && choose("QT_FONT_DPI", "72");
}

/// The main function of a test program, which needs no environment.
#define FACTORY_TEST_MAIN(Class)                                                                   \
    static const bool isScreenPrepared = prepareScreen(); /* ahead of Qt's application */          \
    QTEST_MAIN(Class)

/// The same for a test without a screen.
#define FACTORY_TEST_GUILESS_MAIN(Class)                                                           \
    static const bool isScreenPrepared = prepareScreen();                                          \
    QTEST_GUILESS_MAIN(Class)
