#include "probemodule.h"

#include <QLibrary>
#include <QtTest>

const GateProbe &probeOf(const QByteArray &module)
{
    const QString file = QStringLiteral(GATEPROBE_DIR "/lib%1.so").arg(QString::fromLatin1(module));
    QLibrary library(file);
    const auto probe = reinterpret_cast<decltype(&gateProbe)>(library.resolve("gateProbe"));
    if (probe == nullptr) {
        qFatal("The test's module cannot be loaded: %s", qPrintable(library.errorString()));
    }
    return *probe();
}

void addProbeRows()
{
    QTest::addColumn<QByteArray>("module");
    QTest::addColumn<int>("call");

    for (const char *module : probeModules) {
        const GateProbe &probe = probeOf(module);
        for (std::size_t call = 0; call < probe.count; ++call) {
            QTest::addRow("%s: %s", module, probe.calls[call].name)
                << QByteArray(module) << int(call);
        }
    }
}
