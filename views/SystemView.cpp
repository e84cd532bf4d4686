// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemView.h"

#include "Console.h"
#include "ConsoleCodes.h"
#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "InPlaceLineEdit.h"
#include "MakeFont.h"
#include "TitleBar.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGraphicsSceneMouseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int columnX[3] = {60, 360, 660};
constexpr int firstMenuY = 50;
constexpr int menuGap = 30;
constexpr qreal titleFontPoints = 13;
constexpr qreal itemFontPoints = 11;
constexpr int editorMaxLength = 6;
constexpr int mscIdMax = 127;
constexpr int midiChannels = 16;

// Erase requests, sub-codes of the system message. 15 (the patch) has no menu line.
constexpr int eraseMemories = 11;
constexpr int eraseSequences = 12;
constexpr int eraseStack = 13;
constexpr int erasePalettes = 14;
constexpr int eraseEverything = 16;

const QColor textColour(255, 255, 255);
const QColor hoverColour(255, 255, 255, 96);

const QString showFolder = QStringLiteral("../Showfiles");

// Where an item draws its parts, in item pixels.
const QRectF itemRect(0, 0, SystemView::menuWidth, SystemView::itemHeight);
const QRectF hoverRect = itemRect.adjusted(2, 1, -2, -1);
const QRectF markRect(10, 5, 10, 10);
const QRectF labelRect(26, 0, SystemView::menuWidth - 30, SystemView::itemHeight);
const QRectF valueRect(110, 0, 62, SystemView::itemHeight);
const QRectF typedLabelRect(markRect.left(), 0, valueRect.left() - markRect.left(),
                            SystemView::itemHeight);
const QRectF versionRect(6, 0, SystemView::menuWidth - 8, SystemView::itemHeight);

QFont itemFont()
{
    return makeFont(QStringLiteral("Gill Sans MT"), itemFontPoints);
}

// Long texts (version lines, some translations) get smaller rather than cut.
QFont fittedFont(const QString& text, qreal width)
{
    constexpr qreal smallestPoints = 7;
    QFont font = itemFont();
    for (qreal points = itemFontPoints - 1;
         points >= smallestPoints && QFontMetricsF(font).horizontalAdvance(text) > width; --points)
        font = makeFont(QStringLiteral("Gill Sans MT"), points);
    return font;
}

QFont titleFont()
{
    return makeFont(QStringLiteral("Gill Sans MT"), titleFontPoints);
}

QGraphicsView* viewOf(const QGraphicsItem* item, const QGraphicsSceneMouseEvent* event)
{
    if (event && event->widget())
        if (auto* view = qobject_cast<QGraphicsView*>(event->widget()->parentWidget()))
            return view;
    if (item->scene() && !item->scene()->views().isEmpty())
        return item->scene()->views().first();
    return nullptr;
}

void reportSettingsChanged()
{
    if (Console* console = ConsoleLink::console())
        console->systemSettingsChanged();
}

void drawCheck(QPainter* painter, const QRectF& box, bool ticked)
{
    painter->setPen(QPen(textColour, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(box);
    if (!ticked)
        return;
    QPainterPath tick;
    tick.moveTo(box.left() + 2, box.center().y());
    tick.lineTo(box.left() + box.width() * 0.42, box.bottom() - 2);
    tick.lineTo(box.right() - 1.5, box.top() + 2);
    painter->setPen(QPen(textColour, 2));
    painter->drawPath(tick);
}

} // namespace

QString SystemView::programVersion()
{
    return QStringLiteral("3.0.2.9.0.43");
}

SystemView::SystemView(QWidget* parent, TitleBar* titleBar, bool /*wide*/)
    : QGraphicsView(parent), m_titleBar(titleBar)
{
    setObjectName(QStringLiteral("SystemView"));
    setScene(&m_scene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    buildScene();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::systemSettingsUpdated, this,
                &SystemView::consoleCacheSystemSettingsUpdated, Qt::QueuedConnection);
        connect(console, &Console::playLoaded, this, &SystemView::consoleCachePlayLoaded,
                Qt::QueuedConnection);
    }
}

SystemView::~SystemView()
{
    // Items hold editors and pointers into the record: go before the scene.
    m_scene.clear();
}

