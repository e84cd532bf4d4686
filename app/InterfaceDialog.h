// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "HidDeviceInfo.h"

#include <QDialog>
#include <QList>
#include <QString>

#include <functional>

class QFrame;
class QLabel;
class QPushButton;

// Asks which console model to run, unless a console on USB answers that
// question first.
class InterfaceDialog : public QDialog
{
    Q_OBJECT

public:
    using Scanner = std::function<QList<HidDeviceInfo>()>;

    // The scanner finds the connected HID devices (scanHidDevices by default).
    explicit InterfaceDialog(QWidget* parent = nullptr, Scanner scanner = {});

    QString libraryName() const { return m_libraryName; }
    int modelVariant() const { return m_modelVariant; }

    // Accepted at once, without showing anything, when a console is on USB;
    // otherwise the ordinary modal dialog.
    int exec() override;

private slots:
    void on_glowcraftAlderPushButton_clicked(bool checked);
    void on_glowcraftBirchPushButton_clicked(bool checked);
    void on_glowcraftCedarPushButton_clicked(bool checked);
    void on_glowcraftMaplePushButton_clicked(bool checked);

private:
    QPushButton* addConsoleButton(const QString& objectName, const QString& iconFile,
                                  const QString& model);
    void retranslateUi();
    void choose(const QString& libraryName, int modelVariant);

    Scanner m_scanner;
    QString m_libraryName;
    int m_modelVariant = 0;
    QList<QPushButton*> m_buttons;
    QLabel* m_heading = nullptr;
    QLabel* m_information = nullptr;
    QFrame* m_line = nullptr;
};
