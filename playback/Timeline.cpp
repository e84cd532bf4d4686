// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline.h"

#include "ConsoleButton.h"
#include "ConsoleLink.h"
#include "MakeFont.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr qreal width = 587;
constexpr qreal baseHeight = 105;
constexpr int fullRate = 256;
constexpr int fullProgress = 255;

// The grid: 0 % at the left end and the bottom, 100 % at the right end and
// the top.
constexpr int gridLeft = 38;
constexpr int gridRight = 422;
constexpr int gridTop = 10;
constexpr int gridBottom = 70;
constexpr int verticalBottom = 73;
constexpr int rowStep = 6;
constexpr int columnLeft = 42;
constexpr int columnStep = 38;
constexpr int gridLines = 11;
constexpr int fadeLeft = 43;
constexpr int fadeSpan = 379;
constexpr int panelRows = 5;
constexpr int firstRateRow = 3; // rate and fade are drawn in their own colour
constexpr int panelTop = 20;
constexpr int panelStep = 16;

constexpr QColor gridColour(255, 255, 255, 48);
constexpr QColor scaleColour(96, 96, 96);
constexpr QColor rateColour(119, 100, 58);
constexpr QColor upColour(94, 77, 187);
constexpr QColor downColour(169, 169, 92);
constexpr QColor cursorColour(145, 69, 69);

const std::array<QLineF, 2 * gridLines>& gridLinesList()
{
    static const std::array<QLineF, 2 * gridLines> lines = [] {
        std::array<QLineF, 2 * gridLines> list;
        for (int i = 0; i < gridLines; ++i) {
            list[std::size_t(i)] =
                QLineF(gridLeft, gridTop + rowStep * i, gridRight, gridTop + rowStep * i);
            const int x = columnLeft + columnStep * i;
            list[std::size_t(gridLines + i)] = QLineF(x, gridTop, x, verticalBottom);
        }
        return list;
    }();
    return lines;
}

const QFont& font(int points)
{
    static const QFont small = makeFont(family, 7);
    static const QFont medium = makeFont(family, 8);
    static const QFont large = makeFont(family, 10);
    return points == 7 ? small : points == 8 ? medium : large;
}

int percentOf(quint16 word)
{
    return int(word) * 100 / fullRate;
}
} // namespace

Timeline::Timeline(QGraphicsScene* scene, qreal extraHeight, QGraphicsItem* parent)
    : QObject(), QGraphicsItem(parent), extra(extraHeight)
{
    if (scene && !parent)
        scene->addItem(this);
    go = new ConsoleButton(this, nullptr, goKey, tr(">"));
    go->setPos(546, 40);
    pause = new ConsoleButton(this, nullptr, pauseKey, tr("||"));
    pause->setPos(546, 75);
    if (Console* console = ConsoleLink::console())
        connect(console, &Console::playbackUpdated, this, &Timeline::consoleCachePlaybackUpdated,
                Qt::QueuedConnection);
}

Timeline::~Timeline() = default;

void Timeline::setSequence(Console::Sequence sequence)
{
    shown = sequence;
    update();
}

void Timeline::consoleCachePlaybackUpdated()
{
    update();
}

int Timeline::fractionX(double fraction)
{
    return int(fadeLeft + fadeSpan * fraction);
}

Timeline::Reading Timeline::read() const
{
    Reading reading;
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record())
        return reading;
    const int index = cache->playbackIndex(shown.page, shown.fader);
    if (index < 0 || index >= int(std::size(cache->record()->playbacks)))
        return reading;
    const PlaybackRecord& playback = cache->record()->playbacks[index];
    reading.hasPlayback = true;
    reading.remainingUp = playback.remainingUp;
    reading.remainingDown = playback.remainingDown;
    reading.remainingWait = playback.remainingWait;
    reading.ratePercent = percentOf(playback.rate);
    reading.fadePercent = percentOf(playback.fade);
    if (playback.nextStep < cache->stepCount(shown.page, shown.fader)) {
        const StepRecord* step = cache->step(shown.page, shown.fader, playback.nextStep);
        const int longest = std::max(step->upTime, step->downTime);
        if (longest != 0) {
            reading.upFraction = double(step->upTime) / longest;
            reading.downFraction = double(step->downTime) / longest;
        }
    }
    reading.downCursor = reading.downFraction * (1 - double(playback.downProgress) / fullProgress);
    reading.upCursor = reading.upFraction * playback.upProgress / fullProgress;
    return reading;
}

