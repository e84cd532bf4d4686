// SPDX-License-Identifier: GPL-3.0-or-later
#include "EffectsView.h"

#include "Console.h"
#include "ConsoleCache.h"
#include "ConsoleStateRecord.h"
#include "EditorViewLook.h"
#include "toolkit/ConsoleLink.h"
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/MakeFont.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/Resources.h"
#include "toolkit/TitleBar.h"

#include <QAction>
#include <QGraphicsSceneMouseEvent>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QPointer>

#include <array>

namespace {

constexpr int tableGap = 16;
constexpr int percentFull = 255;
constexpr int chromaOffset = 256;
constexpr int chromaLimit = 512;
constexpr int rotationLimit = 359;

const char* const familyWords[EffectsView::familyCount] = {"Shape", "Linear", "Color"};

// The pattern names are the console's own words and stay untranslated.
const char* const patternNames[EffectsView::familyCount][EffectsView::effectsPerFamily] = {
    {"Circle", "Square", "Infinity", "Lissajou", "Clover", "Flower", "Triangle", "Harmonics",
     "Noise", "Pentacle", "Skating"},
    {"Morse", "Strobe", "Flicker", "On Off", "Wander", "Sparkle", "Mountain", "Skyline", "Saw",
     "Cosine", "Ramp"},
    {"Rainbow", "Harlequin", "Flames", "Meadow", "Cornfield", "Aqua", "Royal", "Miss Piggy",
     "Freak Out", "Secondary", "Primary"}};

EffectRecord* effectRecord(int effect)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record() || effect < 0 || effect >= 36)
        return nullptr;
    return &cache->record()->effects[effect];
}

void reportEffects()
{
    if (Console* console = ConsoleLink::console())
        console->effectsChanged();
}

QColor valueColour()
{
    return QColor(250, 220, 120);
}

} // namespace

// ---- table and row -----------------------------------------------------------

EffectsView::CellRowTable::CellRowTable(QGraphicsScene* scene) : ::CellRowTable(scene, false) {}

EffectsView::CellRowTable::~CellRowTable() = default;

EffectsView::EffectParameterRow::EffectParameterRow(::CellRowTable* table, int kind, int family)
    : CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing), m_kind(kind), m_family(family),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), kind == PatternKind ? 10 : 9))
{
    switch (kind) {
    case PatternKind:
        m_title = family == 0   ? EffectsView::tr("Shape\nEffects")
                  : family == 1 ? EffectsView::tr("Linear\nEffects")
                                : EffectsView::tr("Color\nEffects");
        break;
    case SpeedKind:
        m_title = EffectsView::tr("Speed");
        break;
    case DepthKind:
        m_title = family == 2 ? EffectsView::tr("Chroma") : EffectsView::tr("Depth");
        break;
    case AspectKind:
        m_title = EffectsView::tr("Aspect");
        break;
    case RotationKind:
        m_title = EffectsView::tr("Rotation");
        break;
    case BaseKind:
        m_title = EffectsView::tr("Base");
        break;
    case RangeKind:
        m_title = EffectsView::tr("Range");
        break;
    case StyleKind:
        m_title = EffectsView::tr("Style");
        break;
    default:
        m_title = EffectsView::tr("Name");
        break;
    }
}

EffectsView::EffectParameterRow::~EffectParameterRow() = default;

void EffectsView::EffectParameterRow::paint(QPainter* painter,
                                            const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    const QStringList lines = m_title.split(QLatin1Char('\n'));
    const qreal lineHeight = height() / lines.size();
    for (int i = 0; i < lines.size() && i < 2; ++i)
        m_lines[i].draw(painter, QRectF(0, i * lineHeight, table()->headerWidth() - 4, lineHeight),
                        Qt::AlignRight | (lines.size() > 1 ? (i ? Qt::AlignTop : Qt::AlignBottom)
                                                           : Qt::AlignVCenter),
                        lines[i], m_font, Qt::white);
}

// ---- parameter cell -------------------------------------------------------------

EffectsView::EffectParameterCell::EffectParameterCell(CellRow* row, EffectsView* view, int effect,
                                                      int kind)
    : Cell(row, cellHeight), m_view(view), m_effect(effect), m_kind(kind)
{
    if (kind >= SpeedKind && kind <= RangeKind) {
        m_value = new InPlaceEditableText(static_cast<QGraphicsItem*>(this), this,
                                          QRectF(2, 12, table()->columnWidth() - 4, 20), 3, 12,
                                          valueColour(), Qt::AlignHCenter);
        m_value->setEditable(true);
    }
    refresh();
}

EffectsView::EffectParameterCell::~EffectParameterCell() = default;

const QImage* EffectsView::EffectParameterCell::picture() const
{
    const EffectRecord* record = effectRecord(m_effect);
    if (!record)
        return nullptr;
    const QImage* image = nullptr;
    if (m_kind == PatternKind)
        image = &patternImage(m_effect / familyStride, record->pattern);
    else if (m_kind == StyleKind)
        image = &directionImage(record->direction);
    return image && !image->isNull() ? image : nullptr;
}

