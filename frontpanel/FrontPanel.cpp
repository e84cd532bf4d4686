// SPDX-License-Identifier: GPL-3.0-or-later
#include "FrontPanel.h"

#include "Console.h"
#include "ConsoleButton.h"
#include "ConsoleFader.h"
#include "ConsoleLink.h"
#include "ConsoleWheel.h"
#include "FaderBlock.h"
#include "MakeFont.h"
#include "SelectBlock.h"

#include <algorithm>

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSet>
#include <QTextStream>

namespace {
const QString resourceFolder = QStringLiteral(":/Lumidesk/Resources/");

// Field counts of each keyword, the keyword included.
constexpr int buttonFields = 9;
constexpr int gridFields = 8;
constexpr int faderBlockFields = 5;
constexpr int selectBlockFields = 3;

// Offsets from the file's coordinates to the items' positions.
constexpr int buttonShift = -2;
constexpr int faderShift = -5;
constexpr QPoint faderBlockShift(-5, -17);

// Front-panel fader blocks: fader length, spacing, gap, key offset.
constexpr int blockFaderLength = 96;
constexpr int blockSpacing = 2;
constexpr int blockGap = 13;
constexpr int blockButtonOffset = 3;
// The select block's column width and the gap between its key rows.
constexpr int selectColumnWidth = 40;
constexpr int selectGap = 54;

// Faders from this number on have the long travel of the masters.
constexpr int firstMasterFader = 48;
constexpr int masterTravel = 127;
constexpr int faderTravel = 110;

int number(const QString& field)
{
    return field.toInt(); // anything that is not a number counts as 0
}

QStringList listOf(const QString& field)
{
    return field.split(QLatin1Char(','), Qt::KeepEmptyParts);
}

bool startsOnPanel(const QRectF& panel, qint64 x, qint64 y)
{
    return x >= panel.left() && x < panel.right() && y >= panel.top() && y < panel.bottom();
}

// The x, y, columns, rows, column step, row step and item list of a line.
// Places are worked out in 64 bits: a file's numbers may be anything.
struct Grid
{
    int x;
    int y;
    int columns;
    int rows;
    int columnStep;
    int rowStep;
    QStringList items;

    explicit Grid(const QStringList& fields)
        : x(number(fields[1])), y(number(fields[2])), columns(number(fields[3])),
          rows(number(fields[4])), columnStep(number(fields[5])), rowStep(number(fields[6])),
          items(listOf(fields[7]))
    {
    }
    bool countsMatch() const { return items.size() == qint64(columns) * rows; }
    // Fader, wheel and display lines are single rows.
    bool isSingleRow() const { return countsMatch() && rows == 1 && columns >= 1; }
    // Whether items 0 to count - 1, from (x, y) + shift on by step, all start
    // on the panel; then every place fits an int.
    bool startsOnPanel(const QRectF& panel, QPoint shift, QPoint step) const
    {
        const qint64 last = qint64(items.size()) - 1;
        for (const qint64 i : {qint64(0), last}) {
            if (!::startsOnPanel(panel, qint64(x) + shift.x() + i * step.x(),
                                 qint64(y) + shift.y() + i * step.y()))
                return false;
        }
        return true;
    }
    QPoint item(int i, QPoint shift, QPoint step) const { return QPoint(x, y) + shift + i * step; }
};

// A control is on the panel when its middle is: it can be seen and reached.
bool onPanel(const QGraphicsItem* item, const QRectF& panel)
{
    const QRectF extent =
        item->sceneBoundingRect() | item->mapRectToScene(item->childrenBoundingRect());
    return panel.contains(extent.center());
}
} // namespace

// -- Display -----------------------------------------------------------------

FrontPanel::Display::Display(QGraphicsScene* scene)
{
    if (scene)
        scene->addItem(this);
}

QString FrontPanel::Display::substituted(QString text)
{
    static const std::pair<char16_t, char16_t> map[] = {
        {0x03, u'ç'}, {0x07, u'ñ'}, {0x10, u'a'}, {0x11, u'A'}, {0x1A, u'e'},
        {0x1B, u'E'}, {0xEE, u'ñ'}, {0x1D, u'o'}, {0x1C, u'u'}, {0xF5, u'ü'},
        {0xE1, u'ä'}, {0x14, u'Ä'}, {0xEF, u'ö'},
    };
    for (const auto& [code, shown] : map)
        text.replace(QChar(code), QChar(shown));
    return text;
}

void FrontPanel::Display::setLine(int line, const QString& text)
{
    if (line < 0 || line > 1)
        return;
    lines[std::size_t(line)] = substituted(text);
    update();
}

