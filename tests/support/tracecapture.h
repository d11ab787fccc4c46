#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects the debug lines of the category "default" for as long as it lives.
class TraceCapture
{
public:
    TraceCapture();
    ~TraceCapture();
    Q_DISABLE_COPY(TraceCapture)

    QStringList lines() const;
    /// What the trace lines say behind their "[Info] [FactoryDebug] [ file : line ]  ".
    QStringList texts() const;
    void clear();

private:
    QtMessageHandler m_former;
};
