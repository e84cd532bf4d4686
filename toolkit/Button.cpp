// SPDX-License-Identifier: GPL-3.0-or-later
#include "Button.h"

#include "ButtonHandler.h"
#include "MakeFont.h"
#include "WholePixel.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <qdrawutil.h>

Button* Button::latched = nullptr;

namespace {
const QString resourceFolder = QStringLiteral(":/Lumidesk/Resources/");
const QString labelFamily = QStringLiteral("Gill Sans MT");
constexpr QRect consoleLabelRect(2, 1, 31, 24);
constexpr QColor consoleIconFill(78, 78, 78);
constexpr QColor titleTextColour(163, 163, 163);
// The stretchable middle of the background images keeps four columns at
// either end.
const QMargins backgroundMargins(4, 0, 4, 0);

bool modifierHeld(const QGraphicsSceneMouseEvent* event)
{
    return event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
}

// A caption wider than the key face is drawn smaller rather than cut off.
void shrinkToFit(QFont& font, const QStringList& lines, int width)
{
    for (const QString& line : lines) {
        while (font.pixelSize() > 1 && QFontMetrics(font).horizontalAdvance(line) > width)
            font.setPixelSize(font.pixelSize() - 1);
    }
}

// Drawing a prepared image gives the same pixels as drawing directly only
// at whole pixels, fully opaque and composed over what is there.
bool drawsPixelForPixel(const QPainter* painter)
{
    return painter->opacity() == 1.0 &&
           painter->compositionMode() == QPainter::CompositionMode_SourceOver &&
           isWholePixelTranslation(painter->deviceTransform());
}

bool readsAsInteger(const QString& text)
{
    bool ok = false;
    text.toInt(&ok, 10);
    return ok;
}
} // namespace

Button::Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler,
               ButtonStyle style, bool toggle)
    : QGraphicsItem(parent), handler(handler), style(style), toggle(toggle)
{
    if (scene && !parent)
        scene->addItem(this);
}

Button::Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler,
               ButtonStyle style, bool toggle, const QString& iconPath, const QColor& keyColour)
    : Button(parent, scene, handler, style, toggle)
{
    loadBackgrounds();
    icon = keyedIcon(iconPath, keyColour);
}

Button::Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler,
               ButtonStyle style, const QString& text)
    : Button(parent, scene, handler, style, false)
{
    loadBackgrounds();
    if (style == ButtonStyle::TitleBarStyle) {
        icon = textIcon(text);
    } else {
        label = text;
        labelFont = makeFont(labelFamily, readsAsInteger(text) ? 10 : 7);
        // A label with a space takes two lines, split at the first space.
        const int space = text.indexOf(QLatin1Char(' '));
        labelLines =
            space < 0 ? QStringList{text} : QStringList{text.left(space), text.mid(space + 1)};
        shrinkToFit(labelFont, labelLines, consoleLabelRect.width());
        setLedColour(Qt::black);
    }
}

Button::~Button()
{
    // The latch must not outlive the key it names.
    if (latched == this)
        latched = nullptr;
}

void Button::loadBackgrounds()
{
    if (style == ButtonStyle::TitleBarStyle) {
        background.load(resourceFolder + QStringLiteral("TitleBarButton.png"));
        backgroundDown.load(resourceFolder + QStringLiteral("TitleBarButtonDepressed.png"));
    } else {
        background.load(resourceFolder + QStringLiteral("ConsoleButton.png"));
        backgroundDown.load(resourceFolder + QStringLiteral("ConsoleButtonDepressed.png"));
    }
}

QPixmap Button::keyedIcon(const QString& path, const QColor& keyColour)
{
    QImage image(path);
    if (image.isNull() || !keyColour.isValid())
        return QPixmap::fromImage(image);
    image = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb key = keyColour.rgb() & RGB_MASK;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb colour = line[x] & RGB_MASK;
            line[x] = colour == key ? 0u : colour | ~RGB_MASK;
        }
    }
    return QPixmap::fromImage(image);
}

QPixmap Button::textIcon(const QString& text)
{
    QPixmap pixmap(titleBarHeight, titleBarHeight);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(makeFont(labelFamily, 11, true));
    painter.setPen(titleTextColour);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, text);
    return pixmap;
}

QColor Button::shownLedColour(const QColor& colour)
{
    const auto map = [](int channel) { return int(channel / 255.0 * 190.0 + 65.0); };
    return QColor(map(colour.red()), map(colour.green()), map(colour.blue()), 255);
}

void Button::setLedColour(const QColor& colour)
{
    const QColor shown = shownLedColour(colour);
    if (shown == led)
        return;
    led = shown;
    update();
}

void Button::setDown(bool isDown)
{
    down = isDown;
}

QRectF Button::boundingRect() const
{
    if (style == ButtonStyle::TitleBarStyle)
        return QRectF(0, 0, icon.width(), titleBarHeight);
    return QRectF(0, 0, consoleWidth, consoleHeight);
}

void Button::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    switch (style) {
    case ButtonStyle::ConsoleTextStyle:
        paintConsoleText(painter);
        break;
    case ButtonStyle::TitleBarStyle:
        paintTitleBar(painter);
        break;
    case ButtonStyle::ConsoleIconStyle:
        paintConsoleIcon(painter);
        break;
    }
}

