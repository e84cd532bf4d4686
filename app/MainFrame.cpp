// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainFrame.h"

#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "ShowItemHandler.h"
#include "Tab.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPalette>
#include <QPixmap>
#include <QScreen>

#include <algorithm>

namespace {
constexpr int busyQueueLength = 10;
constexpr int versionCheckDelay = 10;
constexpr int wideScreenWidth = 1250;
// The console's mode byte while it runs normally (it refuses a link otherwise).
constexpr quint8 normalMode = 1;

} // namespace

MainFrame::MainFrame(QWidget* parent, const TabRegistry& views)
    : QWidget(parent), bar(this), strip(this), panel(this), undoKey(this), redoKey(this)
{
    setWindowTitle(QStringLiteral("Lumidesk"));
    connect(&bar, &TitleBar::minimizeButtonClicked, this,
            &MainFrame::titleBarMinimizeButtonClicked);
    connect(&bar, &TitleBar::closeButtonClicked, this, &MainFrame::titleBarCloseButtonClicked);

    QPalette background = palette();
    background.setBrush(backgroundRole(),
                        QBrush(QPixmap(QStringLiteral(":/Lumidesk/Resources/BrittishGrain.png"))));
    setPalette(background);
    setAutoFillBackground(true);

    buildTabs(ConsoleLink::consoleType(), views);
    if (Tab* first = strip.tab(0))
        first->activate();
    panel.raise();

    connectConsole();
    installEditKeys();
    connect(&versionCheckTimer, &QTimer::timeout, this,
            &MainFrame::consoleCacheConsoleVersionUpdated, Qt::QueuedConnection);
    versionCheckTimer.setSingleShot(true);
    versionCheckTimer.start(versionCheckDelay);

    const Console* console = ConsoleLink::console();
    bar.setOnline(console && console->consoleStatus() != 0);
    if (console)
        bar.setTitle(console->cache()->showFileName());
}

MainFrame::~MainFrame()
{
    // The views go first, last built first, while the title bar they were
    // built with still exists.
    for (int i = strip.count() - 1; i >= 0; --i)
        delete strip.tab(i)->widget();
}

QList<int> MainFrame::tabOrder(int consoleType)
{
    switch (consoleType) {
    case ConsoleCache::ModelAlder:
    case ConsoleCache::ModelBirch:
        return {LegendsTab, PagesTab, MemoriesTab, SequencesTab, PatchTab, DmxTab, SystemTab};
    case ConsoleCache::ModelCedar:
        return {LegendsTab,   PagesTab, SecondPagesTab, MemoriesTab,
                SequencesTab, PatchTab, DmxTab,         SystemTab};
    case ConsoleCache::ModelMaple:
        return {LegendsTab, OutputTab,   PagesTab, MemoriesTab, SequencesTab, EffectsTab,
                GroupsTab,  PalettesTab, PatchTab, DmxTab,      SystemTab};
    default:
        return {};
    }
}

void MainFrame::buildTabs(int consoleType, const TabRegistry& views)
{
    tabKinds.fill(NoTab);
    const bool wide = wideScreen();
    // A kind whose view is not written yet leaves no gap in the strip.
    for (int kind : tabOrder(consoleType))
        addTab(kind, views.create(kind, this, &bar, wide));
}

void MainFrame::addTab(int kind, Tab* tab)
{
    const int index = strip.count();
    if (!tab || index >= maxTabs)
        return;
    tabKinds[std::size_t(index)] = kind;
    strip.addTab(tab);
    if (QWidget* view = tab->widget()) {
        view->setGeometry(contentRect(width(), height()));
        panel.raise();
    }
}

int MainFrame::tabIndexOfKind(int kind) const
{
    const auto found = std::find(tabKinds.begin(), tabKinds.end(), kind);
    if (kind == NoTab || found == tabKinds.end())
        return -1;
    return int(found - tabKinds.begin());
}

int MainFrame::tabKind(int index) const
{
    return index >= 0 && index < maxTabs ? tabKinds[std::size_t(index)] : NoTab;
}