SystemView::Menu* SystemView::addMenu(int column, const QString& title, int itemCount)
{
    auto* menu = new Menu(title + QLatin1Char(':'), itemCount);
    const int y = m_columnBottom[column] == 0 ? firstMenuY : m_columnBottom[column] + menuGap;
    menu->setPos(columnX[column], y);
    m_columnBottom[column] = y + int(menu->boundingRect().height());
    m_scene.addItem(menu);
    m_menus << menu;
    return menu;
}

void SystemView::addValueMenu(int column, const QString& title, const QList<ValueLine>& values)
{
    Menu* menu = addMenu(column, title, int(values.size()));
    for (int i = 0; i < values.size(); ++i)
        new ValueItem(menu, i, values[i].text, values[i].kind, values[i].target);
}

void SystemView::buildScene()
{
    Console* console = ConsoleLink::console();
    const bool maple = ConsoleLink::consoleType() == ConsoleCache::ModelMaple;
    addCommandMenus(maple);
    if (console && console->cache()->record())
        addSettingMenus(console->cache()->record(), maple);
    addVersionMenu(console, maple);
    const int bottom = *std::max_element(std::begin(m_columnBottom), std::end(m_columnBottom));
    m_scene.setSceneRect(0, 0, columnX[2] + PanTiltTable::width + columnX[0], bottom + firstMenuY);
}

void SystemView::addCommandMenus(bool maple)
{
    Menu* file = addMenu(0, tr("File"), 4);
    const QList<QPair<QString, int>> fileItems = {{tr("New"), NewShow},
                                                  {tr("Open"), OpenShow},
                                                  {tr("Save"), SaveShow},
                                                  {tr("Save As"), SaveShowAs}};
    for (int i = 0; i < fileItems.size(); ++i)
        new MenuItem(file, i, fileItems[i].first, fileItems[i].second, true, this);

    QList<QPair<QString, int>> eraseItems = {{tr("Memories"), EraseMemories},
                                             {tr("Sequences"), EraseSequences},
                                             {tr("Stack"), EraseStack}};
    if (maple)
        eraseItems << qMakePair(tr("Palettes"), int(ErasePalettes));
    eraseItems << qMakePair(tr("All"), int(EraseAll));
    Menu* erase = addMenu(0, tr("Erase"), int(eraseItems.size()));
    for (int i = 0; i < eraseItems.size(); ++i)
        new MenuItem(erase, i, eraseItems[i].first, eraseItems[i].second, true, this);
}

void SystemView::addSettingMenus(ConsoleStateRecord* r, bool maple)
{
    addValueMenu(
        0, tr("Crossfader"),
        {{tr("Upwards only"), 0, &r->crossfaderMode}, {tr("Both ways"), 1, &r->crossfaderMode}});
    addValueMenu(1, tr("DMX Output"),
                 {{tr("Maximum"), 3, &r->dmxOutputSpeed},
                  {tr("Fast"), 2, &r->dmxOutputSpeed},
                  {tr("Medium"), 1, &r->dmxOutputSpeed},
                  {tr("Slow"), 0, &r->dmxOutputSpeed}});
    if (!maple) {
        addValueMenu(1, tr("DMX Input"),
                     {{tr("Merge with output"), 0, &r->dmxInputMode},
                      {tr("On fader 01/01"), 1, &r->dmxInputMode}});
        addValueMenu(1, tr("DMX Backup"),
                     {{tr("Bump = Flash"), 0, &r->dmxBackupBump},
                      {tr("Bump = Enable"), 1, &r->dmxBackupBump}});
    }
    const QString colon = QStringLiteral(":");
    addValueMenu(1, tr("MIDI"),
                 {{tr("MIDI channel") + colon, OneTo16, &r->midiChannel},
                  {tr("MIDI (music) on") + colon, Check, &r->midiMusicOn},
                  {tr("MIDI MSC i.d.") + colon, Upto127, &r->midiMscId},
                  {tr("MIDI MSC on") + colon, Check, &r->midiMscOn}});
    QList<ValueLine> times = {{tr("Up fade") + colon, Time, &r->defaultUpFade},
                              {tr("Down fade") + colon, Time, &r->defaultDownFade},
                              {tr("Wait") + colon, Time, &r->defaultWait}};
    if (maple) {
        times << ValueLine{tr("Move Dark") + colon, Time, &r->defaultMoveDark}
              << ValueLine{tr("Palette") + colon, Time, &r->defaultPalette};
    }
    addValueMenu(1, tr("Default times"), times);
    if (maple)
        addMapleMenus(r);
}

