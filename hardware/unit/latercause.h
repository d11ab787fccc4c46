#pragma once

#include "cause.h"

class QEvent;
class QObject;

namespace hardware
{

/// The object is given to deleteLater(), which follows from what its thread does now.
void rememberDeletion(QObject &object);

/// What the deletion of an object follows from, once it comes.
Cause causeOfDeletion(const QObject &object);

/// The event is posted, which follows from what this thread does now. Any thread.
void rememberPosted(const QEvent &event);

/// What a posted event follows from, once it comes; asked once. Any thread.
Cause causeOfPosted(const QEvent &event);

} // namespace hardware
