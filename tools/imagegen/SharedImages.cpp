// SPDX-License-Identifier: GPL-3.0-or-later
// The shared image set: arrows, fader knob, wheel, fader parameter legends,
// trash can, effect directions, clock, pan/tilt field and the parameter icons.
#include "IconKit.h"
#include "ImageCatalogue.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QtMath>

#include <array>

using namespace IconKit;
using Enc = ImageCatalogue::Encoding;

namespace {

// Parameter icons are drawn centred in the rightmost 22 pixels of a 16-pixel
// high parameter cell.
const QSize iconSize(18, 16);
const QPointF iconCentre(7.5, 8);

QColor hueColour(int degrees)
{
    return QColor::fromHsv(degrees % 360, 150, 255);
}

void digit(QPainter& p, QChar c)
{
    pixelGlyph(p, 15, 11, c, amber());
}

void colourWheel(QPainter& p, const QPointF& c, qreal r, int segments, int hueOffset)
{
    const QRectF box(c.x() - r, c.y() - r, 2 * r, 2 * r);
    for (int i = 0; i < segments; ++i) {
        QPainterPath slice;
        slice.moveTo(c);
        slice.arcTo(box, 90.0 - i * 360.0 / segments, -360.0 / segments);
        slice.closeSubpath();
        p.fillPath(slice, hueColour(hueOffset + i * 360 / segments));
    }
    p.setBrush(Qt::black);
    p.setPen(Qt::NoPen);
    p.drawEllipse(c, r * 0.28, r * 0.28);
}

void goboDisc(QPainter& p, const QPointF& c, qreal r)
{
    p.setPen(stroke(ink(), 1.2));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(c, r, r);
    p.fillPath(star(c, r * 0.68, r * 0.3, 5), ink());
}

void beamCone(QPainter& p, qreal open)
{
    QLinearGradient light(2, 8, 14, 8);
    light.setColorAt(0, QColor(255, 244, 214));
    light.setColorAt(1, QColor(150, 140, 120));
    QPainterPath cone;
    cone.moveTo(4, 8 - 1.5);
    cone.lineTo(13.5, 8 - open);
    cone.lineTo(13.5, 8 + open);
    cone.lineTo(4, 8 + 1.5);
    cone.closeSubpath();
    p.fillPath(cone, light);
    p.fillRect(QRectF(0.5, 5, 3.5, 6), ink());
}

void wave(QPainter& p, bool modulated)
{
    QPainterPath path;
    for (int i = 0; i <= 26; ++i) {
        const qreal x = 1 + i * 0.5;
        const qreal amp = modulated ? 1.5 + 4.5 * std::sin(M_PI * i / 26.0) : 4.5;
        const qreal y = 8 - amp * std::sin(i * 2 * M_PI / 13.0);
        if (i == 0)
            path.moveTo(x, y);
        else
            path.lineTo(x, y);
    }
    if (modulated) {
        p.setPen(QPen(softInk(), 0.8, Qt::DotLine));
        QPainterPath envelope;
        envelope.moveTo(1, 6.5);
        envelope.quadTo(7.5, -1, 14, 6.5);
        p.drawPath(envelope);
    }
    p.setPen(stroke(ink(), 1.3));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
}

// A framing shutter blade seen from the front of the beam: side 1 top,
// 2 right, 3 bottom, 4 left; end 'a' or 'b' of the blade is pushed in.
void framingShutter(QPainter& p, int side, bool endA)
{
    const QRectF frame(1.5, 1.5, 13, 13);
    p.setPen(stroke(softInk(), 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(frame.center(), 6, 6);
    const qreal deep = 6.5;
    const qreal shallow = 2.0;
    const qreal dA = endA ? deep : shallow;
    const qreal dB = endA ? shallow : deep;
    QPainterPath blade;
    blade.moveTo(frame.topLeft());
    blade.lineTo(frame.topRight());
    blade.lineTo(frame.right(), frame.top() + dB);
    blade.lineTo(frame.left(), frame.top() + dA);
    blade.closeSubpath();
    p.save();
    p.translate(frame.center());
    p.rotate((side - 1) * 90.0);
    p.translate(-frame.center());
    p.fillPath(blade, ink());
    p.fillRect(QRectF(endA ? frame.left() - 0.5 : frame.right() - 2.5,
                      frame.top() + (endA ? dA : dB) - 0.5, 3, 3),
               amber());
    p.restore();
    p.setPen(stroke(softInk(), 0.9));
    p.drawRect(frame);
}

void addParameterIcons(ImageCatalogue& c)
{
    c.add("Wheel1.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        colourWheel(p, iconCentre, 7, 6, 0);
        digit(p, '1');
    });
    c.add("Wheel2.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        colourWheel(p, iconCentre, 7, 8, 20);
        digit(p, '2');
    });
    c.add("ModCol.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.setCompositionMode(QPainter::CompositionMode_Plus);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(230, 40, 40));
        p.drawEllipse(QPointF(5.5, 5.8), 4.6, 4.6);
        p.setBrush(QColor(40, 210, 40));
        p.drawEllipse(QPointF(11.5, 5.8), 4.6, 4.6);
        p.setBrush(QColor(70, 90, 255));
        p.drawEllipse(QPointF(8.5, 10.8), 4.6, 4.6);
    });
    c.add("ColorEff.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        colourWheel(p, QPointF(7.5, 8), 4.4, 6, 0);
        arcArrow(p, QPointF(7.5, 8), 6.6, 100, -280, amber(), 1.2, 4.5);
    });
    c.add("Shutter.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        QPainterPath bolt;
        bolt.moveTo(10, 0.5);
        bolt.lineTo(3.5, 9);
        bolt.lineTo(8, 9);
        bolt.lineTo(6, 15.5);
        bolt.lineTo(13.5, 6.5);
        bolt.lineTo(9, 6.5);
        bolt.closeSubpath();
        p.fillPath(bolt, QColor(255, 246, 200));
    });
    c.add("Beam1.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        beamCone(p, 5.5);
        digit(p, '1');
    });
    c.add("Beam2.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        beamCone(p, 5.5);
        p.setPen(stroke(QColor(90, 80, 60), 1.0));
        p.drawLine(QPointF(8, 3.5), QPointF(8, 12.5));
        digit(p, '2');
    });
    c.add("GoboSel.png", iconSize, Enc::OverBlack,
          [](QPainter& p, const QSizeF&) { goboDisc(p, iconCentre, 6.8); });
    c.add("GoboInd.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        goboDisc(p, QPointF(7.5, 9), 5.8);
        arrowHead(p, QPointF(7.5, 3.4), 90, 3.2, amber());
    });
    c.add("GoboRot.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.fillPath(star(QPointF(7.5, 8), 4.2, 1.9, 5), ink());
        arcArrow(p, QPointF(7.5, 8), 6.6, 100, -280, amber(), 1.2, 4.5);
    });
    c.add("GoboMode.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        goboDisc(p, QPointF(6.5, 8), 5.8);
        p.setPen(stroke(amber(), 1.0));
        p.drawArc(QRectF(11, 3, 6, 10), -60 * 16, 120 * 16);
        p.drawArc(QRectF(13, 1, 5, 14), -50 * 16, 100 * 16);
    });
    c.add("Zoom.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.setPen(stroke(softInk(), 1.0));
        p.drawLine(QPointF(1, 8), QPointF(12, 2));
        p.drawLine(QPointF(1, 8), QPointF(12, 14));
        p.setPen(stroke(ink(), 1.2));
        p.drawLine(QPointF(15, 3), QPointF(15, 13));
        arrowHead(p, QPointF(15, 0.8), -90, 3, ink());
        arrowHead(p, QPointF(15, 15.2), 90, 3, ink());
    });
    c.add("Edge.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        const QPointF c(8, 8);
        QRadialGradient soft(c, 7);
        soft.setColorAt(0.0, QColor(230, 230, 230));
        soft.setColorAt(0.55, QColor(180, 180, 180));
        soft.setColorAt(1.0, QColor(0, 0, 0));
        QPainterPath right;
        right.moveTo(c.x(), 0);
        right.lineTo(16, 0);
        right.lineTo(16, 16);
        right.lineTo(c.x(), 16);
        p.setClipPath(right);
        p.setPen(Qt::NoPen);
        p.setBrush(soft);
        p.drawEllipse(c, 7.5, 7.5);
        p.setClipping(false);
        QPainterPath left;
        left.moveTo(c.x(), c.y() - 6);
        left.arcTo(QRectF(c.x() - 6, c.y() - 6, 12, 12), 90, 180);
        left.closeSubpath();
        p.fillPath(left, ink());
    });
    c.add("Iris.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        const QPointF c = iconCentre;
        p.setBrush(QColor(150, 150, 150));
        p.setPen(stroke(ink(), 1.1));
        p.drawEllipse(c, 7, 7);
        QPolygonF aperture;
        for (int i = 0; i < 6; ++i) {
            const qreal a = M_PI / 3 * i + 0.3;
            aperture << c + QPointF(3 * std::cos(a), 3 * std::sin(a));
        }
        p.setBrush(Qt::black);
        p.setPen(Qt::NoPen);
        p.drawPolygon(aperture);
        p.setPen(stroke(Qt::black, 0.8));
        for (int i = 0; i < 6; ++i) {
            const qreal a = M_PI / 3 * i + 0.3;
            const QPointF corner = c + QPointF(3 * std::cos(a), 3 * std::sin(a));
            const QPointF out = c + QPointF(7 * std::cos(a + 1.1), 7 * std::sin(a + 1.1));
            p.drawLine(corner, out);
        }
    });
    c.add("Frost.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        const QPointF c = iconCentre;
        p.setPen(stroke(QColor(210, 235, 255), 1.1));
        for (int i = 0; i < 3; ++i) {
            const qreal a = M_PI / 3 * i + M_PI / 2;
            const QPointF d(std::cos(a), std::sin(a));
            p.drawLine(c - 7 * d, c + 7 * d);
            for (int s : {-1, 1}) {
                const QPointF tip = c + s * 4.6 * d;
                const QPointF n(-d.y(), d.x());
                p.drawLine(tip, tip + s * 2 * d + 2 * n);
                p.drawLine(tip, tip + s * 2 * d - 2 * n);
            }
        }
    });
    for (int u = 1; u <= 8; ++u) {
        c.add(QStringLiteral("User%1.png").arg(u), iconSize, Enc::OverBlack,
              [u](QPainter& p, const QSizeF&) {
                  // A rotary control with its pointer: a parameter the user assigns.
                  const QPointF c(7, 8);
                  p.setPen(stroke(softInk(), 1.0));
                  p.setBrush(Qt::NoBrush);
                  p.drawArc(QRectF(c.x() - 6.5, c.y() - 6.5, 13, 13), -45 * 16, 270 * 16);
                  p.setBrush(QColor(200, 200, 200));
                  p.setPen(Qt::NoPen);
                  p.drawEllipse(c, 4, 4);
                  const qreal a = qDegreesToRadians(225.0 - (u - 1) * 270.0 / 7.0);
                  p.setPen(stroke(Qt::black, 1.4));
                  p.drawLine(c, c + QPointF(3.4 * std::cos(a), -3.4 * std::sin(a)));
                  digit(p, QChar('0' + u));
              });
    }
    for (int fx = 1; fx <= 2; ++fx) {
        for (bool mod : {false, true}) {
            c.add(QStringLiteral("FX%1%2.png").arg(fx).arg(mod ? "Mod" : ""), iconSize,
                  Enc::OverBlack, [fx, mod](QPainter& p, const QSizeF&) {
                      wave(p, mod);
                      digit(p, QChar('0' + fx));
                  });
        }
    }
    for (int side = 1; side <= 4; ++side) {
        for (bool endA : {true, false}) {
            c.add(QStringLiteral("Shutter %1%2.png").arg(side).arg(endA ? 'a' : 'b'), iconSize,
                  Enc::OverBlack, [side, endA](QPainter& p, const QSizeF&) {
                      framingShutter(p, side, endA);
                      pixelGlyph(p, 15, 1, QChar('0' + side), amber());
                      pixelGlyph(p, 15, 8, endA ? 'a' : 'b', amber());
                  });
        }
    }
    c.add("Rotate.png", iconSize, Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.save();
        p.translate(8, 8);
        p.rotate(20);
        p.setPen(stroke(ink(), 1.1));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(-3.5, -3.5, 7, 7));
        p.restore();
        arcArrow(p, QPointF(8, 8), 6.8, 200, -260, amber(), 1.2, 4.5);
    });
    for (int m = 1; m <= 3; ++m) {
        c.add(QStringLiteral("Macro%1.png").arg(m), iconSize, Enc::OverBlack,
              [m](QPainter& p, const QSizeF&) {
                  QPainterPath g = gear(QPointF(7, 8), 7, 5.2, 8);
                  g.addEllipse(QPointF(7, 8), 2.2, 2.2);
                  g.setFillRule(Qt::OddEvenFill);
                  p.fillPath(g, ink());
                  digit(p, QChar('0' + m));
              });
    }
}

