// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

class Console;
class Resources;

// What items below the application ask of the running application object,
// which implements it and registers itself with ConsoleLink.
class ApplicationHandler
{
public:
    // The loaded console, or null.
    virtual Console* console() const = 0;
    // Hands over a console loaded elsewhere (tests on an in-process engine).
    virtual void setConsole(Console* console) = 0;
    virtual const Resources& resources() const = 0;
    // The language code in use, the codes offered, and storing a new choice.
    virtual QString language() const = 0;
    virtual QStringList languageCodes() const = 0;
    virtual void setLanguage(const QString& code) = 0;

protected:
    ~ApplicationHandler() = default;
};
