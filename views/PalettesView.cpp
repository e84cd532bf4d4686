// SPDX-License-Identifier: GPL-3.0-or-later
#include "PalettesView.h"

#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"
#include "PalettesViewFeature.h"
#include "StoredValueText.h"
#include "TitleBar.h"

#include <QCoreApplication>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace {
constexpr int paletteCount = int(sizeof(ConsoleStateRecord::palettes) / sizeof(PaletteRecord));
constexpr int groupCount = 3; // Focus, Color, Beam
// The titles are wider than the label column: they run on into the cell
// area, and the name follows them.
constexpr int titleOverhang = 100;
constexpr int nameLeftGap = 8;
constexpr int nameWidth = 260;

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}
} // namespace

// Table ------------------------------------------------------------------------

PalettesView::CellRowTable::CellRowTable(QGraphicsScene* scene, PalettesView* view)
    : ::CellRowTable(scene, false), m_view(view)
{
}

// Group row --------------------------------------------------------------------

PalettesView::ParameterGroupRow::ParameterGroupRow(::CellRowTable* table, PalettesView* view,
                                                   int group)
    : CellRow(table, Spacing::ThickSpacing, Spacing::ThinSpacing), m_view(view), m_group(group),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 13))
{
    m_name = new InPlaceEditableText(
        this, this,
        QRectF(table->headerWidth() + titleOverhang + nameLeftGap, 0, nameWidth, rowHeight),
        nameLength, 13, Qt::white, Qt::AlignLeft | Qt::AlignVCenter);
    m_name->setEditable(group < groupCount);
    refresh();
}

QString PalettesView::ParameterGroupRow::title() const
{
    static constexpr std::array<const char*, groupCount> titles{
        QT_TRANSLATE_NOOP("PalettesView", "FOCUS PALETTE"),
        QT_TRANSLATE_NOOP("PalettesView", "COLOR PALETTE"),
        QT_TRANSLATE_NOOP("PalettesView", "BEAM PALETTE")};
    if (m_group < 0 || m_group >= groupCount)
        return QString();
    return QCoreApplication::translate("PalettesView", titles[size_t(m_group)]) + QLatin1Char(' ') +
           QString::number(m_view->currentPalette() + 1);
}

void PalettesView::ParameterGroupRow::refresh()
{
    if (m_group < groupCount)
        m_name->setText(m_view->cache()->paletteName(m_view->currentPalette(), m_group,
                                                     ConsoleCache::wholeBlock));
    update();
}

qreal PalettesView::ParameterGroupRow::height() const
{
    return rowHeight;
}

void PalettesView::ParameterGroupRow::paint(QPainter* painter,
                                            const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    painter->setFont(m_font);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, 0, table()->headerWidth() + titleOverhang, height()),
                      Qt::AlignRight | Qt::AlignVCenter, title());
}

void PalettesView::ParameterGroupRow::textChanged(InPlaceEditableText*, const QString& text)
{
    m_view->setGroupName(m_group, text);
}

// Parameter cell ---------------------------------------------------------------

PalettesView::ParameterCell::ParameterCell(CellRow* row, PalettesView* view, int device, int group,
                                           int parameter)
    : ::ParameterCell(row, group, parameter), m_view(view), m_device(device)
{
}

QColor PalettesView::ParameterCell::swatchColour(bool& valid) const
{
    const ConsoleCache* cache = m_view->cache();
    valid = false;
    for (int i = 0; i < ConsoleCache::colourComponentCount && !valid; ++i) {
        const int p = cache->colourComponentParameter(m_device, i);
        valid = p >= 0 && p < DeviceRecord::parameterCount &&
                cache->paletteIncludes(m_view->currentPalette(), m_device, p);
    }
    return valid ? cache->paletteColour(m_view->currentPalette(), m_device) : QColor();
}