void MainFrame::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &MainFrame::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::playFileNameUpdated, this,
            &MainFrame::consoleCachePlayFileNameUpdated, Qt::QueuedConnection);
    connect(console, &Console::lumideskCommand, this, &MainFrame::consoleCacheLumideskCommand,
            Qt::QueuedConnection);
    connect(console, &Console::systemBusyCommand, this, &MainFrame::consoleCacheSystemBusyCommand,
            Qt::QueuedConnection);
    connect(console, &Console::consoleVersionUpdated, this,
            &MainFrame::consoleCacheConsoleVersionUpdated, Qt::QueuedConnection);
    connect(console, &Console::consoleStatusUpdated, this,
            &MainFrame::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
}

void MainFrame::installEditKeys()
{
    undoKey.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    redoKey.setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    for (QAction* key : {&undoKey, &redoKey}) {
        key->setShortcutContext(Qt::WindowShortcut);
        addAction(key);
    }
    connect(&undoKey, &QAction::triggered, this, [this] { undoOrRedo(true); });
    connect(&redoKey, &QAction::triggered, this, [this] { undoOrRedo(false); });
    if (Console* console = ConsoleLink::console())
        connect(console->journal(), &EditJournal::refused, this,
                [this](const QString& text) { bar.showMessage(text); });
}

void MainFrame::undoOrRedo(bool undo)
{
    // An open in-place editor keeps the keys for its own text.
    if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
        if (undo)
            editor->undo();
        else
            editor->redo();
        return;
    }
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    if (undo)
        console->journal()->undo();
    else
        console->journal()->redo();
}

QRect MainFrame::contentRect(int width, int height)
{
    const int left = std::max((width - contentWidth) / 2, 0);
    return QRect(left, contentTop, std::min(width, contentWidth), height - contentTop);
}

bool MainFrame::fitsFixedSize(const QRect& availableArea)
{
    return availableArea.width() >= fixedSize.width() &&
           availableArea.height() > fixedSize.height();
}

bool MainFrame::wideScreen()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen && screen->geometry().width() >= wideScreenWidth;
}

void MainFrame::showPlaced()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect();
    if (!fitsFixedSize(area)) {
        // Sized first as well, for desktops without a window manager that
        // would carry out the full-screen request.
        if (screen)
            setGeometry(screen->geometry());
        showFullScreen();
        return;
    }
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    move(area.topLeft());
    resize(fixedSize);
    show();
}

void MainFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int w = width();
    const int h = height();
    bar.setGeometry(0, 0, w, titleBarHeight);
    // The strip's first row is the title bar's last one.
    strip.setGeometry(0, tabStripTop, w, tabStripHeight);
    const QRect content = contentRect(w, h);
    for (int i = 0; i < strip.count(); ++i) {
        if (QWidget* view = strip.tab(i)->widget())
            view->setGeometry(content);
    }
    panel.move((w - panel.width()) / 2, h - panel.height());
}

void MainFrame::setFrontPanelVisible(bool visible)
{
    panel.setVisible(visible);
    // The panel may have hidden part of the view, which repaints only when
    // shown again.
    if (!visible)
        strip.refreshCurrentTab();
}

Tab* MainFrame::selectTabOfKind(int kind)
{
    const int index = tabIndexOfKind(kind);
    strip.setCurrentTab(index);
    return strip.tab(index);
}

void MainFrame::showSequence(Console::Sequence sequence)
{
    if (auto* view = dynamic_cast<ShowItemHandler*>(selectTabOfKind(SequencesTab)))
        view->showSequence(sequence);
}

void MainFrame::showMemory(int page, int memory)
{
    if (auto* view = dynamic_cast<ShowItemHandler*>(selectTabOfKind(MemoriesTab)))
        view->showMemory(page, memory);
}

int MainFrame::pageOnFader(int fader) const
{
    const Console* console = ConsoleLink::console();
    if (!console || fader < 0 || fader >= ConsoleStateRecord::maxFaders)
        return -1;
    return console->cache()->faderPage(fader);
}

