// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's images: title-bar button faces and icons, the console
// buttons per model, the DMX input state, the console key faces and the
// fader block's zero key.
#include "WindowImages.h"

#include "IconKit.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <QtMath>

using namespace IconKit;
using Enc = ImageCatalogue::Encoding;

namespace {

// Icons are painted opaque on the key colour; the program makes exactly
// this colour transparent, so the button face shows through it.
const QColor keyColour(78, 78, 78);
const QSize iconSize(27, 27);
const QColor iconInk(205, 205, 205);
const QString letterFamily = QStringLiteral("DejaVu Sans");

// -- Faces -------------------------------------------------------------------

// The middle columns are stretched to the icon's width, so the face shades
// only from top to bottom.
void titleBarFace(QPainter& p, const QSizeF& s, bool down)
{
    const QRectF body(0.5, 0.5, s.width() - 1, s.height() - 1);
    QLinearGradient face(0, body.top(), 0, body.bottom());
    face.setColorAt(0.0, down ? QColor(62, 62, 62) : QColor(92, 92, 92));
    face.setColorAt(0.5, down ? QColor(72, 72, 72) : QColor(80, 80, 80));
    face.setColorAt(1.0, down ? QColor(80, 80, 80) : QColor(66, 66, 66));
    p.setPen(QPen(QColor(14, 14, 14), 1.0));
    p.setBrush(face);
    p.drawRoundedRect(body, 4, 4);
    const QColor edge = down ? QColor(0, 0, 0, 110) : QColor(255, 255, 255, 46);
    p.setPen(QPen(edge, 1.0));
    p.drawLine(QPointF(4, 1.5), QPointF(s.width() - 4, 1.5));
    if (!down) {
        p.setPen(QPen(QColor(0, 0, 0, 70), 1.0));
        p.drawLine(QPointF(4, s.height() - 1.5), QPointF(s.width() - 4, s.height() - 1.5));
    }
}

// A console key is translucent: the LED colour painted under it lights the
// whole key, and an unlit key reads as light grey for its black label.
void consoleFace(QPainter& p, const QSizeF& s, bool down)
{
    const QRectF rim(1.5, 0.5, s.width() - 3, s.height() - 1);
    p.setPen(QPen(QColor(18, 18, 18), 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(rim, 3, 3);
    const QRectF face = rim.adjusted(1.5, 1.5, -1.5, -1.5);
    QLinearGradient light(0, face.top(), 0, face.bottom());
    light.setColorAt(0.0, QColor(255, 255, 255, down ? 120 : 160));
    light.setColorAt(1.0, QColor(255, 255, 255, down ? 92 : 112));
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawRoundedRect(face, 2, 2);
    if (down) {
        p.fillRect(QRectF(face.left() + 1, face.top(), face.width() - 2, 1), QColor(0, 0, 0, 80));
    } else {
        p.fillRect(QRectF(face.left() + 1, face.top(), face.width() - 2, 1),
                   QColor(255, 255, 255, 150));
        p.fillRect(QRectF(face.left() + 1, face.bottom() - 1, face.width() - 2, 1),
                   QColor(0, 0, 0, 60));
    }
}

// -- Icons -------------------------------------------------------------------

using IconPainter = std::function<void(QPainter&, const QSizeF&)>;

IconPainter keyed(IconPainter paint)
{
    return [paint](QPainter& p, const QSizeF& s) {
        p.fillRect(QRectF(QPointF(0, 0), s), keyColour);
        paint(p, s);
    };
}

void letters(QPainter& p, const QSizeF& s, const QString& text, int pixelSize)
{
    IconKit::text(p, QRectF(QPointF(0, 0), s), text, letterFamily, pixelSize, true, iconInk);
}

void captureIcon(QPainter& p, const QSizeF&)
{
    // A stage box seen from the front with a light in its top corner: the
    // visualiser's window.
    const QPolygonF front({QPointF(6, 10), QPointF(17, 10), QPointF(17, 21), QPointF(6, 21)});
    const QPolygonF top({QPointF(6, 10), QPointF(10, 6), QPointF(21, 6), QPointF(17, 10)});
    const QPolygonF side({QPointF(17, 10), QPointF(21, 6), QPointF(21, 17), QPointF(17, 21)});
    p.setPen(stroke(iconInk, 1.2));
    p.setBrush(QColor(48, 48, 52));
    p.drawPolygon(front);
    p.setBrush(QColor(110, 110, 114));
    p.drawPolygon(top);
    p.setBrush(QColor(62, 62, 66));
    p.drawPolygon(side);
    QPainterPath beam;
    beam.moveTo(8, 12);
    beam.lineTo(9.5, 12);
    beam.lineTo(15, 20);
    beam.lineTo(9, 20);
    beam.closeSubpath();
    p.fillPath(beam, QColor(255, 200, 90, 200));
    p.setPen(Qt::NoPen);
    p.setBrush(amber());
    p.drawEllipse(QPointF(8.7, 12), 1.6, 1.6);
}

void helpIcon(QPainter& p, const QSizeF& s)
{
    p.setPen(stroke(iconInk, 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(13.5, 13.5), 8, 8);
    IconKit::text(p, QRectF(QPointF(0, 0.5), s), QStringLiteral("?"), letterFamily, 12, true,
                  iconInk);
}

void timeIcon(QPainter& p, const QSizeF&)
{
    const QPointF centre(13.5, 13.5);
    p.setPen(stroke(iconInk, 1.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(centre, 8, 8);
    for (int h = 0; h < 12; h += 3) {
        const qreal a = qDegreesToRadians(h * 30.0);
        p.drawPoint(centre + QPointF(6 * std::sin(a), -6 * std::cos(a)));
    }
    p.setPen(stroke(amber(), 1.6));
    p.drawLine(centre, centre + QPointF(0, -5.5));
    p.setPen(stroke(iconInk, 1.6));
    p.drawLine(centre, centre + QPointF(3.8, 1.6));
}

// A cell of the pages grid showing that many lines of its name.
IconPainter linesIcon(int lines)
{
    return [lines](QPainter& p, const QSizeF&) {
        const QRectF cell(6.5, 6.5, 14, 14);
        p.setPen(QPen(iconInk, 1.0));
        p.setBrush(QColor(40, 40, 44));
        p.drawRect(cell);
        p.fillRect(QRectF(7, 7, 13, 3), QColor(110, 110, 116));
        for (int l = 0; l < lines; ++l)
            p.fillRect(QRectF(9, 12 + l * 3, l == lines - 1 ? 6 : 9, 1.5), amber());
    };
}

void minimizeIcon(QPainter& p, const QSizeF&)
{
    p.fillRect(QRectF(8, 17, 11, 2.2), iconInk);
}

void closeIcon(QPainter& p, const QSizeF&)
{
    p.setPen(stroke(iconInk, 2.0));
    p.drawLine(QPointF(9, 9), QPointF(18, 18));
    p.drawLine(QPointF(18, 9), QPointF(9, 18));
}

struct MiniConsole
{
    int faders;    // per row
    int rows;      // fader rows
    bool displays; // LCDs and wheels at the right
    QColor accent; // the model's colour stripe
};

// A plan view of the console at title-bar size.
IconPainter consoleIcon(MiniConsole look)
{
    return [look](QPainter& p, const QSizeF& s) {
        const QRectF desk(2.5, 5.5, s.width() - 5, 16);
        QLinearGradient shell(0, desk.top(), 0, desk.bottom());
        shell.setColorAt(0, QColor(58, 58, 62));
        shell.setColorAt(1, QColor(30, 30, 33));
        p.setPen(QPen(QColor(170, 170, 170), 1.0));
        p.setBrush(shell);
        p.drawRoundedRect(desk, 2, 2);
        p.fillRect(QRectF(desk.left() + 2, desk.top() + 1.5, desk.width() - 4, 1), look.accent);

        const qreal right = desk.right() - (look.displays ? 17 : 9);
        const qreal pitch = (right - desk.left() - 3) / look.faders;
        const qreal rowHeight = 11.0 / look.rows;
        for (int row = 0; row < look.rows; ++row) {
            const qreal top = desk.top() + 4 + row * rowHeight;
            for (int f = 0; f < look.faders; ++f) {
                const qreal x = std::floor(desk.left() + 3 + pitch * (f + 0.5)) + 0.5;
                p.fillRect(QRectF(x - 0.5, top, 1, rowHeight - 1), QColor(12, 12, 12));
                const qreal pos = 0.5 + 0.5 * std::sin(f * 1.3 + row * 2.1);
                p.fillRect(QRectF(x - 1, top + (1 - pos) * (rowHeight - 3), 2, 2),
                           QColor(225, 225, 225));
            }
        }
        const qreal panel = right + 2;
        if (look.displays) {
            p.fillRect(QRectF(panel, desk.top() + 4, 8, 3), QColor(90, 160, 240));
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(150, 150, 154));
            p.drawEllipse(QPointF(panel + 11.5, desk.top() + 5.5), 2, 2);
            for (int k = 0; k < 4; ++k)
                p.fillRect(QRectF(panel + k * 3.5, desk.top() + 10, 2.5, 2), iconInk);
            p.fillRect(QRectF(panel, desk.top() + 13.5, 12, 1), QColor(255, 90, 70));
        } else {
            p.fillRect(QRectF(panel, desk.top() + 4, 5, 2.5), QColor(90, 160, 240));
            for (int r = 0; r < 2; ++r)
                for (int k = 0; k < 2; ++k)
                    p.fillRect(QRectF(panel + k * 3, desk.top() + 8.5 + r * 3, 2, 2), iconInk);
        }
    };
}

// An XLR socket; its ring tells whether a DMX signal is coming in.
IconPainter dmxInputIcon(const QColor& ring, bool good)
{
    return [ring, good](QPainter& p, const QSizeF&) {
        const QPointF centre(9, 8);
        p.setPen(QPen(ring, 1.6));
        p.setBrush(QColor(28, 28, 30));
        p.drawEllipse(centre, 6.6, 6.6);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(205, 205, 205));
        for (int pin = 0; pin < 5; ++pin) {
            const qreal a = qDegreesToRadians(-90.0 + pin * 72.0);
            p.drawEllipse(centre + QPointF(3.4 * std::cos(a), 3.4 * std::sin(a)), 0.9, 0.9);
        }
        if (!good) {
            p.setPen(QPen(ring, 1.4, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(4.5, 12.5), QPointF(13.5, 3.5));
        }
    };
}

void faderZeroIcon(QPainter& p, const QSizeF&)
{
    // Drawn dark: it sits on a lit console key.
    const QColor ink(24, 24, 24);
    p.setPen(stroke(ink, 1.4));
    p.drawLine(QPointF(10.5, 6), QPointF(10.5, 15.5));
    arrowHead(p, QPointF(10.5, 19), 90, 4, ink);
    p.fillRect(QRectF(6.5, 19.5, 8, 1.4), ink);
    IconKit::text(p, QRectF(15, 3, 16, 20), QStringLiteral("0"), letterFamily, 13, true, ink);
}

} // namespace

void addWindowImages(ImageCatalogue& c)
{
    c.add("TitleBarButton.png", iconSize, Enc::Plain,
          [](QPainter& p, const QSizeF& s) { titleBarFace(p, s, false); });
    c.add("TitleBarButtonDepressed.png", iconSize, Enc::Plain,
          [](QPainter& p, const QSizeF& s) { titleBarFace(p, s, true); });
    c.add("ConsoleButton.png", QSize(35, 26), Enc::Plain,
          [](QPainter& p, const QSizeF& s) { consoleFace(p, s, false); });
    c.add("ConsoleButtonDepressed.png", QSize(35, 26), Enc::Plain,
          [](QPainter& p, const QSizeF& s) { consoleFace(p, s, true); });

    c.add("TitleBarCaptureButton.png", iconSize, Enc::Plain, keyed(captureIcon));
    c.add("TitleBarHelpButton.png", iconSize, Enc::Plain, keyed(helpIcon));
    c.add("TitleBarSMButton.png", iconSize, Enc::Plain,
          keyed([](QPainter& p, const QSizeF& s) { letters(p, s, QStringLiteral("SM"), 10); }));
    c.add("TitleBarMSButton.png", iconSize, Enc::Plain,
          keyed([](QPainter& p, const QSizeF& s) { letters(p, s, QStringLiteral("MS"), 10); }));
    c.add(
        "TitleBarIFCBFxButton.png", QSize(66, 27), Enc::Plain,
        keyed([](QPainter& p, const QSizeF& s) { letters(p, s, QStringLiteral("IFCB Fx"), 11); }));
    c.add("TitleBarTimeButton.png", iconSize, Enc::Plain, keyed(timeIcon));
    c.add("TitleBarNoLinesButton.png", iconSize, Enc::Plain, keyed(linesIcon(0)));
    c.add("TitleBarOneLineButton.png", iconSize, Enc::Plain, keyed(linesIcon(1)));
    c.add("TitleBarTwoLinesButton.png", iconSize, Enc::Plain, keyed(linesIcon(2)));
    c.add("TitleBarThreeLinesButton.png", iconSize, Enc::Plain, keyed(linesIcon(3)));
    c.add("TitleBarMinimizeButton.png", iconSize, Enc::Plain, keyed(minimizeIcon));
    c.add("TitleBarCloseButton.png", iconSize, Enc::Plain, keyed(closeIcon));

    c.add("TitleBarAlderConsoleButton.png", QSize(42, 27), Enc::Plain,
          keyed(consoleIcon({6, 2, false, QColor(90, 150, 90)})));
    c.add("TitleBarBirchConsoleButton.png", QSize(42, 27), Enc::Plain,
          keyed(consoleIcon({6, 2, false, QColor(200, 200, 190)})));
    c.add("TitleBarCedarConsoleButton.png", QSize(66, 27), Enc::Plain,
          keyed(consoleIcon({12, 2, false, QColor(170, 70, 60)})));
    c.add("TitleBarMapleConsoleButton.png", QSize(65, 27), Enc::Plain,
          keyed(consoleIcon({10, 2, true, QColor(214, 120, 40)})));

    c.add("TitleBarDMXInputGood.png", QSize(18, 16), Enc::Plain,
          dmxInputIcon(QColor(90, 210, 100), true));
    c.add("TitleBarDMXInputBad.png", QSize(18, 16), Enc::Plain,
          dmxInputIcon(QColor(225, 70, 60), false));

    c.add("FaderZeroButton.png", QSize(35, 26), Enc::Plain, keyed(faderZeroIcon));
}
