// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <optional>

class MainFrame;
class Console;
class QImage;

// Takes the manual's pictures: the real main window on a simulated console
// with its demo show playing, one PNG per tab and one of the front panel,
// named <model>-<picture>.png. Needs the application object (Lumidesk).
class ManualPictures
{
public:
    // A model and which of its pictures to take (all when empty).
    struct Request
    {
        QString model;
        QStringList pictures;
    };

    ManualPictures(const QString& outputFolder, const QString& readmeFolder);

    // "maple" or "cedar:playback,pages"; nothing for a model Lumidesk lacks
    // or a picture it cannot take.
    static std::optional<Request> parseRequest(const QString& text);
    // The picture names of a tab kind ("playback", "live", ...), or empty.
    static QString pictureName(int tabKind);
    static QString frontPanelName() { return QStringLiteral("frontpanel"); }

    // Takes the pictures of one model; false with a reason on failure.
    bool take(const Request& request, QString* error);
    QStringList written() const { return files; }

private:
    bool save(const QImage& image, const QString& model, const QString& picture, QString* error);
    void playDemoShow(Console* console);

    QDir out;
    QString readme;
    QStringList files;
};