void addPanelImages(ImageCatalogue& c)
{
    c.add("ArrowRight.png", QSize(12, 12), Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.setPen(stroke(QColor(215, 215, 215), 1.0));
        p.setBrush(QColor(215, 215, 215));
        p.drawPolygon(QPolygonF({QPointF(3, 2), QPointF(10, 6), QPointF(3, 10)}));
    });
    c.add("ArrowDown.png", QSize(12, 12), Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        p.setPen(stroke(QColor(215, 215, 215), 1.0));
        p.setBrush(QColor(215, 215, 215));
        p.drawPolygon(QPolygonF({QPointF(2, 3), QPointF(10, 3), QPointF(6, 10)}));
    });
    c.add("FaderKnobDark.png", QSize(33, 55), Enc::GreyAlpha, [](QPainter& p, const QSizeF& s) {
        const QRectF body(1.5, 1.5, s.width() - 3, s.height() - 3);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 90));
        p.drawRoundedRect(body.translated(0.8, 1.2), 5, 5);
        QLinearGradient cap(0, body.top(), 0, body.bottom());
        cap.setColorAt(0.0, QColor(112, 112, 112));
        cap.setColorAt(0.47, QColor(52, 52, 52));
        cap.setColorAt(0.53, QColor(44, 44, 44));
        cap.setColorAt(1.0, QColor(92, 92, 92));
        p.setBrush(cap);
        p.setPen(QPen(QColor(24, 24, 24), 1.0));
        p.drawRoundedRect(body, 5, 5);
        // Finger grips: thin ridges above and below the centre line.
        for (int i = 0; i < 5; ++i) {
            for (int sgn : {-1, 1}) {
                const qreal y = s.height() / 2 + sgn * (6 + i * 4);
                p.setPen(QPen(QColor(30, 30, 30), 1.0));
                p.drawLine(QPointF(5, y), QPointF(s.width() - 5, y));
                p.setPen(QPen(QColor(128, 128, 128, 160), 1.0));
                p.drawLine(QPointF(5, y + 1), QPointF(s.width() - 5, y + 1));
            }
        }
        p.fillRect(QRectF(2, s.height() / 2 - 1, s.width() - 4, 2), QColor(245, 245, 245));
    });
    c.add("WheelBase.png", QSize(82, 82), Enc::GreyAlpha, [](QPainter& p, const QSizeF& s) {
        const QPointF c(s.width() / 2, s.height() / 2);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 110));
        p.drawEllipse(c + QPointF(1, 1.5), 40, 40);
        QRadialGradient rim(c, 40);
        rim.setColorAt(0.0, QColor(70, 70, 70));
        rim.setColorAt(0.85, QColor(48, 48, 48));
        rim.setColorAt(1.0, QColor(28, 28, 28));
        p.setBrush(rim);
        p.drawEllipse(c, 39.5, 39.5);
        // Knurled rim.
        for (int i = 0; i < 72; ++i) {
            const qreal a = 2 * M_PI * i / 72;
            const QPointF d(std::cos(a), std::sin(a));
            const int shade = 60 + static_cast<int>(40 * (0.5 - 0.5 * std::sin(a + 0.8)));
            p.setPen(QPen(QColor(shade, shade, shade), 1.2));
            p.drawLine(c + 34.5 * d, c + 39 * d);
        }
        QLinearGradient face(0, 6, 0, 76);
        face.setColorAt(0, QColor(96, 96, 96));
        face.setColorAt(1, QColor(40, 40, 40));
        p.setPen(QPen(QColor(25, 25, 25), 1.0));
        p.setBrush(face);
        p.drawEllipse(c, 33, 33);
    });
    c.add("WheelDip.png", QSize(37, 37), Enc::GreyAlpha, [](QPainter& p, const QSizeF& s) {
        const QPointF c(s.width() / 2, s.height() / 2);
        QRadialGradient dip(c + QPointF(2, 3), 17);
        dip.setColorAt(0.0, QColor(34, 34, 34));
        dip.setColorAt(0.8, QColor(54, 54, 54));
        dip.setColorAt(1.0, QColor(78, 78, 78));
        p.setBrush(dip);
        p.setPen(Qt::NoPen);
        p.drawEllipse(c, 17.5, 17.5);
        p.setPen(QPen(QColor(20, 20, 20), 1.4));
        p.drawArc(QRectF(c.x() - 17, c.y() - 17, 34, 34), 30 * 16, 180 * 16);
        p.setPen(QPen(QColor(130, 130, 130), 1.2));
        p.drawArc(QRectF(c.x() - 17, c.y() - 17, 34, 34), 210 * 16, 180 * 16);
    });
    c.add("Trashcan.png", QSize(48, 52), Enc::GreyAlpha, [](QPainter& p, const QSizeF&) {
        QLinearGradient metal(12, 0, 36, 0);
        metal.setColorAt(0.0, QColor(120, 120, 120));
        metal.setColorAt(0.35, QColor(196, 196, 196));
        metal.setColorAt(1.0, QColor(104, 104, 104));
        QPainterPath body;
        body.moveTo(10, 15);
        body.lineTo(38, 15);
        body.lineTo(35, 49);
        body.quadTo(35, 50.5, 33.5, 50.5);
        body.lineTo(14.5, 50.5);
        body.quadTo(13, 50.5, 13, 49);
        body.closeSubpath();
        p.setPen(QPen(QColor(60, 60, 60), 1.0));
        p.setBrush(metal);
        p.drawPath(body);
        for (int i = 0; i < 4; ++i) {
            const qreal x0 = 16.5 + i * 5;
            p.setPen(QPen(QColor(80, 80, 80), 1.6, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(x0, 19), QPointF(x0 + (i - 1.5) * 0.4, 46));
        }
        p.setPen(QPen(QColor(60, 60, 60), 1.0));
        p.setBrush(metal);
        p.drawRoundedRect(QRectF(7, 9, 34, 5), 2, 2);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(150, 150, 150), 2.0));
        p.drawRoundedRect(QRectF(19, 4.5, 10, 5.5), 2, 2);
    });
    auto direction = [](bool left, bool right) {
        return [left, right](QPainter& p, const QSizeF& s) {
            const QColor c(222, 222, 222);
            const qreal y = s.height() / 2;
            p.setPen(stroke(c, 1.6));
            p.drawLine(QPointF(left ? 7 : 3, y), QPointF(right ? s.width() - 7 : s.width() - 3, y));
            if (right)
                arrowHead(p, QPointF(s.width() - 2, y), 0, 6, c);
            if (left)
                arrowHead(p, QPointF(2, y), 180, 6, c);
            if (!left)
                p.fillRect(QRectF(2, y - 3.5, 1.8, 7), c);
            if (!right)
                p.fillRect(QRectF(s.width() - 3.8, y - 3.5, 1.8, 7), c);
        };
    };
    c.add("DirectionLeft.png", QSize(32, 14), Enc::OverBlack, direction(true, false));
    c.add("DirectionBoth.png", QSize(32, 14), Enc::OverBlack, direction(true, true));
    c.add("DirectionRight.png", QSize(32, 14), Enc::OverBlack, direction(false, true));
    c.add("ClockLarge.png", QSize(12, 12), Enc::OverBlack, [](QPainter& p, const QSizeF&) {
        const QPointF c(6, 6);
        p.setPen(stroke(QColor(225, 225, 225), 1.2));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(c, 5, 5);
        p.setPen(stroke(amber(), 1.2));
        p.drawLine(c, c + QPointF(0, -3.6));
        p.drawLine(c, c + QPointF(2.6, 0.6));
    });
    // Lower than the 38-pixel monitor cell, so the field never reaches the
    // neighbouring rows.
    c.add("PanTiltRoom.png", QSize(44, 34), Enc::OverBlack, [](QPainter& p, const QSizeF& s) {
        const QRectF back(13, 9, 18, 12);
        const QColor line(150, 150, 150);
        p.setPen(QPen(line, 1.0));
        p.setBrush(Qt::NoBrush);
        p.drawRect(back);
        p.drawLine(QPointF(0, 0), back.topLeft());
        p.drawLine(QPointF(s.width(), 0), back.topRight());
        p.drawLine(QPointF(0, s.height()), back.bottomLeft());
        p.drawLine(QPointF(s.width(), s.height()), back.bottomRight());
        // Floor boards converge on the back wall.
        p.setPen(QPen(QColor(110, 110, 110), 0.8));
        for (int i = 1; i < 4; ++i) {
            const qreal t = i / 4.0;
            p.drawLine(QPointF(back.left() + t * back.width(), back.bottom()),
                       QPointF(t * s.width(), s.height()));
        }
        for (qreal t : {0.25, 0.55}) {
            const qreal y = back.bottom() + t * (s.height() - back.bottom());
            const qreal x0 = back.left() * (1 - t);
            p.drawLine(QPointF(x0, y), QPointF(s.width() - x0, y));
        }
        p.setPen(QPen(QColor(120, 120, 120), 0.8, Qt::DotLine));
        p.drawLine(QPointF(s.width() / 2, 2), QPointF(s.width() / 2, s.height() - 2));
        p.drawLine(QPointF(2, s.height() / 2), QPointF(s.width() - 2, s.height() / 2));
    });
}