QString PalettesView::ParameterCell::text() const
{
    const ConsoleCache* cache = m_view->cache();
    if (!cache->deviceHasParameter(m_device, parameter()))
        return QString();
    const int palette = m_view->currentPalette();
    if (!cache->paletteIncludes(palette, m_device, parameter()))
        return QLatin1String("");
    return StoredValueText::text(*cache, m_device, parameter(),
                                 cache->paletteValue(palette, m_device, parameter()), false);
}

QString PalettesView::ParameterCell::editText() const
{
    const ConsoleCache* cache = m_view->cache();
    if (!cache->deviceHasParameter(m_device, parameter()))
        return QString();
    const int palette = m_view->currentPalette();
    if (!cache->paletteIncludes(palette, m_device, parameter()))
        return QLatin1String("");
    return ConsoleCache::formatLevel(cache->paletteValue(palette, m_device, parameter()), true);
}

void PalettesView::ParameterCell::applyEditText(const QString& text)
{
    // An editor closed as it opened (an empty one above all) must not clear
    // or overwrite the other selected cells.
    if (text == editText())
        return;
    m_view->applyToSelectedParameters(text);
}

// Pan/tilt monitor -------------------------------------------------------------

PalettesView::PanTiltMonitorCell::PanTiltMonitorCell(CellRow* row, PalettesView* view, int device)
    : ::PanTiltMonitorCell(row), m_view(view), m_device(device)
{
}

bool PalettesView::PanTiltMonitorCell::isActive() const
{
    const ConsoleCache* cache = m_view->cache();
    return cache->isDevicePatched(m_device) &&
           cache->deviceHasParameter(m_device, DevicePart::pan) &&
           cache->deviceHasParameter(m_device, DevicePart::tilt);
}

float PalettesView::PanTiltMonitorCell::axisPosition(int coarse, int fine) const
{
    const ConsoleCache* cache = m_view->cache();
    const int palette = m_view->currentPalette();
    const bool hasFine = cache->deviceHasParameter(m_device, fine);
    return position(cache->paletteValue(palette, m_device, coarse),
                    hasFine ? cache->paletteValue(palette, m_device, fine) : 0, hasFine);
}

float PalettesView::PanTiltMonitorCell::panPosition() const
{
    return axisPosition(DevicePart::pan, DevicePart::panFine);
}

float PalettesView::PanTiltMonitorCell::tiltPosition() const
{
    return axisPosition(DevicePart::tilt, DevicePart::tiltFine);
}

// View -------------------------------------------------------------------------

PalettesView::PalettesView(QWidget* parent, Console* console, TitleBar* bar)
    : QGraphicsView(parent), m_console(console), m_bar(bar)
{
    setScene(&m_scene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rebuild();
    connect(console, &Console::playLoaded, this, &PalettesView::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::patchUpdated, this, &PalettesView::consoleCachePatchUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::deviceUpdated, this, &PalettesView::consoleCacheDeviceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::paletteUpdated, this, &PalettesView::consoleCachePaletteUpdated,
            Qt::QueuedConnection);
}

PalettesView::~PalettesView()
{
    m_scene.clear();
}

Tab* PalettesView::create(QWidget* parent, TitleBar* bar)
{
    Console* console = ConsoleLink::console();
    if (!console || !console->cache()->record())
        return nullptr;
    return new PalettesView(parent, console, bar);
}

QString PalettesView::title()
{
    return tr("Palettes");
}

void PalettesView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

QWidget* PalettesView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    m_feature = new PalettesViewFeature(parent, this);
    m_feature->setGeometry(geometry);
    return m_feature;
}

void PalettesView::selectPalette(int palette)
{
    if (palette < 0 || palette >= paletteCount || palette == m_currentPalette)
        return;
    m_currentPalette = palette;
    refresh();
}

QString PalettesView::headerText() const
{
    return tr("Palette") + QLatin1String(" - <a href=\"link\"><font color=\"white\">") +
           twoDigits(m_currentPalette + 1) + QLatin1String("</font></a>");
}

