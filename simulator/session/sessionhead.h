#pragma once

#include <QString>

namespace simulator
{

/// The first line of a recorded session, a comment to the console, tells the version of its format.
namespace sessionhead
{

QString line();

/// What is wrong with a line: it is the head of a session whose format this program does not know.
/// Empty for any other line.
QString complaint(const QString &line);

} // namespace sessionhead

} // namespace simulator
