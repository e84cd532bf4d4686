// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <array>

class ButtonHandler;

// A push or toggle key: a console key with an LED and a text label or an
// icon, or an icon button of the title bar.
class Button : public QGraphicsItem
{
public:
    enum class ButtonStyle
    {
        ConsoleTextStyle = 0,
        TitleBarStyle = 1,
        ConsoleIconStyle = 2
    };

    // Title-bar and console icon buttons. Icon pixels of keyColour (when
    // valid) become transparent, all others opaque.
    Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler, ButtonStyle style,
           bool toggle, const QString& iconPath, const QColor& keyColour);
    // Console text keys, and title-bar buttons that show a short text.
    Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler, ButtonStyle style,
           const QString& text);
    ~Button() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    // Every press and release goes through here; the callers repaint.
    virtual void setDown(bool down);
    bool isDown() const { return down; }
    bool isToggle() const { return toggle; }
    ButtonStyle buttonStyle() const { return style; }
    QString text() const { return label; }

    // Maps a console colour to what the LED shows: never darker than 65 per
    // channel, so an unlit LED still reads as a key.
    void setLedColour(const QColor& colour);
    QColor ledColour() const { return led; }
    static QColor shownLedColour(const QColor& colour);

    // While pressed, leaving the key cancels the click.
    void setTrackMouse(bool track) { trackMouse = track; }
    // Shift or Ctrl on release keeps the key held down.
    void setLatchable(bool latch) { latchable = latch; }
    // The key held down with Shift or Ctrl, if any (one program-wide).
    static Button* latchedButton() { return latched; }

    static constexpr int consoleWidth = 35;
    static constexpr int consoleHeight = 26;
    static constexpr int titleBarHeight = 27;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    Button(QGraphicsItem* parent, QGraphicsScene* scene, ButtonHandler* handler, ButtonStyle style,
           bool toggle);
    void loadBackgrounds();
    void click();
    bool pressedLook() const { return down && !outside; }
    void paintConsoleText(QPainter* painter) const;
    void drawConsoleFace(QPainter* painter) const;
    void drawConsoleCaption(QPainter* painter) const;
    void drawLed(QPainter* painter) const;
    const QPixmap& face() const { return pressedLook() ? backgroundDown : background; }
    QPixmap ledFill() const;
    struct KeyImage;
    const KeyImage& consoleKeyImage(QPainter::RenderHints hints) const;
    void paintTitleBar(QPainter* painter) const;
    void paintConsoleIcon(QPainter* painter) const;
    static QPixmap keyedIcon(const QString& path, const QColor& keyColour);
    static QPixmap textIcon(const QString& text);

    ButtonHandler* handler;
    ButtonStyle style;
    bool toggle;
    QString label;
    // The label as drawn: its font, and its one or two lines.
    QFont labelFont;
    QStringList labelLines;
    QColor led{Qt::white};
    bool down = false;
    bool pressedNow = false;
    bool trackMouse = true;
    bool latchable = false;
    bool outside = false;
    QPixmap background;
    QPixmap backgroundDown;
    QPixmap icon;

    // What a text key looks like, drawn once per look: the LED colour, the
    // pressed state and the painter's hints. Two are kept so a blinking key
    // finds both of its looks.
    struct KeyLook
    {
        QRgb led = 0;
        bool pressed = false;
        QPainter::RenderHints hints;
        bool operator==(const KeyLook& other) const
        {
            return led == other.led && pressed == other.pressed && hints == other.hints;
        }
    };
    // The LED fill, and the face and caption to draw over it.
    struct KeyImage
    {
        KeyLook look;
        QPixmap fill;
        QPixmap image;
    };
    mutable std::array<KeyImage, 2> keyImages;

    static Button* latched;
};