void MainFrame::titleBarMinimizeButtonClicked()
{
    showMinimized();
}

void MainFrame::titleBarCloseButtonClicked()
{
    close();
}

void MainFrame::consoleCachePlayLoaded()
{
    if (const Console* console = ConsoleLink::console())
        bar.setTitle(console->cache()->showFileName());
}

void MainFrame::consoleCachePlayFileNameUpdated()
{
    consoleCachePlayLoaded();
}

void MainFrame::consoleCacheLumideskCommand(int type, int argument)
{
    switch (type) {
    case 0:
        // The console's view key toggles between the playback and live views.
        selectTabOfKind(strip.currentIndex() != 0 ? LegendsTab : OutputTab);
        break;
    case 1:
        selectTabOfKind(GroupsTab);
        break;
    case 2:
        selectTabOfKind(PalettesTab);
        break;
    case 3:
        showSequence(Console::Sequence::makeStack());
        break;
    case 4:
        showSequence(Console::Sequence(pageOnFader(argument), argument - 12));
        break;
    case 5:
        showMemory(pageOnFader(argument), argument);
        break;
    case 6:
        selectTabOfKind(PagesTab);
        break;
    default:
        break;
    }
}

void MainFrame::consoleCacheSystemBusyCommand(int queueLength)
{
    const bool nowBusy = queueLength > busyQueueLength;
    if (nowBusy == busy)
        return;
    busy = nowBusy;
    const QCursor cursor(busy ? Qt::WaitCursor : Qt::ArrowCursor);
    if (QGuiApplication::overrideCursor())
        QGuiApplication::changeOverrideCursor(cursor);
    else
        QGuiApplication::setOverrideCursor(cursor);
}

void MainFrame::consoleCacheConsoleVersionUpdated()
{
    Console* console = ConsoleLink::console();
    if (!console || closeConfirmed)
        return;
    if (console->isVersionKnown() &&
        console->cache()->consoleVersion() != console->engine()->softwareVersion()) {
        closeAfterFatalMessage(
            tr("The console software version does not match the Lumidesk software version.\n"
               "Please update one or both sides to a matching version."));
    }
    const ConsoleStateRecord* record = console->cache()->record();
    if (console->consoleType() != ConsoleCache::ModelMaple && record &&
        record->consoleMode != normalMode) {
        closeAfterFatalMessage(tr("The Glowcraft console must be running in Normal mode in "
                                  "order to connect to Lumidesk."));
    }
}

void MainFrame::closeAfterFatalMessage(const QString& text)
{
    QMessageBox::critical(this, tr("Connection error"), text, QMessageBox::Ok);
    closeConfirmed = true;
    close();
}

void MainFrame::consoleCacheConsoleStatusUpdated()
{
    if (const Console* console = ConsoleLink::console())
        bar.setOnline(console->consoleStatus() != 0);
}

void MainFrame::closeEvent(QCloseEvent* event)
{
    if (closeConfirmed || askToSave())
        event->accept();
    else
        event->ignore();
}

bool MainFrame::askToSave()
{
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, tr("Exit Lumidesk"), tr("Would you like to save your data first?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer == QMessageBox::No)
        return true;
    if (answer != QMessageBox::Yes)
        return false;
    Console* console = ConsoleLink::console();
    if (!console)
        return true;
    if (!console->cache()->showFileName().isEmpty()) {
        console->engine()->saveShow();
        return true;
    }
    QString name = QFileDialog::getSaveFileName(
        this, tr("Save showfile"), QStringLiteral("../Showfiles"), tr("Show files (*.asc)"));
    if (name.isEmpty())
        return false;
    // The open dialogs list only .asc files: a name typed without it would
    // be saved where nobody finds it again.
    if (QFileInfo(name).suffix().isEmpty())
        name += QStringLiteral(".asc");
    console->engine()->saveShowAs(name);
    return true;
}
