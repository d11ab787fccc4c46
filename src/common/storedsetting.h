#pragma once

#include <QVariant>

class QString;

/// What is stored under that key, or the platform's default for it.
QVariant storedSetting(const QString &key);
