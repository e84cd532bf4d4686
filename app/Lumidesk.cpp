// SPDX-License-Identifier: GPL-3.0-or-later
#include "Lumidesk.h"

#include "MakeFont.h"

#include <QSettings>

Lumidesk* Lumidesk::s_instance = nullptr;

namespace {
const QString languageKey = QStringLiteral("Language");
}

Lumidesk::Lumidesk(int& argc, char** argv)
    : QApplication(argc, argv), m_language(QStringLiteral("en"))
{
    s_instance = this;
    setOrganizationName(QStringLiteral("Orvex"));
    setApplicationName(QStringLiteral("Lumidesk"));
    loadTranslation();
    installApplicationFonts();
}

Lumidesk::~Lumidesk()
{
    s_instance = nullptr;
}

QStringList Lumidesk::languages()
{
    return {QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("de"), QStringLiteral("es"),
            QStringLiteral("it")};
}

void Lumidesk::setLanguage(const QString& code)
{
    QSettings().setValue(languageKey, code);
    m_language = code;
}

void Lumidesk::loadTranslation()
{
    const QString code = QSettings().value(languageKey, QStringLiteral("en")).toString();
    if (code != QLatin1String("en")) {
        // A catalogue next to the program wins over the compiled-in one.
        const QString file = QStringLiteral("lumidesk_") + code + QStringLiteral(".qm");
        if (m_translator.load(file, applicationDirPath()) ||
            m_translator.load(Resources::folder() + file))
            m_language = code;
    }
    installTranslator(&m_translator);
}