QString FrontPanel::Display::line(int line) const
{
    return line == 0 || line == 1 ? lines[std::size_t(line)] : QString();
}

QRectF FrontPanel::Display::boundingRect() const
{
    return QRectF(0, 0, 170, 30);
}

void FrontPanel::Display::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    static const QFont font = makeFont(QStringLiteral("Courier New"), 9);
    painter->setFont(font);
    // The LCD's ink, whatever pen the view's palette hands the painter.
    painter->setPen(Qt::black);
    const int pixels = font.pixelSize();
    paintLine(painter, lines[0], pixels + 3);
    paintLine(painter, lines[1], 2 * pixels + 5);
}

void FrontPanel::Display::paintLine(QPainter* painter, const QString& text, int baseline) const
{
    int x = 4;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code >= firstBarCell && code <= lastBarCell) {
            const int height = code - firstBarCell;
            painter->fillRect(QRect(x + 1, baseline - height, pitch - 2, height), Qt::black);
        } else {
            painter->drawText(QPoint(x, baseline), QString(character));
        }
        x += pitch;
    }
}

// -- FrontPanel --------------------------------------------------------------

FrontPanel::FrontPanel(QWidget* parent) : QGraphicsView(parent)
{
    hide();
    setFrameShape(QFrame::NoFrame);
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    setScene(&panel);
    Console* console = ConsoleLink::console();
    loadLayout(baseName(console ? int(console->consoleType()) : int(ConsoleCache::ModelUnknown)));
    if (console)
        connect(console, &Console::displayUpdated, this, &FrontPanel::slotDisplayUpdated,
                Qt::QueuedConnection);
}

FrontPanel::~FrontPanel()
{
    // The items go before the view's members they refer to.
    panel.clear();
}

QString FrontPanel::baseName(int consoleType)
{
    switch (consoleType) {
    case ConsoleCache::ModelAlder:
        return QStringLiteral("FrontPanelAlder");
    case ConsoleCache::ModelBirch:
        return QStringLiteral("FrontPanelBirch");
    case ConsoleCache::ModelCedar:
        return QStringLiteral("FrontPanelCedar");
    case ConsoleCache::ModelMaple:
        return QStringLiteral("FrontPanelMaple");
    default:
        return QString();
    }
}

FrontPanel::Display* FrontPanel::display(int index) const
{
    return index == 0 || index == 1 ? displays[std::size_t(index)] : nullptr;
}

