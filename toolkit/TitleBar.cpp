// SPDX-License-Identifier: GPL-3.0-or-later
#include "TitleBar.h"

#include "ApplicationHandler.h"
#include "Console.h"
#include "ConsoleLink.h"
#include "FrontPanelHandler.h"
#include "MakeFont.h"
#include "TitleBarHandler.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QFontMetrics>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QTime>
#include <QUrl>

namespace {
const QString resourceFolder = QStringLiteral(":/Lumidesk/Resources/");
const QString gillSans = QStringLiteral("Gill Sans MT");
// Icon pixels of this colour become transparent.
constexpr QColor iconKey(78, 78, 78);
constexpr QColor onlineColour(206, 194, 81);
constexpr QColor offlineColour(96, 78, 215);
constexpr int itemTop = 3;
constexpr int titleTop = 7;
constexpr int titleLeft = 40;
constexpr int step = 32;
constexpr int gap = 34;

QString currentLanguage()
{
    const ApplicationHandler* app = ConsoleLink::application();
    return app ? app->language() : QStringLiteral("en");
}

QString iconPath(const char* name)
{
    return resourceFolder + QLatin1String(name);
}
} // namespace

// -- Title -------------------------------------------------------------------

TitleBar::Title::Title(const QFont& font) : font(font)
{
    elide();
}

void TitleBar::Title::setText(const QString& text)
{
    title = text;
    elide();
    update();
}

void TitleBar::Title::setMessage(const QString& text)
{
    note = text;
    elide();
    update();
}

void TitleBar::Title::setAvailableWidth(int width)
{
    if (width == available)
        return;
    prepareGeometryChange();
    available = width;
    elide();
}

void TitleBar::Title::elide()
{
    const QString prefix = QStringLiteral("Lumidesk - [");
    const QString suffix = QStringLiteral("]");
    const QFontMetrics metrics(font);
    if (!note.isEmpty()) {
        shown = metrics.elidedText(note, Qt::ElideRight, available);
        return;
    }
    const int room = available - metrics.horizontalAdvance(prefix + suffix);
    shown = prefix + metrics.elidedText(title, Qt::ElideLeft, std::max(room, 0)) + suffix;
}

QRectF TitleBar::Title::boundingRect() const
{
    return QRectF(0, 0, available, QFontMetrics(font).height());
}

void TitleBar::Title::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setPen(Qt::white);
    painter->setFont(font);
    painter->drawText(boundingRect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
}

// -- DMX input indicator -----------------------------------------------------

TitleBar::DMXInputIndicator::DMXInputIndicator()
    : font(makeFont(gillSans, 6)), good(iconPath("TitleBarDMXInputGood.png")),
      bad(iconPath("TitleBarDMXInputBad.png"))
{
}

void TitleBar::DMXInputIndicator::paint(QPainter* painter, const QStyleOptionGraphicsItem*,
                                        QWidget*)
{
    const Console* console = ConsoleLink::console();
    const ConsoleStateRecord* record = console ? console->cache()->record() : nullptr;
    painter->drawPixmap(5, 14, record && record->dmxInputValid ? good : bad);

    // Text this small reads better without antialiasing.
    const bool antialiased = painter->testRenderHint(QPainter::TextAntialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing, false);
    QFont plain = font;
    plain.setStyleStrategy(QFont::NoAntialias);
    painter->setFont(plain);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, 0, 27, 8), Qt::AlignCenter, QStringLiteral("DMX"));
    painter->drawText(QRectF(0, 7, 27, 8), Qt::AlignCenter, QStringLiteral("IN"));
    painter->setRenderHint(QPainter::TextAntialiasing, antialiased);
}

// -- Title bar ---------------------------------------------------------------

QString TitleBar::consoleIcon(int consoleType)
{
    switch (consoleType) {
    case ConsoleCache::ModelAlder:
        return iconPath("TitleBarAlderConsoleButton.png");
    case ConsoleCache::ModelBirch:
        return iconPath("TitleBarBirchConsoleButton.png");
    case ConsoleCache::ModelCedar:
        return iconPath("TitleBarCedarConsoleButton.png");
    default:
        return iconPath("TitleBarMapleConsoleButton.png");
    }
}

