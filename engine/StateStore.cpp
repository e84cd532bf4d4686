// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateStore.h"

#include "ShowFile.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

QString StateStore::path() const
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return base + QStringLiteral("/Lumidesk/Simulated ") + profile_.name() +
           QStringLiteral(".state");
}

bool StateStore::save(const QByteArray& showData, const QString& showFileName) const
{
    const QString file = path();
    QDir().mkpath(QFileInfo(file).absolutePath());
    QString error;
    if (!ShowFile::write(file, ShowFile::encode(int(profile_.model), showData, showFileName),
                         &error)) {
        qWarning("Simulated console: could not keep its state in %s: %s", qPrintable(file),
                 qPrintable(error));
        return false;
    }
    return true;
}

StateStore::Loaded StateStore::load() const
{
    Loaded loaded;
    const QString file = path();
    if (!QFile::exists(file))
        return loaded;
    const ShowFile::Contents contents = ShowFile::read(file, int(profile_.model));
    if (contents.status != ShowFile::Status::Ok) {
        const QString aside = file + QStringLiteral(".damaged");
        QFile::remove(aside);
        QFile::rename(file, aside);
        qWarning("Simulated console: state file %s is unusable, kept as %s", qPrintable(file),
                 qPrintable(aside));
        return loaded;
    }
    loaded.ok = true;
    loaded.showData = contents.showData;
    loaded.showFileName = contents.showFileName;
    return loaded;
}
