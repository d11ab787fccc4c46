#include "nearest.h"

#include "commandline.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace simulator
{

namespace
{

const int lettersPerMistake = 3;
const int namesShown = 3;

} // namespace

int editDistance(const QString &one, const QString &other)
{
    // Distances of the beginnings of \a one to all beginnings of \a other.
    QVector<int> row(other.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < one.size(); ++i) {
        int diagonal = row[0]++;
        for (int j = 0; j < other.size(); ++j) {
            const bool isSame = one.at(i).toLower() == other.at(j).toLower();
            const int above = row[j + 1];
            row[j + 1] = std::min({above + 1, row[j] + 1, diagonal + int(!isSame)});
            diagonal = above;
        }
    }
    return row.last();
}

bool isNear(const QString &word, const QString &other)
{
    return editDistance(word, other) <= qMax(1, word.size() / lettersPerMistake);
}

QString nearHint(const QString &word, const QStringList &names)
{
    QList<QPair<QString, QString>> meant;
    for (const QString &name : names) {
        meant.append({name, name});
    }
    return nearHint(word, meant);
}

QString nearHint(const QString &word, QList<QPair<QString, QString>> names)
{
    using Name = QPair<QString, QString>;
    std::stable_sort(names.begin(), names.end(), [&word](const Name &one, const Name &other) {
        return editDistance(word, one.first) < editDistance(word, other.first);
    });
    QStringList near;
    for (const Name &name : qAsConst(names)) {
        if (isNear(word, name.first)) {
            near.append(commandline::join({name.second}));
        }
    }
    near.removeDuplicates();
    return near.isEmpty()
        ? QString()
        : QLatin1String("; near: ") + near.mid(0, namesShown).join(QLatin1String(", "));
}

} // namespace simulator