TitleBar::TitleBar(QWidget* mainWindow)
    : QGraphicsView(mainWindow), mainWindow(mainWindow), consoleType(ConsoleLink::consoleType()),
      title(makeFont(QStringLiteral("System"), 14, true)),
      captureButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                    iconPath("TitleBarCaptureButton.png"), iconKey),
      consoleButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, true,
                    consoleIcon(consoleType), iconKey),
      languageButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle,
                     currentLanguage()),
      helpButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                 iconPath("TitleBarHelpButton.png"), iconKey),
      smButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
               iconPath("TitleBarSMButton.png"), iconKey),
      msButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
               iconPath("TitleBarMSButton.png"), iconKey),
      ifcbFxButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                   iconPath("TitleBarIFCBFxButton.png"), iconKey),
      timeButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                 iconPath("TitleBarTimeButton.png"), iconKey),
      noLinesButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                    iconPath("TitleBarNoLinesButton.png"), iconKey),
      oneLineButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                    iconPath("TitleBarOneLineButton.png"), iconKey),
      twoLinesButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                     iconPath("TitleBarTwoLinesButton.png"), iconKey),
      threeLinesButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                       iconPath("TitleBarThreeLinesButton.png"), iconKey),
      minimizeButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                     iconPath("TitleBarMinimizeButton.png"), iconKey),
      closeButton(nullptr, &itemScene, this, Button::ButtonStyle::TitleBarStyle, false,
                  iconPath("TitleBarCloseButton.png"), iconKey)
{
    setScene(&itemScene);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setBackgroundBrush(Qt::black);

    logo.setPixmap(QPixmap(iconPath("LumideskLogo.png")));
    for (QGraphicsItem* item :
         {static_cast<QGraphicsItem*>(&logo), static_cast<QGraphicsItem*>(&title),
          static_cast<QGraphicsItem*>(&clock), static_cast<QGraphicsItem*>(&onlineText),
          static_cast<QGraphicsItem*>(&dmxInputIndicator)})
        itemScene.addItem(item);

    clock.setFont(makeFont(gillSans, 12));
    clock.setDefaultTextColor(Qt::white);
    onlineText.setFont(makeFont(gillSans, 12));

    connect(&refreshTimer, &QTimer::timeout, this, &TitleBar::refreshCaptureButton);
    connect(&refreshTimer, &QTimer::timeout, this, &TitleBar::refreshClock);
    refreshTimer.start(1000);
    messageTimer.setSingleShot(true);
    connect(&messageTimer, &QTimer::timeout, this, [this] { title.setMessage(QString()); });
    refreshClock();

    captureButton.setVisible(visualiserFinder.find());
    setOnline(false);
    setSmMsButtonsVisible(false);
    setLineButtonRange(-1, -1);
    // Only the Maple has a cue list with IFCB flags and times, and no DMX
    // input; its views decide about the two buttons.
    const bool maple = consoleType == ConsoleCache::ModelMaple;
    dmxInputIndicator.setVisible(!maple);
    ifcbFxButton.setVisible(maple);
    timeButton.setVisible(maple);
}

TitleBar::~TitleBar() = default;

QGraphicsItem* TitleBar::item(Item which)
{
    switch (which) {
    case Item::Logo:
        return &logo;
    case Item::Title:
        return &title;
    case Item::Clock:
        return &clock;
    case Item::Capture:
        return &captureButton;
    case Item::Console:
        return &consoleButton;
    case Item::Online:
        return &onlineText;
    case Item::DmxInput:
        return &dmxInputIndicator;
    case Item::Language:
        return &languageButton;
    case Item::Help:
        return &helpButton;
    case Item::Sm:
        return &smButton;
    case Item::Ms:
        return &msButton;
    case Item::IfcbFx:
        return &ifcbFxButton;
    case Item::Time:
        return &timeButton;
    case Item::NoLines:
        return &noLinesButton;
    case Item::OneLine:
        return &oneLineButton;
    case Item::TwoLines:
        return &twoLinesButton;
    case Item::ThreeLines:
        return &threeLinesButton;
    case Item::Minimize:
        return &minimizeButton;
    case Item::Close:
        return &closeButton;
    }
    return nullptr;
}

void TitleBar::setTitle(const QString& text)
{
    title.setText(text);
}

void TitleBar::showMessage(const QString& text, int milliseconds)
{
    title.setMessage(text);
    messageTimer.start(milliseconds);
}

void TitleBar::setOnline(bool online)
{
    // These two words are the console's own and stay untranslated.
    onlineText.setPlainText(online ? QStringLiteral("Online") : QStringLiteral("Offline"));
    onlineText.setDefaultTextColor(online ? onlineColour : offlineColour);
}

void TitleBar::setSmMsButtonsVisible(bool visible)
{
    smButton.setVisible(visible);
    msButton.setVisible(visible);
}

void TitleBar::setIfcbFxTimeButtonsVisible(bool visible)
{
    if (consoleType != ConsoleCache::ModelMaple)
        return;
    ifcbFxButton.setVisible(visible);
    timeButton.setVisible(visible);
}

void TitleBar::hideViewButtons()
{
    setSmMsButtonsVisible(false);
    setIfcbFxTimeButtonsVisible(false);
    setLineButtonRange(-1, -1);
}