// The legend strip that a fader block shows when its faders control device
// parameters (page A or B), one tag per fader column.
void paramLegend(QPainter& p, const QSizeF& s, int spacing, QChar page,
                 const std::array<const char*, 12>& names)
{
    Q_UNUSED(s)
    for (int i = 0; i < 12; ++i) {
        const QRectF column(i * (38 + spacing), 0, 38, 36);
        const QRectF tag = column.adjusted(1.5, 2.5, -1.5, -2.5);
        p.setPen(QPen(QColor(96, 96, 96), 1.0));
        p.setBrush(QColor(26, 26, 26));
        p.drawRoundedRect(tag, 3, 3);
        text(p, QRectF(tag.left(), tag.top() + 1, tag.width(), 11),
             QStringLiteral("%1%2").arg(page).arg(i + 1), QStringLiteral("DejaVu Sans"), 9, true,
             amber());
        // The largest size at which the name fits the tag.
        const QString name = QString::fromLatin1(names[static_cast<std::size_t>(i)]);
        int size = 11;
        for (; size > 7; --size) {
            QFont font(QStringLiteral("Gillius ADF"));
            font.setPixelSize(size);
            font.setBold(true);
            if (QFontMetricsF(font).horizontalAdvance(name) <= tag.width() - 4)
                break;
        }
        text(p, QRectF(tag.left(), tag.top() + 12, tag.width(), 17), name,
             QStringLiteral("Gillius ADF"), size, true, QColor(232, 232, 232));
    }
}