void EffectsView::EffectParameterCell::refresh()
{
    if (const QImage* image = picture())
        m_pictureAt = QPointF((boundingRect().width() - image->width()) / 2,
                              (boundingRect().height() - image->height()) / 2);
    EffectRecord* record = effectRecord(m_effect);
    if (m_value && record)
        m_value->setText(valueText(m_effect / familyStride, m_kind, *field(*record, m_kind)));
    update();
}

void EffectsView::EffectParameterCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*,
                                             QWidget*)
{
    paintFrame(painter, boundingRect(), QColor(38, 38, 38, 210), QColor(95, 95, 95));
    if (const QImage* image = picture())
        painter->drawImage(m_pictureAt, *image);
}

void EffectsView::EffectParameterCell::textChanged(InPlaceEditableText*, const QString& text)
{
    EffectRecord* record = effectRecord(m_effect);
    const std::optional<quint16> value = valueFromText(m_effect / familyStride, m_kind, text);
    if (record && value) {
        *field(*record, m_kind) = *value;
        reportEffects();
    }
    // A dropped value shows the stored one again at once.
    refresh();
}

void EffectsView::EffectParameterCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || (m_kind != PatternKind && m_kind != StyleKind)) {
        event->ignore();
        return;
    }
    openMenu(event);
}

void EffectsView::EffectParameterCell::openMenu(QGraphicsSceneMouseEvent* event)
{
    auto* menu = new QMenu(m_view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_kind == PatternKind) {
        const int family = m_effect / familyStride;
        for (int p = 0; p < effectsPerFamily; ++p) {
            QAction* action = menu->addAction(QIcon(QPixmap::fromImage(patternImage(family, p))),
                                              patternName(family, p));
            action->setData(p);
        }
        menu->addAction(EffectsView::tr("No"))->setData(int(noPattern));
    } else {
        const QString names[3] = {EffectsView::tr("Forward"), EffectsView::tr("Backward"),
                                  EffectsView::tr("Bounce")};
        for (int d = 0; d < 3; ++d)
            menu->addAction(QIcon(QPixmap::fromImage(directionImage(d))), names[d])->setData(d);
    }
    // The view outlives a rebuild of its cells: the choice goes through it.
    const QPointer<EffectsView> view(m_view);
    const int effect = m_effect;
    const int kind = m_kind;
    QObject::connect(menu, &QMenu::triggered, m_view, [view, effect, kind](QAction* action) {
        EffectRecord* record = effectRecord(effect);
        if (!view || !record)
            return;
        const int data = action->data().toInt();
        if (kind == PatternKind)
            record->pattern = quint8(data);
        else
            record->direction = quint16(data);
        reportEffects();
        view->consoleCacheEffectUpdated();
    });
    menu->popup(event->screenPos());
}

// ---- name cell -------------------------------------------------------------------

EffectsView::EffectNameCell::EffectNameCell(CellRow* row, int effect)
    : Cell(row, cellHeight), m_effect(effect)
{
    const qreal width = table()->columnWidth() - 2;
    for (int i = 0; i < 3; ++i) {
        m_lines[i] = new InPlaceEditableText(static_cast<QGraphicsItem*>(this), this,
                                             QRectF(1, 1 + i * 10, width, 10),
                                             TextBlock::lineLength, 8, Qt::white, Qt::AlignHCenter);
        m_lines[i]->setEditable(true);
    }
    InPlaceEditableText::chain(m_lines, 3);
    refresh();
}

EffectsView::EffectNameCell::~EffectNameCell() = default;

void EffectsView::EffectNameCell::refresh()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record())
        return;
    for (int i = 0; i < 3; ++i)
        m_lines[i]->setText(cache->effectName(m_effect, i));
}

void EffectsView::EffectNameCell::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

void EffectsView::EffectNameCell::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const int line = int(std::find(m_lines, m_lines + 3, item) - m_lines);
    if (!cache || !cache->record() || line >= 3)
        return;
    // The field holds seven characters; a longer line is cut, never spilled.
    cache->setEffectName(m_effect, line, text.left(TextBlock::lineLength));
    refresh();
}

// ---- the view --------------------------------------------------------------------

EffectsView::EffectsView(QWidget* parent, TitleBar* bar) : QGraphicsView(parent), m_bar(bar)
{
    setScene(&m_scene);
    EditorViewLook::apply(this);
    build();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::playLoaded, this, &EffectsView::consoleCachePlayLoaded,
                Qt::QueuedConnection);
        connect(console, &Console::effectUpdated, this, &EffectsView::consoleCacheEffectUpdated,
                Qt::QueuedConnection);
    }
    hide();
}

EffectsView::~EffectsView()
{
    m_cells.clear();
    m_names.clear();
    m_scene.clear();
}

QString EffectsView::title()
{
    return tr("Effects Edit");
}

void EffectsView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