QRectF Timeline::boundingRect() const
{
    return QRectF(0, 0, width, baseHeight + 2 * extra);
}

QPixmap Timeline::drawLayer() const
{
    QPixmap pixmap(boundingRect().size().toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(QColor(255, 255, 255, 20));
    painter.setPen(QPen(QColor(255, 255, 255, 64), 1.7));
    painter.drawRoundedRect(boundingRect().adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.translate(0, extra);
    paintGrid(&painter);
    paintScale(&painter);
    paintPanelLabels(&painter);
    return pixmap;
}

void Timeline::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (layer.isNull())
        layer = drawLayer();
    const Reading reading = read();
    painter->save();
    painter->drawPixmap(0, 0, layer);
    painter->translate(0, extra);
    paintPanelValues(painter, reading);
    paintFade(painter, reading);
    painter->restore();
}

void Timeline::paintGrid(QPainter* painter) const
{
    const auto& lines = gridLinesList();
    painter->setPen(QPen(gridColour, 0));
    painter->drawLines(lines.data(), int(lines.size()));
}

void Timeline::paintScale(QPainter* painter) const
{
    painter->setPen(scaleColour);
    painter->setFont(font(7));
    for (int i = 0; i <= 5; ++i)
        painter->drawText(QRectF(20, 60 - 12 * i, 16, 20), Qt::AlignRight, QString::number(20 * i));
    painter->setFont(font(8));
    const auto centred = [painter](qreal left, qreal right, const QString& text) {
        painter->drawText(QRectF(left, 90, right - left, 9), Qt::AlignCenter, text);
    };
    centred(22, 51, tr("Start"));
    for (int k = 0; k < 9; ++k)
        centred(70 + columnStep * k, 89 + columnStep * k,
                QString::number(10 * (k + 1)) + QLatin1Char('%'));
    centred(412, 431, tr("End"));
}

void Timeline::paintPanelLabels(QPainter* painter) const
{
    painter->setFont(font(10));
    painter->setPen(Qt::white);
    painter->drawText(QRectF(415, -2, 160, 20), Qt::AlignCenter,
                      tr("Remaining time") + QLatin1Char(':'));
    const QString labels[] = {tr("UP"), tr("DOWN"), tr("WAIT"), tr("RATE"), tr("FADE")};
    for (int i = 0; i < panelRows; ++i) {
        if (i == firstRateRow)
            painter->setPen(rateColour);
        painter->drawText(QRectF(415, panelTop + panelStep * i, 80, 16), Qt::AlignRight,
                          labels[i] + QLatin1Char(':'));
    }
}

void Timeline::paintPanelValues(QPainter* painter, const Reading& reading) const
{
    painter->setFont(font(10));
    painter->setPen(Qt::white);
    const QStringList values = panelValues(reading);
    for (int i = 0; i < panelRows; ++i) {
        if (i == firstRateRow)
            painter->setPen(rateColour);
        painter->drawText(QRectF(495, panelTop + panelStep * i, 40, 15), Qt::AlignRight, values[i]);
    }
}

QStringList Timeline::panelValues(const Reading& reading)
{
    return {ConsoleCache::timeText(reading.remainingUp),
            ConsoleCache::timeText(reading.remainingDown),
            ConsoleCache::timeText(reading.remainingWait),
            QString::number(reading.ratePercent) + QLatin1Char('%'),
            QString::number(reading.fadePercent) + QLatin1Char('%')};
}

void Timeline::paintFade(QPainter* painter, const Reading& reading) const
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    const QPointF up[] = {QPointF(fadeLeft, gridBottom),
                          QPointF(fractionX(reading.upFraction), gridTop),
                          QPointF(gridRight, gridTop)};
    painter->setPen(QPen(upColour, 3));
    painter->drawPolyline(up, 3);
    const QPointF down[] = {QPointF(fadeLeft, gridTop),
                            QPointF(fractionX(reading.downFraction), gridBottom),
                            QPointF(gridRight, gridBottom)};
    painter->setPen(QPen(downColour, 3));
    painter->drawPolyline(down, 3);

    painter->setRenderHint(QPainter::Antialiasing, false);
    const auto cursor = [painter](double position, const QColor& colour) {
        const int x = fractionX(position);
        painter->setPen(QPen(colour, 2));
        painter->drawLine(x, gridTop, x, gridBottom);
    };
    if (reading.upCursor == reading.downCursor) {
        cursor(reading.upCursor, cursorColour);
    } else {
        cursor(reading.downCursor, downColour);
        cursor(reading.upCursor, upColour);
    }
}
