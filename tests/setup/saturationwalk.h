#pragma once

#include <QList>
#include <QString>

/// What the panel page has to show, apply and keep after a step of its saturation.
struct SaturationStep
{
    QString label;
    double value; ///< what the display service is given
    int stored;
};

/// The saturation from 1.0 on, stepped so many times, up for a positive number and down for a
/// negative one, as the program beside this file computes it: the start, and what each step gives.
/// Empty when the program cannot be run.
QList<SaturationStep> saturationWalk(const QList<int> &steps);