void FrontPanel::loadLayout(const QString& base)
{
    if (base.isEmpty())
        return;
    const QPixmap image(resourceFolder + base + QStringLiteral(".png"));
    setBackgroundBrush(QBrush(image));
    resize(image.size());
    panel.setSceneRect(QRectF(QPointF(0, 0), image.size()));

    QFile file(base + QStringLiteral(".txt"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        file.setFileName(resourceFolder + base + QStringLiteral(".txt"));
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return;
    }
    QTextStream in(&file);
    while (!in.atEnd())
        buildLine(in.readLine().split(QLatin1Char('\t'), Qt::KeepEmptyParts));
    file.close();
    slotDisplayUpdated(0);
    slotDisplayUpdated(1);
}

void FrontPanel::buildLine(const QStringList& fields)
{
    const QList<QGraphicsItem*> before = panel.items();
    buildItems(fields);
    // A line that puts a control off the panel is a bad line: none of it stays.
    const QList<QGraphicsItem*> after = panel.items();
    if (after.size() == before.size())
        return;
    const QSet<QGraphicsItem*> old(before.cbegin(), before.cend());
    QList<QGraphicsItem*> added;
    for (QGraphicsItem* item : after) {
        if (!item->parentItem() && !old.contains(item))
            added << item;
    }
    const QRectF area = panel.sceneRect();
    if (std::all_of(added.cbegin(), added.cend(),
                    [&area](const QGraphicsItem* item) { return onPanel(item, area); }))
        return;
    for (QGraphicsItem* item : added) {
        blocks.removeOne(dynamic_cast<FaderBlock*>(item));
        for (Display*& lcd : displays) {
            if (lcd == item)
                lcd = nullptr;
        }
        delete item;
    }
}

void FrontPanel::buildItems(const QStringList& fields)
{
    const QString& keyword = fields.first();
    const int count = int(fields.size());
    if (keyword == QLatin1String("Button") && count == buttonFields)
        buildButtons(fields);
    else if (keyword == QLatin1String("Fader") && count == gridFields)
        buildFaders(fields);
    else if (keyword == QLatin1String("Wheel") && count == gridFields)
        buildWheels(fields);
    else if (keyword == QLatin1String("Display") && count == gridFields)
        buildDisplays(fields);
    else if (keyword == QLatin1String("Faders") && count == faderBlockFields)
        buildFaderBlock(fields);
    else if (keyword == QLatin1String("Selects") && count == selectBlockFields)
        buildSelectBlock(fields);
}

void FrontPanel::buildButtons(const QStringList& fields)
{
    const Grid grid(fields);
    const QStringList labels = listOf(fields[8]);
    if (!grid.countsMatch() || labels.size() != grid.items.size())
        return;
    QPoint step;
    if (grid.rows == 1)
        step = QPoint(grid.columnStep, 0);
    else if (grid.columns == 1 && grid.rows >= 1)
        step = QPoint(0, grid.rowStep);
    else
        return;
    const QPoint shift(buttonShift, 0);
    if (!grid.startsOnPanel(panel.sceneRect(), shift, step))
        return;
    for (int i = 0; i < grid.items.size(); ++i) {
        auto* button = new ConsoleButton(nullptr, &panel, number(grid.items[i]), labels[i]);
        button->setPos(grid.item(i, shift, step));
    }
}

void FrontPanel::buildFaders(const QStringList& fields)
{
    const Grid grid(fields);
    const QPoint shift(faderShift, 0);
    const QPoint step(grid.columnStep, 0);
    if (!grid.isSingleRow() || !grid.startsOnPanel(panel.sceneRect(), shift, step))
        return;
    for (int i = 0; i < grid.items.size(); ++i) {
        const int code = number(grid.items[i]);
        const int travel = code >= firstMasterFader ? masterTravel : faderTravel;
        auto* fader = new ConsoleFader(nullptr, &panel, code, travel, false, false);
        fader->setPos(grid.item(i, shift, step));
    }
}

void FrontPanel::buildWheels(const QStringList& fields)
{
    const Grid grid(fields);
    const QPoint step(grid.columnStep, 0);
    if (!grid.isSingleRow() || !grid.startsOnPanel(panel.sceneRect(), {}, step))
        return;
    for (int i = 0; i < grid.items.size(); ++i) {
        auto* wheel = new ConsoleWheel(nullptr, &panel, number(grid.items[i]));
        wheel->setPos(grid.item(i, {}, step));
    }
}

void FrontPanel::buildDisplays(const QStringList& fields)
{
    const Grid grid(fields);
    const QPoint step(grid.columnStep, 0);
    if (!grid.isSingleRow() || !grid.startsOnPanel(panel.sceneRect(), {}, step))
        return;
    for (int i = 0; i < grid.items.size(); ++i) {
        const int id = number(grid.items[i]);
        if (id != 0 && id != 1)
            continue;
        auto* lcd = new Display(&panel);
        lcd->setPos(grid.item(i, {}, step));
        displays[std::size_t(id)] = lcd;
    }
}

void FrontPanel::buildFaderBlock(const QStringList& fields)
{
    // Only the console's faders: the block reads their state by number.
    const int first = number(fields[4]);
    const int count = number(fields[3]);
    if (first < 0 || count < 1 || count > ConsoleStateRecord::maxFaders - first)
        return;
    const qint64 x = qint64(number(fields[1])) + faderBlockShift.x();
    const qint64 y = qint64(number(fields[2])) + faderBlockShift.y();
    if (!startsOnPanel(panel.sceneRect(), x, y))
        return;
    auto* block = new FaderBlock(&panel, first, count, blockFaderLength, blockSpacing, blockGap,
                                 blockButtonOffset, false);
    block->setPos(QPoint(int(x), int(y)));
    // The console's surface has no zero key, and its neighbouring controls
    // sit where the block would put it.
    block->zeroButton()->hide();
    blocks.append(block);
}

void FrontPanel::buildSelectBlock(const QStringList& fields)
{
    auto* block = new SelectBlock(&panel, selectColumnWidth, selectGap, false);
    block->setPos(number(fields[1]), number(fields[2]));
}

void FrontPanel::slotDisplayUpdated(int lcdDisplay)
{
    Display* lcd = display(lcdDisplay);
    Console* console = ConsoleLink::console();
    const ConsoleStateRecord* record = console ? console->cache()->record() : nullptr;
    if (!lcd || !record)
        return;
    for (int line = 0; line < 2; ++line) {
        const auto* bytes = reinterpret_cast<const char*>(record->lcdDisplays[lcdDisplay][line]);
        lcd->setLine(line, QString::fromLatin1(bytes, Display::charactersPerLine));
    }
}