// Maple's user mode and its devices' pan and tilt.
void SystemView::addMapleMenus(ConsoleStateRecord* r)
{
    addValueMenu(1, tr("User mode"),
                 {{tr("Full control"), 1, &r->consoleMode},
                  {tr("Control & Playback"), 0, &r->consoleMode},
                  {tr("Playback only"), 2, &r->consoleMode}});
    m_panTilt = new PanTiltTable(r);
    m_panTilt->setPos(columnX[2], firstMenuY);
    m_scene.addItem(m_panTilt);
    m_columnBottom[2] = firstMenuY + PanTiltTable::height;
}

// The version texts are taken once: none of them changes while the program runs.
void SystemView::addVersionMenu(Console* console, bool maple)
{
    QStringList versions = {tr("Lumidesk version") + QLatin1Char(' ') + programVersion()};
    if (console)
        versions << tr("DLL version") + QLatin1Char(' ') + console->engine()->softwareVersion();
    if (console && maple)
        versions << tr("Library version") + QLatin1Char(' ') + console->cache()->libraryVersion();
    Menu* system = addMenu(2, tr("System"), int(versions.size()));
    for (int i = 0; i < versions.size(); ++i)
        new MenuItem(system, i, versions[i], None, false, this);
}

QString SystemView::title()
{
    return tr("System");
}

void SystemView::activate()
{
    show();
    if (m_titleBar)
        m_titleBar->hideViewButtons();
}

QWidget* SystemView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    auto* label = new QLabel(tr("System"), parent);
    label->setGeometry(geometry);
    label->setFont(makeFont(QStringLiteral("Gill Sans MT"), titleFontPoints));
    label->setIndent(6);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(palette);
    return label;
}

void SystemView::consoleCacheSystemSettingsUpdated()
{
    m_scene.update();
}

void SystemView::consoleCachePlayLoaded()
{
    m_scene.update();
}

bool SystemView::confirm(const QString& title, const QString& text)
{
    return QMessageBox::question(this, title, text, QMessageBox::Ok | QMessageBox::Cancel,
                                 QMessageBox::Ok) == QMessageBox::Ok;
}

void SystemView::askThenErase(int subCode, const QString& title, const QString& text)
{
    Console* console = ConsoleLink::console();
    if (console && confirm(title, text))
        console->sendUpdate(ConsoleCode::System, subCode);
}

void SystemView::openShow()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    const QString name = QFileDialog::getOpenFileName(this, tr("Open showfile"), showFolder,
                                                      tr("Show files (*.asc)"));
    if (name.isEmpty())
        return;
    switch (console->engine()->openShow(name)) {
    case 0:
        break;
    case 1:
        QMessageBox::critical(
            this, tr("Open showfile"),
            tr("This show file originates from another type of console and cannot be read!"));
        break;
    default:
        QMessageBox::critical(this, tr("Open showfile"),
                              tr("There was an error reading the show file!"));
        break;
    }
}

void SystemView::saveShowAs()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    QString name = QFileDialog::getSaveFileName(this, tr("Save showfile"), showFolder,
                                                tr("Show files (*.asc)"));
    if (name.isEmpty())
        return;
    // Only .asc files are offered when opening: a name typed without the
    // extension would be saved where nobody finds it again.
    if (QFileInfo(name).suffix().isEmpty())
        name += QStringLiteral(".asc");
    console->engine()->saveShowAs(name);
    // The engine takes the new name only once the file is written; otherwise
    // the show is still unsaved and the user must know.
    if (console->cache()->showFileName() != name)
        QMessageBox::critical(
            this, tr("Save showfile"),
            tr("The show could not be saved to %1!").arg(QDir::toNativeSeparators(name)));
}

void SystemView::runCommand(int id)
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    switch (id) {
    case NewShow:
        if (confirm(tr("New show"), tr("This will erase all data, OK to proceed?")))
            console->engine()->newShow();
        break;
    case OpenShow:
        openShow();
        break;
    case SaveShow:
        if (console->cache()->showFileName().isEmpty())
            saveShowAs();
        else
            console->engine()->saveShow();
        break;
    case SaveShowAs:
        saveShowAs();
        break;
    case EraseMemories:
        askThenErase(eraseMemories, tr("Erase memories"),
                     tr("This will erase all memories, OK to proceed?"));
        break;
    case EraseSequences:
        askThenErase(eraseSequences, tr("Erase sequences"),
                     tr("This will erase all sequences, OK to proceed?"));
        break;
    case EraseStack:
        askThenErase(eraseStack, tr("Erase stack"),
                     tr("This will erase all data in the stack, OK to proceed?"));
        break;
    case ErasePalettes:
        askThenErase(erasePalettes, tr("Erase palettes"),
                     tr("This will erase all palettes, OK to proceed?"));
        break;
    case EraseAll:
        askThenErase(eraseEverything, tr("Erase all"),
                     tr("This will erase all data, OK to proceed?"));
        break;
    default:
        break;
    }
}

