// SPDX-License-Identifier: GPL-3.0-or-later
#include "Lumidesk.h"

#include "CITPAgent.h"
#include "Console.h"
#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "InterfaceDialog.h"
#include "MainWindowFactory.h"
#include "MakeFont.h"
#include "ShowStarter.h"
#if LUMIDESK_HAVE_OLA
#include "OlaOutput.h"
#endif

#include <QMessageBox>
#include <QPointer>
#include <QSettings>

Lumidesk* Lumidesk::s_instance = nullptr;

namespace {
const QString languageKey = QStringLiteral("Language");
const QString olaOutputKey = QStringLiteral("OlaOutput");
const QString olaUniverseKey = QStringLiteral("OlaUniverse");
} // namespace

Lumidesk::Lumidesk(int& argc, char** argv)
    : QApplication(argc, argv), m_deviceNotification([this] { consoleRemoved(); }),
      m_language(QStringLiteral("en"))
{
    s_instance = this;
    ConsoleLink::setApplication(this);
    setOrganizationName(QStringLiteral("Orvex"));
    setApplicationName(QStringLiteral("Lumidesk"));
    setDesktopFileName(QStringLiteral(LUMIDESK_APP_ID));
    loadTranslation();
    Console::registerMetaTypes();
    installApplicationFonts();
}

Lumidesk::~Lumidesk()
{
    ConsoleLink::setApplication(nullptr);
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

int Lumidesk::run(const std::optional<ConsoleChoice>& preset)
{
    ConsoleChoice choice;
    if (preset) {
        choice = *preset;
    } else {
        InterfaceDialog dialog;
        if (dialog.exec() != QDialog::Accepted)
            return 0;
        choice = {dialog.libraryName(), dialog.modelVariant()};
    }

    Console::LoadError error = Console::LoadFailed;
    m_console = Console::load(choice.libraryName, choice.modelVariant, &error, m_language);
    if (!m_console) {
        showLoadError(error);
        return 0;
    }

    // Visualisers are optional: without the network ports the console still runs.
    if (!CITPAgent::start(m_console))
        qDebug("CITP agent not started: running without visualisers");
    startOlaOutput();

    QPointer<QWidget> window = MainWindowFactory::create();
    registerDeviceNotification(window, consoleInterfaceClass());
    const QMetaObject::Connection quitOnClose =
        connect(this, &QGuiApplication::lastWindowClosed, this, &QCoreApplication::quit);
    MainWindowFactory::show(window);
    if (m_playOnStart)
        (new ShowStarter(m_console, window))->start();
    const int result = exec();
    disconnect(quitOnClose);

    // The console outlives every view: the window goes first, the engine last.
    delete window;
    unregisterDeviceNotification();
    CITPAgent::stop();
#if LUMIDESK_HAVE_OLA
    delete m_olaOutput;
    m_olaOutput = nullptr;
#endif
    m_console->unload();
    m_console = nullptr;
    return result;
}

void Lumidesk::setOlaUniverse(int firstUniverse)
{
    QSettings settings;
    settings.setValue(olaOutputKey, firstUniverse >= 0);
    if (firstUniverse >= 0)
        settings.setValue(olaUniverseKey, firstUniverse);
}

void Lumidesk::startOlaOutput()
{
    const QSettings settings;
    if (!settings.value(olaOutputKey, false).toBool())
        return;
    const int firstUniverse = settings.value(olaUniverseKey, 1).toInt();
#if LUMIDESK_HAVE_OLA
    m_olaOutput = new OlaOutput(m_console, firstUniverse);
#else
    qWarning("OLA: this Lumidesk was built without OLA; no DMX output to OLA universe %d",
             firstUniverse);
#endif
}

void Lumidesk::showLoadError(int error)
{
    if (error == Console::VersionMismatch) {
        QMessageBox::critical(nullptr, tr("Connection error"),
                              tr("The console software version does not match the Lumidesk "
                                 "software version.\nPlease update one or both sides to a "
                                 "matching version."),
                              QMessageBox::Ok);
    } else {
        QMessageBox::critical(nullptr, tr("Critical error"),
                              tr("Lumidesk failed to load the console selected!"), QMessageBox::Ok);
    }
}

bool Lumidesk::registerDeviceNotification(QWidget* window, const QString& classGuid)
{
    const quintptr handle = window ? static_cast<quintptr>(window->winId()) : 0;
    return m_deviceNotification.registerDeviceNotification(handle, classGuid);
}

void Lumidesk::unregisterDeviceNotification()
{
    m_deviceNotification.unregisterDeviceNotification();
}

void Lumidesk::consoleRemoved()
{
    if (m_console && m_console->engine())
        m_console->engine()->usbDeviceRemoved();
}