QMenu* PalettesView::createPaletteMenu(QWidget* parent) const
{
    auto* menu = new QMenu(parent);
    for (int p = 0; p < paletteCount; ++p) {
        QString text = tr("Palette") + QLatin1Char(' ') + twoDigits(p + 1);
        QStringList names;
        for (int group = 0; group < groupCount; ++group) {
            const QString name = cache()->paletteName(p, group, ConsoleCache::wholeBlock);
            if (!name.isEmpty())
                names.append(name);
        }
        if (!names.isEmpty())
            text += QLatin1String(", ") + names.join(QLatin1String(" / "));
        QString letters;
        const int mask = cache()->paletteFlags(p);
        constexpr std::array<char, 4> content{'I', 'F', 'C', 'B'};
        for (int bit = 0; bit < 4; ++bit) {
            if (mask & (1 << bit))
                letters += QLatin1Char(content[size_t(bit)]);
        }
        if (!letters.isEmpty())
            text += QLatin1Char(' ') + letters;
        menu->addAction(text)->setData(QStringLiteral("Palette/%1").arg(p));
    }
    return menu;
}

void PalettesView::menuItemPicked(const QString& data)
{
    const QStringList words = data.split(QLatin1Char('/'));
    if (words.size() != 2 || words[0] != QLatin1String("Palette"))
        return;
    bool ok = false;
    const int palette = words[1].toInt(&ok);
    if (ok)
        selectPalette(palette);
}

bool PalettesView::applyToSelectedParameters(const QString& text)
{
    std::optional<int> level;
    if (!text.isEmpty()) {
        level = ConsoleCache::levelFromPercentText(text);
        if (!level)
            return false;
    }
    for (QGraphicsItem* item : m_scene.selectedItems()) {
        auto* cell = dynamic_cast<ParameterCell*>(item);
        if (!cell || !cache()->deviceHasParameter(cell->device(), cell->parameter()))
            continue;
        if (level)
            cache()->setPaletteValue(m_currentPalette, cell->device(), cell->parameter(), *level);
        else
            cache()->clearPaletteInclude(m_currentPalette, cell->device(), cell->parameter());
    }
    m_console->paletteChanged(m_currentPalette);
    m_scene.update();
    return true;
}

void PalettesView::setGroupName(int group, const QString& text)
{
    if (group < 0 || group >= groupCount)
        return;
    // The editor already holds the length; a text from elsewhere is cut too.
    cache()->setPaletteName(m_currentPalette, group, ConsoleCache::wholeBlock,
                            text.left(nameLength));
    refresh();
}

QList<PalettesView::ParameterGroupRow*> PalettesView::groupRows() const
{
    QList<ParameterGroupRow*> rows;
    if (!m_table)
        return rows;
    for (CellRow* row : m_table->rows()) {
        if (auto* groupRow = dynamic_cast<ParameterGroupRow*>(row))
            rows.append(groupRow);
    }
    return rows;
}

CellRow* PalettesView::createGroupRow(::CellRowTable* table, int group)
{
    return new ParameterGroupRow(table, this, group);
}

Cell* PalettesView::createMonitorCell(CellRow* row, int device)
{
    return new PanTiltMonitorCell(row, this, device);
}

::ParameterCell* PalettesView::createParameterCell(CellRow* row, int device, int group,
                                                   int parameter)
{
    return new ParameterCell(row, this, device, group, parameter);
}

void PalettesView::rebuild()
{
    m_scene.clear();
    m_table = new CellRowTable(&m_scene, this);
    DevicePart::build(m_table, *cache(), *this, DevicePart::Layout::PaletteGroups);
}

void PalettesView::refresh()
{
    if (m_feature)
        m_feature->refresh();
    for (ParameterGroupRow* row : groupRows())
        row->refresh();
    m_scene.update();
}

void PalettesView::consoleCachePlayLoaded()
{
    rebuild();
    refresh();
}

void PalettesView::consoleCachePatchUpdated()
{
    rebuild();
}

void PalettesView::consoleCacheDeviceUpdated(int)
{
    rebuild();
}

void PalettesView::consoleCachePaletteUpdated(int palette)
{
    if (palette == m_currentPalette)
        refresh();
}

PalettesViewFeature* PalettesView::feature() const
{
    return m_feature;
}