// ---- Menu -------------------------------------------------------------------

SystemView::Menu::Menu(const QString& title, int itemCount)
    : m_title(title), m_itemCount(itemCount),
      m_bounds(0, 0, menuWidth, menuTitleHeight + itemHeight * itemCount), m_font(titleFont())
{
}

void SystemView::Menu::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setFont(m_font);
    painter->setPen(textColour);
    painter->drawText(QRectF(5, 0, 170, menuTitleHeight), Qt::AlignLeft | Qt::AlignVCenter,
                      m_title);
}

// ---- MenuItem ---------------------------------------------------------------

SystemView::MenuItem::MenuItem(Menu* menu, int index, const QString& text, int command,
                               bool enabled, SystemView* view)
    : QGraphicsItem(menu), m_text(text), m_command(command), m_enabled(enabled), m_view(view),
      m_font(fittedFont(text, (enabled ? labelRect : versionRect).width()))
{
    setPos(0, menuTitleHeight + itemHeight * index);
    setAcceptHoverEvents(true);
}

QRectF SystemView::MenuItem::boundingRect() const
{
    return itemRect;
}

void SystemView::MenuItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(m_font);
    if (!m_enabled) {
        painter->setPen(textColour);
        painter->drawText(versionRect, Qt::AlignLeft | Qt::AlignVCenter, m_text);
        return;
    }
    if (m_hovered) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(hoverColour);
        painter->drawRoundedRect(hoverRect, 4, 4);
    }
    const QPointF marker[3] = {{12, 6}, {18, 10}, {12, 14}};
    painter->setPen(Qt::NoPen);
    painter->setBrush(textColour);
    painter->drawPolygon(marker, 3);
    painter->setPen(textColour);
    painter->drawText(labelRect, Qt::AlignLeft | Qt::AlignVCenter, m_text);
}

void SystemView::MenuItem::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = true;
    update();
}

void SystemView::MenuItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = false;
    update();
}

void SystemView::MenuItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    if (m_enabled && event->button() == Qt::LeftButton)
        m_view->runCommand(m_command);
}

// ---- ValueItem --------------------------------------------------------------

SystemView::ValueItem::ValueItem(Menu* menu, int index, const QString& text, int kind, void* target)
    : QGraphicsItem(menu), m_text(text), m_kind(kind), m_target(target),
      m_font(fittedFont(text,
                        kind >= Time ? valueRect.left() - versionRect.left() : labelRect.width()))
{
    setPos(0, menuTitleHeight + itemHeight * index);
    setAcceptHoverEvents(true);
}

QRectF SystemView::ValueItem::boundingRect() const
{
    return itemRect;
}

QString SystemView::ValueItem::valueText() const
{
    switch (m_kind) {
    case Time:
        return ConsoleCache::timeText(word());
    case OneTo16:
        return QString::number(byte() + 1);
    case Upto127:
        return QString::number(byte());
    default:
        return {};
    }
}

bool SystemView::ValueItem::store(const QString& typed)
{
    if (m_kind == Time) {
        word() = ConsoleCache::parseTime(typed);
        return true;
    }
    bool ok = false;
    const int number = typed.trimmed().toInt(&ok);
    if (m_kind == OneTo16 && ok && number >= 1 && number <= midiChannels) {
        byte() = quint8(number - 1);
        return true;
    }
    if (m_kind == Upto127 && ok && number >= 0 && number <= mscIdMax) {
        byte() = quint8(number);
        return true;
    }
    return false;
}

