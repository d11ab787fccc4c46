#pragma once

#include "testsimulator.h"

#include "simulator/console/consoleserver.h"
#include "simulator/console/unitaddress.h"

/// A simulator whose console other programs reach.
class ServedUnit
{
public:
    ServedUnit()
        : m_server(unit.console())
    {
        QString error;
        if (!m_server.listen(name(), unit.journal(), &error)) {
            qFatal("%s", qPrintable(error));
        }
    }

    ~ServedUnit() { unit.console().close(); }

    QString folder() const { return unit.path(QString()); }
    QString name() const { return simulator::consoleSocketName(folder()); }

    TestSimulator unit;

private:
    simulator::ConsoleServer m_server;
};
