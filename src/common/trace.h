#pragma once

#include <QDebug>

/// The name in a path behind its last slash, at compile time.
constexpr const char *traceFileName(const char *path, const char *name)
{
    return *path == '\0' ? name : traceFileName(path + 1, *path == '/' ? path + 1 : name);
}

/// Starts a trace line; stream into it what it is about:
///     FACTORY_TRACE << "id:" << id;
/// writes: [Info] [FactoryDebug] [ factorydebugview.cpp : 120 ]  id: "usbtest"
#define FACTORY_TRACE                                                                              \
    qDebug() << "[Info]"                                                                           \
             << "[FactoryDebug]"                                                                   \
             << "[" << traceFileName(__FILE__, __FILE__) << ":" << __LINE__ << "] "
