#pragma once

#include <QString>
#include <QStringList>

namespace simulator
{

/// The archive of a bug report: the unit's folder as the programs tar and xz pack it, without
/// holes, links and what passes with the program, and the folder "report" with what there is to say
/// of it.
namespace reportarchive
{

/// Name of that folder, and of the file in it that every report has, with its first line.
extern const QLatin1String reportFolder;
extern const QLatin1String versionsFile;
extern const QLatin1String head;

/// Packs \a unitFolder without these \a passing files, and \a extraFolder in which there is the
/// folder "report", into \a file, which must not exist. False with a sentence in \a error, and then
/// there is no file.
bool pack(const QString &unitFolder, const QStringList &passing, const QString &extraFolder,
          const QString &file, QString *error);

/// Unpacks such a file into \a unitFolder, which must be empty or missing. False with a sentence in
/// \a error, and then the folder is as it was.
bool unpack(const QString &file, const QString &unitFolder, QString *error);

} // namespace reportarchive

} // namespace simulator
