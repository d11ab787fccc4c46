#pragma once

#include <QRect>

/// Where the framework has a page of the menu, below the status bar.
constexpr QRect pageRect(QPoint(0, 66), QPoint(799, 477));
