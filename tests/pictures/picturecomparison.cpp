#include "picturecomparison.h"

#include <QDir>
#include <QFileInfo>

namespace
{

/// Pixels as numbers of eight bits for each channel; the same for all files of a picture.
QImage pixels(const QString &file)
{
    return QImage(file).convertToFormat(QImage::Format_ARGB32);
}

/// The largest difference of a channel.
int distance(QRgb one, QRgb other)
{
    return qMax(qMax(qAbs(qRed(one) - qRed(other)), qAbs(qGreen(one) - qGreen(other))),
                qMax(qAbs(qBlue(one) - qBlue(other)), qAbs(qAlpha(one) - qAlpha(other))));
}

struct Difference
{
    QImage picture;
    QRect area;
    int pixels = 0;
    int most = 0; ///< of a channel
};

/// Of two pictures of one size.
Difference difference(const QImage &expected, const QImage &got)
{
    Difference found;
    found.picture = expected;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const QRgb there = expected.pixel(x, y);
            const int by = distance(there, got.pixel(x, y));
            const int dimmed = qGray(there) / 3;
            found.picture.setPixel(x, y, by > 0 ? qRgb(255, 0, 0) : qRgb(dimmed, dimmed, dimmed));
            if (by > 0) {
                found.area |= QRect(x, y, 1, 1);
                found.most = qMax(found.most, by);
                ++found.pixels;
            }
        }
    }
    return found;
}

QString sizeText(const QSize &size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

} // namespace

PictureComparison::PictureComparison(const QStringList &references, const QString &differences)
    : m_references(references)
    , m_differences(differences)
{
    QDir(m_differences).removeRecursively();
    QDir().mkpath(m_differences);
}

QString PictureComparison::complaint(const QString &file)
{
    const QString name = QFileInfo(file).fileName();
    if (m_compared.contains(name)) {
        return QStringLiteral("two pictures are called %1").arg(name);
    }
    m_compared.insert(name);
    const QImage got = pixels(file);
    if (got.isNull()) {
        return QStringLiteral("%1 cannot be read").arg(name);
    }
    const QString referenceFile = reference(name);
    if (referenceFile.isEmpty()) {
        keep(name, QStringLiteral("got"), got);
        return QStringLiteral("%1 has no reference").arg(name);
    }
    const QImage expected = pixels(referenceFile);
    if (got.size() != expected.size()) {
        keep(name, QStringLiteral("got"), got);
        return QStringLiteral("%1 is of %2 pixels, its reference of %3")
            .arg(name, sizeText(got.size()), sizeText(expected.size()));
    }
    const Difference found = difference(expected, got);
    if (found.pixels == 0) {
        return QString();
    }
    keep(name, QStringLiteral("got"), got);
    keep(name, QStringLiteral("difference"), found.picture);
    return QStringLiteral("%1 differs in %2 pixels from (%3, %4) to (%5, %6), by up to %7")
        .arg(name)
        .arg(found.pixels)
        .arg(found.area.left())
        .arg(found.area.top())
        .arg(found.area.right())
        .arg(found.area.bottom())
        .arg(found.most);
}

QStringList PictureComparison::unmade() const
{
    QStringList names;
    for (const QString &folder : m_references) {
        names += QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files);
    }
    for (const QString &name : m_compared) {
        names.removeAll(name);
    }
    QFile list(m_differences + QStringLiteral("/unmade"));
    if (!names.isEmpty() && list.open(QIODevice::WriteOnly)) {
        list.write(names.join(QLatin1Char('\n')).toUtf8() + '\n');
    }
    return names;
}

/// Host path of the reference of that name; empty when there is none.
QString PictureComparison::reference(const QString &name) const
{
    for (const QString &folder : m_references) {
        const QString file = folder + QLatin1Char('/') + name;
        if (QFileInfo::exists(file)) {
            return file;
        }
    }
    return QString();
}

/// Leaves a picture for whoever looks at it, in as few bytes as can be.
void PictureComparison::keep(const QString &name, const QString &role, const QImage &picture) const
{
    const int fewestBytes = 0;
    picture.convertToFormat(QImage::Format_RGB32)
        .save(QStringLiteral("%1/%2-%3.png")
                  .arg(m_differences, QFileInfo(name).completeBaseName(), role),
              "PNG", fewestBytes);
}
