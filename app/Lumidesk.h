// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Resources.h"

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QTranslator>

class Console;

// The application object: owns the console and the shared image set, and
// runs the program from the console choice to the teardown.
class Lumidesk : public QApplication
{
    Q_OBJECT

public:
    Lumidesk(int& argc, char** argv);
    ~Lumidesk() override;

    // The one application object, or null outside its lifetime.
    static Lumidesk* instance() { return s_instance; }

    Console* console() const { return m_console; }
    const Resources& resources() const { return m_resources; }

    // The language code in use ("en" unless a catalogue was loaded at start).
    QString language() const { return m_language; }
    // The languages the program is translated into, English first.
    static QStringList languages();
    // Stores the choice; it takes effect at the next start.
    void setLanguage(const QString& code);

private:
    void loadTranslation();

    static Lumidesk* s_instance;

    Console* m_console = nullptr;
    Resources m_resources;
    QString m_language;
    QTranslator m_translator;
};
