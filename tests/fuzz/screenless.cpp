#include "screenless.h"

#include <QApplication>
#include <QStandardPaths>

void startScreenless()
{
    static int count = 1;
    static char name[] = "fuzzer";
    static char *words[] = {name, nullptr};
    static bool isStarted = false;
    if (!isStarted) {
        isStarted = true;
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QStandardPaths::setTestModeEnabled(true);
        // Never deleted: a fuzzer has no main function at whose end that could be.
        static const auto *const application = new QApplication(count, words);
        Q_UNUSED(application)
    }
}
