// SPDX-License-Identifier: GPL-3.0-or-later
#include "TabStrip.h"

#include "MakeFont.h"
#include "Tab.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace {
constexpr int rightMargin = 38;
constexpr int textPadding = 24;
constexpr int featureLeft = 42;
constexpr QColor outlineColour(190, 190, 190);
constexpr QColor selectedFill(128, 128, 128);
constexpr QColor unselectedFill(50, 50, 50);
constexpr QColor unselectedText(128, 128, 128);
constexpr QColor baseLineColour(80, 80, 80);

QFont tabFont()
{
    return makeFont(QStringLiteral("Verdana"), 10);
}
} // namespace

TabStrip::TabStrip(QWidget* parent)
    : QWidget(parent), background(QPixmap(QStringLiteral(":/Lumidesk/Resources/BrittishGrain.png")))
{
}

void TabStrip::addTab(Tab* tab)
{
    tabs.append({tab, -1, -1});
    if (tabs.size() == 1) {
        current = 0;
        placeFeatureWidget(tab);
    } else {
        tab->deactivate();
    }
    update();
}

void TabStrip::placeFeatureWidget(Tab* owner)
{
    feature = owner->createFeatureWidget(this, featureArea);
    if (!feature)
        return;
    feature->setGeometry(featureArea);
    feature->show();
}

void TabStrip::setCurrentTab(int index)
{
    if (index == -1 || index == current || index < 0 || index >= tabs.size())
        return;
    if (feature) {
        feature->close();
        feature->deleteLater();
        feature = nullptr;
    }
    Tab* old = current >= 0 ? tabs[current].tab : nullptr;
    Tab* next = tabs[index].tab;
    next->activate();
    placeFeatureWidget(next);
    if (old)
        old->deactivate();
    current = index;
    update();
}

void TabStrip::refreshCurrentTab()
{
    if (current < 0)
        return;
    QWidget* view = tabs[current].tab->widget();
    if (!view)
        return;
    view->hide();
    view->show();
}

void TabStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(tabFont());
    painter.fillRect(rect(), background);

    const QFontMetrics metrics(painter.font());
    double x = width() - rightMargin;
    for (int i = int(tabs.size()) - 1; i >= 0; --i) {
        Entry& entry = tabs[i];
        entry.right = int(x);
        entry.left = entry.right - metrics.horizontalAdvance(entry.tab->title()) - textPadding;
        const bool selected = i == current;
        if (!selected || i == 0)
            paintTab(painter, entry, selected);
        x -= entry.right - entry.left - overlap;
    }
    // The current tab lies over both neighbours.
    if (current > 0)
        paintTab(painter, tabs[current], true);

    const QRect area(featureLeft, 0, int(x - featureLeft), height());
    if (area != featureArea) {
        featureArea = area;
        if (feature)
            feature->setGeometry(featureArea);
    }
    painter.fillRect(QRect(0, height() - 4, width(), 3), baseLineColour);
}

void TabStrip::paintTab(QPainter& painter, const Entry& entry, bool selected) const
{
    const QRect tabRect(entry.left, height() - 22, entry.right - entry.left + 1, 18);
    painter.save();
    // Only the rounded top of a taller shape shows: the tab is open below.
    painter.setClipRect(QRect(tabRect.x() - 1, tabRect.y() - 1, tabRect.width() + 2, 19));
    painter.setPen(outlineColour);
    painter.setBrush(selected ? selectedFill : unselectedFill);
    painter.drawRoundedRect(QRect(tabRect.x(), tabRect.y(), tabRect.width(), 36),
                            2400 / tabRect.width(), 63, Qt::RelativeSize);
    painter.restore();
    painter.setPen(selected ? QColor(Qt::white) : unselectedText);
    painter.drawText(tabRect, Qt::AlignCenter, entry.tab->title());
}

void TabStrip::mousePressEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    for (int i = 0; i < tabs.size(); ++i) {
        if (tabs[i].left <= x && x <= tabs[i].right) {
            setCurrentTab(i);
            return;
        }
    }
}