void SystemView::ValueItem::paintMark(QPainter* painter) const
{
    if (m_kind == Check) {
        drawCheck(painter, markRect, byte() != 0);
        return;
    }
    painter->setPen(QPen(textColour, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(markRect);
    if (byte() == m_kind) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(textColour);
        painter->drawEllipse(markRect.adjusted(2.5, 2.5, -2.5, -2.5));
    }
}

void SystemView::ValueItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setRenderHint(QPainter::Antialiasing);
    if (m_hovered || m_editing) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(hoverColour);
        painter->drawRoundedRect(hoverRect, 4, 4);
    }
    painter->setFont(m_font);
    const bool typed = m_kind >= Time;
    if (!typed)
        paintMark(painter);
    painter->setPen(textColour);
    painter->drawText(typed ? typedLabelRect : labelRect, Qt::AlignLeft | Qt::AlignVCenter, m_text);
    if (typed && !m_editing)
        painter->drawText(valueRect, Qt::AlignRight | Qt::AlignVCenter, valueText());
}

void SystemView::ValueItem::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = true;
    update();
}

void SystemView::ValueItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = false;
    update();
}

void SystemView::ValueItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton || m_editing)
        return;
    if (m_kind >= Time) {
        openEditor(event);
        return;
    }
    if (isChoice())
        byte() = quint8(m_kind);
    else if (m_kind == Check)
        byte() = byte() == 0 ? 1 : 0;
    update();
    reportSettingsChanged();
}

void SystemView::ValueItem::openEditor(QGraphicsSceneMouseEvent* event)
{
    QGraphicsView* view = viewOf(this, event);
    if (!view)
        return;
    auto* editor = new InPlaceLineEdit(view->viewport(), this, valueText(), editorMaxLength,
                                       float(itemFontPoints), textColour, Qt::AlignRight);
    const QRectF area = mapRectToScene(valueRect);
    editor->setGeometry(QRect(view->mapFromScene(area.topLeft()), area.size().toSize()));
    m_editing = true;
    update();
    editor->showEditor();
}

void SystemView::ValueItem::textCommitted(InPlaceLineEdit*, const QString& text)
{
    if (store(text))
        reportSettingsChanged();
}

void SystemView::ValueItem::editorClosed(InPlaceLineEdit*)
{
    m_editing = false;
    update();
}

// ---- PanTiltTable -----------------------------------------------------------

SystemView::PanTiltTable::PanTiltTable(ConsoleStateRecord* record)
    : m_record(record), m_titleFont(titleFont()), m_font(itemFont()),
      m_heading(SystemView::tr("Pan / Tilt modify")), m_heads{SystemView::tr("Device#"),
                                                              SystemView::tr("Invert Pan"),
                                                              SystemView::tr("Invert Tilt"),
                                                              SystemView::tr("Swap P/T")}
{
}

quint8* SystemView::PanTiltTable::flag(int row, int column) const
{
    if (row < 0 || row >= rows)
        return nullptr;
    switch (column) {
    case 1:
        return &m_record->invertPan[row];
    case 2:
        return &m_record->invertTilt[row];
    case 3:
        return &m_record->swapPanTilt[row];
    default:
        return nullptr;
    }
}

void SystemView::PanTiltTable::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(textColour);
    painter->setFont(m_titleFont);
    painter->drawText(QRectF(5, 0, width - 10, menuTitleHeight), Qt::AlignLeft | Qt::AlignVCenter,
                      m_heading);
    painter->setFont(m_font);
    for (int column = 0; column < columns; ++column)
        painter->drawText(QRectF(column * columnWidth, menuTitleHeight, columnWidth, rowHeight),
                          Qt::AlignCenter, m_heads[column]);
    for (int row = 0; row < rows; ++row) {
        const qreal y = headHeight + row * rowHeight;
        painter->setPen(textColour);
        painter->drawText(QRectF(0, y, columnWidth, rowHeight), Qt::AlignCenter,
                          QString::number(row + 1));
        for (int column = 1; column < columns; ++column) {
            const QRectF box(column * columnWidth + (columnWidth - 10) / 2.0, y + 5, 10, 10);
            drawCheck(painter, box, *flag(row, column) != 0);
        }
    }
}

void SystemView::PanTiltTable::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
    const QPointF at = event->pos();
    if (event->button() != Qt::LeftButton || at.y() <= headHeight)
        return;
    const int column = int(at.x() / columnWidth);
    const int row = int((at.y() - headHeight) / rowHeight);
    if (quint8* target = flag(row, column))
        *target = *target == 0 ? 1 : 0;
    update();
    reportSettingsChanged();
}