void Button::paintConsoleText(QPainter* painter) const
{
    if (!drawsPixelForPixel(painter)) {
        drawConsoleFace(painter);
        drawConsoleCaption(painter);
        return;
    }
    const KeyImage& key = consoleKeyImage(painter->renderHints());
    painter->drawPixmap(0, 0, key.fill);
    painter->drawPixmap(0, 0, key.image);
}

// The LED under the face, shared by all text keys of one LED colour.
QPixmap Button::ledFill() const
{
    const QString key =
        QStringLiteral("Lumidesk.Button.led.%1").arg(led.rgba(), 8, 16, QLatin1Char('0'));
    QPixmap fill;
    if (QPixmapCache::find(key, &fill))
        return fill;
    fill = QPixmap(consoleWidth, consoleHeight);
    fill.fill(Qt::transparent);
    QPainter fillPainter(&fill);
    drawLed(&fillPainter);
    fillPainter.end();
    QPixmapCache::insert(key, fill);
    return fill;
}

// The face and the caption over the LED fill. Where the fill is partly
// covered (the round corners), the image holds the face alone: composing
// there before drawing would round differently from drawing directly.
const Button::KeyImage& Button::consoleKeyImage(QPainter::RenderHints hints) const
{
    const KeyLook look{led.rgba(), pressedLook(), hints};
    for (int i = 0; i < 2; ++i) {
        if (keyImages[0].look == look && !keyImages[0].image.isNull())
            return keyImages[0];
        std::swap(keyImages[0], keyImages[1]);
    }
    const QPixmap fillPixmap = ledFill();
    const QImage fill = fillPixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage image = fill;
    QPainter imagePainter(&image);
    imagePainter.setRenderHints(hints);
    imagePainter.drawPixmap(0, 0, face());
    drawConsoleCaption(&imagePainter);
    imagePainter.end();
    const QImage plainFace = face().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        const auto* fillLine = reinterpret_cast<const QRgb*>(fill.constScanLine(y));
        const auto* faceLine = reinterpret_cast<const QRgb*>(plainFace.constScanLine(y));
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(fillLine[x]) > 0 && qAlpha(fillLine[x]) < 255)
                line[x] = faceLine[x];
        }
    }
    keyImages[0] = {look, fillPixmap, QPixmap::fromImage(image)};
    return keyImages[0];
}

void Button::drawLed(QPainter* painter) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(led);
    painter->drawRoundedRect(consoleLabelRect, 6, 7, Qt::RelativeSize);
    painter->restore();
}

void Button::drawConsoleFace(QPainter* painter) const
{
    drawLed(painter);
    painter->drawPixmap(0, 0, face());
}

void Button::drawConsoleCaption(QPainter* painter) const
{
    const QRect area = pressedLook() ? consoleLabelRect.translated(1, 1) : consoleLabelRect;
    painter->setPen(Qt::black);
    painter->setFont(labelFont);
    if (labelLines.size() < 2) {
        painter->drawText(area, Qt::AlignCenter, label);
        return;
    }
    const int half = area.height() / 2;
    painter->drawText(QRect(area.x(), area.y(), area.width(), half), Qt::AlignCenter,
                      labelLines[0]);
    painter->drawText(QRect(area.x(), area.y() + half, area.width(), area.height() - half),
                      Qt::AlignCenter, labelLines[1]);
}

void Button::paintTitleBar(QPainter* painter) const
{
    qDrawBorderPixmap(painter, QRect(0, 0, icon.width(), titleBarHeight), backgroundMargins,
                      face());
    painter->drawPixmap(pressedLook() ? QPoint(1, 1) : QPoint(0, 0), icon);
}

void Button::paintConsoleIcon(QPainter* painter) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(consoleIconFill);
    painter->drawRoundedRect(QRect(2, 1, icon.width() - 4, 24), 6, 7, Qt::RelativeSize);
    painter->restore();

    qDrawBorderPixmap(painter, QRect(0, 0, icon.width(), consoleHeight), backgroundMargins, face());
    painter->drawPixmap(pressedLook() ? QPoint(1, 1) : QPoint(0, 0), icon);
}

void Button::click()
{
    if (handler)
        handler->buttonClicked(this);
}

void Button::mousePressEvent(QGraphicsSceneMouseEvent*)
{
    if (toggle) {
        if (down) {
            // The release brings it up.
            pressedNow = false;
            return;
        }
        pressedNow = true;
        setDown(true);
        update();
        click();
        return;
    }
    if (latched == this) {
        latched = nullptr;
        return;
    }
    setDown(true);
    outside = false;
    update();
}

void Button::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!trackMouse)
        return;
    const bool nowOutside = !sceneBoundingRect().contains(event->scenePos());
    if (nowOutside == outside)
        return;
    outside = nowOutside;
    update();
}

void Button::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (toggle) {
        if (!pressedNow && down) {
            setDown(false);
            update();
            click();
        }
        return;
    }
    if (latched) {
        setDown(false);
        update();
        if (!modifierHeld(event)) {
            Button* held = latched;
            latched = nullptr;
            held->setDown(false);
            held->update();
        }
        return;
    }
    if (latchable && !outside && modifierHeld(event)) {
        latched = this;
        return;
    }
    setDown(false);
    update();
    if (!outside)
        click();
}