void TitleBar::setLineButtonRange(int min, int max)
{
    Button* const buttons[] = {&noLinesButton, &oneLineButton, &twoLinesButton, &threeLinesButton};
    for (int lines = 0; lines < 4; ++lines)
        buttons[lines]->setVisible(min <= lines && lines <= max);
}

void TitleBar::refreshCaptureButton()
{
    captureButton.setVisible(visualiserFinder.find());
}

void TitleBar::refreshClock()
{
    clock.setPlainText(QTime::currentTime().toString(QStringLiteral("hh:mm")));
    if (consoleType != ConsoleCache::ModelMaple)
        dmxInputIndicator.update();
}

void TitleBar::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    layoutItems();
}

void TitleBar::layoutItems()
{
    int x = width();
    const auto place = [&x](QGraphicsItem& item, int distance) {
        x -= distance;
        item.setPos(x, itemTop);
    };
    const auto buttonStep = [](const Button& button) {
        return int(button.boundingRect().width()) + 5;
    };

    place(closeButton, step);
    place(minimizeButton, step);
    x -= gap;
    place(threeLinesButton, step);
    place(twoLinesButton, step);
    place(oneLineButton, step);
    place(noLinesButton, step);
    x -= gap;
    if (consoleType == ConsoleCache::ModelMaple) {
        place(ifcbFxButton, buttonStep(ifcbFxButton));
        place(timeButton, buttonStep(timeButton));
        x -= gap;
    } else {
        ifcbFxButton.hide();
        timeButton.hide();
    }
    place(msButton, step);
    place(smButton, step);
    x -= gap;
    place(helpButton, step);
    place(languageButton, step);
    if (consoleType != ConsoleCache::ModelMaple)
        place(dmxInputIndicator, step);
    else
        dmxInputIndicator.hide();
    x -= gap;
    place(onlineText, 55);
    place(consoleButton, buttonStep(consoleButton));
    place(captureButton, step);
    place(clock, 65);
    title.setPos(titleLeft, titleTop);
    title.setAvailableWidth(x - gap - titleLeft);
    logo.setPos(0, 0);
    setSceneRect(0, 0, width(), viewport()->height());
}

void TitleBar::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->globalPosition().toPoint();
    if (mainWindow && !mainWindow->isMaximized() && (event->buttons() & Qt::LeftButton))
        mainWindow->move(mainWindow->pos() + (position - lastMousePosition));
    lastMousePosition = position;
}

void TitleBar::buttonClicked(Button* button)
{
    if (button == &captureButton)
        captureClicked();
    else if (button == &consoleButton)
        consoleClicked();
    else if (button == &languageButton)
        languageClicked();
    else if (button == &helpButton)
        helpClicked();
    else if (button == &minimizeButton)
        emit minimizeButtonClicked();
    else if (button == &closeButton)
        emit closeButtonClicked();
    else if (!handler)
        return;
    else if (button == &smButton || button == &msButton)
        handler->setMsMode(button == &msButton);
    else if (button == &ifcbFxButton || button == &timeButton)
        handler->setTimeMode(button == &timeButton);
    else if (button == &noLinesButton)
        handler->setLineCount(0);
    else if (button == &oneLineButton)
        handler->setLineCount(1);
    else if (button == &twoLinesButton)
        handler->setLineCount(2);
    else if (button == &threeLinesButton)
        handler->setLineCount(3);
}

void TitleBar::captureClicked()
{
    if (!mainWindow)
        return;
    QRect area = mainWindow->frameGeometry();
    area.setTop(area.top() + frameGeometry().height());
    if (const auto* frame = dynamic_cast<FrontPanelHandler*>(mainWindow))
        area.setBottom(area.bottom() - frame->frontPanelHeight());
    visualiserFinder.toggle(area);
}

void TitleBar::consoleClicked()
{
    if (auto* frame = dynamic_cast<FrontPanelHandler*>(mainWindow))
        frame->setFrontPanelVisible(consoleButton.isDown());
}

void TitleBar::languageClicked()
{
    ApplicationHandler* app = ConsoleLink::application();
    if (!app)
        return;
    const QString current = app->language();
    QMenu menu(this);
    for (const QString& code : app->languageCodes()) {
        QAction* action = menu.addAction(code);
        action->setData(code);
        if (code == current) {
            action->setCheckable(true);
            action->setChecked(true);
        }
    }
    const QAction* chosen = menu.exec(QCursor::pos());
    if (!chosen)
        return;
    const QString code = chosen->data().toString();
    if (code == current)
        return;
    app->setLanguage(code);
    QMessageBox::information(
        mainWindow, tr("Change language"),
        tr("You must restart Lumidesk in order for the language change to take effect!"),
        QMessageBox::Ok);
}

QString TitleBar::documentationFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../Documentation"));
}

void TitleBar::helpClicked()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(documentationFolder()));
}
