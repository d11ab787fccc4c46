#pragma once

#include <QString>
#include <QVector>

#include <functional>

/// The smallest, the middle and the largest of some measured values.
struct Summary
{
    double min = 0;
    double median = 0;
    double max = 0;
};

/// \a values must not be empty.
Summary summarise(QVector<double> values);

/// Turns off what the code under measurement traces.
void ignoreMessages();

/// Throws the standard output away for as long as it lives.
class Quiet
{
public:
    Quiet();
    Quiet(const Quiet &) = delete;
    Quiet &operator=(const Quiet &) = delete;
    ~Quiet();

private:
    const int m_stdout;
};

/// How long \a work takes, in microseconds.
double microseconds(const std::function<void()> &work);

/// Prints "<what>   min …  median …  max …  <unit>".
void printRow(const QString &what, const QVector<double> &values, const QString &unit);

/// Prints a row with the quotients of two series that were measured in turn, pair by pair.
void printRatio(const QString &what, const QVector<double> &values,
                const QVector<double> &counterpart);
