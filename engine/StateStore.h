// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ModelProfile.h"

#include <QString>

// Where the simulated console keeps its memory between runs: one state file
// per model, "Lumidesk/Simulated <Model>.state" in the user's data folder,
// in the show file format with the show file name added.
class StateStore
{
public:
    explicit StateStore(const ModelProfile& profile) : profile_(profile) {}

    QString path() const;
    bool save(const QByteArray& showData, const QString& showFileName) const;

    struct Loaded
    {
        bool ok = false;
        QByteArray showData;
        QString showFileName;
    };
    // A state file that cannot be used is moved aside (".damaged") rather
    // than overwritten later, so nothing the user had is destroyed.
    Loaded load() const;

private:
    ModelProfile profile_;
};