QString EffectsView::patternName(int family, int pattern)
{
    if (family < 0 || family >= familyCount || pattern < 0 || pattern >= effectsPerFamily)
        return QString();
    return QString::fromLatin1(patternNames[family][pattern]);
}

QString EffectsView::patternFileName(int family, int pattern)
{
    const QString name = patternName(family, pattern);
    if (name.isEmpty())
        return QString();
    return QString::fromLatin1(familyWords[family]) + name + QStringLiteral(".png");
}

QString EffectsView::familyName(int family)
{
    switch (family) {
    case 0:
        return tr("Shape effects");
    case 1:
        return tr("Linear effects");
    case 2:
        return tr("Color effects");
    default:
        return QString();
    }
}

const QImage& EffectsView::patternImage(int family, int pattern)
{
    static const std::array<QImage, familyCount* familyStride> images = [] {
        std::array<QImage, familyCount * familyStride> loaded;
        for (int f = 0; f < familyCount; ++f)
            for (int p = 0; p < effectsPerFamily; ++p)
                loaded[size_t(f * familyStride + p)] =
                    QImage(Resources::folder() + patternFileName(f, p));
        return loaded;
    }();
    static const QImage none;
    if (family < 0 || family >= familyCount || pattern < 0 || pattern >= effectsPerFamily)
        return none;
    return images[size_t(family * familyStride + pattern)];
}

const QImage& EffectsView::directionImage(int direction)
{
    static const QImage none;
    constexpr Resources::Id ids[3] = {Resources::Id::DirectionRight, Resources::Id::DirectionLeft,
                                      Resources::Id::DirectionBoth};
    if (direction < 0 || direction > 2 || !ConsoleLink::resources())
        return none;
    return ConsoleLink::image(ids[direction]);
}

QString EffectsView::valueText(int family, int kind, int stored)
{
    if (kind == RotationKind)
        return QString::number(stored);
    if (kind == DepthKind && family == 2)
        stored -= chromaOffset;
    return QString::number(int(stored / 2.55 + 0.5));
}

std::optional<quint16> EffectsView::valueFromText(int family, int kind, const QString& text)
{
    bool ok = false;
    int typed = text.trimmed().toInt(&ok, 10);
    if (!ok)
        typed = 0;
    if (typed < 0)
        return std::nullopt;
    if (kind == RotationKind)
        return typed <= rotationLimit ? std::optional<quint16>(quint16(typed)) : std::nullopt;
    // Above 100 % nothing fits; the check also keeps the product in range.
    if (typed > 100)
        return std::nullopt;
    const int level = ConsoleCache::levelFromPercent(typed);
    if (kind == DepthKind && family == 2)
        return level + chromaOffset <= chromaLimit
                   ? std::optional<quint16>(quint16(level + chromaOffset))
                   : std::nullopt;
    return level <= percentFull ? std::optional<quint16>(quint16(level)) : std::nullopt;
}

quint16* EffectsView::field(EffectRecord& effect, int kind)
{
    switch (kind) {
    case SpeedKind:
        return &effect.speed;
    case DepthKind:
        return &effect.depth;
    case AspectKind:
        return &effect.aspect;
    case RotationKind:
        return &effect.rotation;
    case BaseKind:
        return &effect.base;
    case RangeKind:
        return &effect.range;
    case StyleKind:
        return &effect.direction;
    default:
        return nullptr;
    }
}

void EffectsView::consoleCachePlayLoaded()
{
    build();
}

void EffectsView::consoleCacheEffectUpdated()
{
    for (EffectParameterCell* cell : std::as_const(m_cells))
        cell->refresh();
    for (EffectNameCell* cell : std::as_const(m_names))
        cell->refresh();
}

void EffectsView::build()
{
    m_cells.clear();
    m_names.clear();
    m_scene.clear();
    buildFamily(0, QPointF(0, 0));
    const qreal right = m_scene.itemsBoundingRect().width() + tableGap;
    buildFamily(1, QPointF(right, 0));
    const qreal below = m_scene.itemsBoundingRect().height() + tableGap;
    buildFamily(2, QPointF(0, below));
    m_scene.setSceneRect(m_scene.itemsBoundingRect().adjusted(0, 0, 4, 4));
}

void EffectsView::buildFamily(int family, const QPointF& at)
{
    auto* table = new CellRowTable(&m_scene);
    table->setPos(at);
    auto* numbers = new NumberRow(table, tr("SELECT"));
    for (int k = 0; k < effectsPerFamily; ++k)
        new NumberCell(numbers, k);
    table->addRow(numbers);
    auto* names = new EffectParameterRow(table, NameKind, family);
    for (int k = 0; k < effectsPerFamily; ++k)
        m_names.append(new EffectNameCell(names, family * familyStride + k));
    table->addRow(names);
    for (int kind = PatternKind; kind <= StyleKind; ++kind) {
        auto* row = new EffectParameterRow(table, kind, family);
        for (int k = 0; k < effectsPerFamily; ++k)
            m_cells.append(new EffectParameterCell(row, this, family * familyStride + k, kind));
        table->addRow(row);
    }
}