void addFaderLegends(ImageCatalogue& c)
{
    static constexpr std::array<const char*, 12> pageA{{"Pan", "Tilt", "Color 1", "Color 2",
                                                        "Mod Col", "Gobo 1", "Gobo 2", "Gobo Rot",
                                                        "Zoom", "Edge", "Iris", "Frost"}};
    static constexpr std::array<const char*, 12> pageB{{"Shutter", "Beam 1", "Beam 2", "FX 1",
                                                        "FX1 Mod", "FX 2", "FX2 Mod", "Col Eff",
                                                        "Rotate", "Macro 1", "Macro 2", "Macro 3"}};
    // Twelve faders 38 wide, 13 apart (normal) or 2 apart (narrow).
    const QSize wide(11 * 13 + 12 * 38 + 2, 36);
    const QSize narrow(11 * 2 + 12 * 38 + 2, 36);
    c.add("ParamA.png", wide, Enc::OverBlack,
          [](QPainter& p, const QSizeF& s) { paramLegend(p, s, 13, 'A', pageA); });
    c.add("ParamA Narrow.png", narrow, Enc::OverBlack,
          [](QPainter& p, const QSizeF& s) { paramLegend(p, s, 2, 'A', pageA); });
    c.add("ParamB.png", wide, Enc::OverBlack,
          [](QPainter& p, const QSizeF& s) { paramLegend(p, s, 13, 'B', pageB); });
    c.add("ParamB Narrow.png", narrow, Enc::OverBlack,
          [](QPainter& p, const QSizeF& s) { paramLegend(p, s, 2, 'B', pageB); });
}

} // namespace

void addSharedImages(ImageCatalogue& catalogue)
{
    addPanelImages(catalogue);
    addFaderLegends(catalogue);
    addParameterIcons(catalogue);
}
