// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QList>
#include <QRect>
#include <QWidget>

class Tab;

// The row of rounded tabs under the title bar, one per editor view, with the
// current view's small feature widget at its left.
class TabStrip : public QWidget
{
    Q_OBJECT

public:
    explicit TabStrip(QWidget* parent = nullptr);

    // The first tab becomes current without being activated (its owner does
    // that); later tabs are deactivated as they come.
    void addTab(Tab* tab);
    void setCurrentTab(int index);
    // Hides and shows the current view again, after the front panel covered it.
    void refreshCurrentTab();

    int count() const { return int(tabs.size()); }
    int currentIndex() const { return current; }
    Tab* tab(int index) const { return tabs.value(index).tab; }
    QWidget* featureWidget() const { return feature; }
    QRect featureGeometry() const { return featureArea; }
    // Stored on every paint; -1 until the first.
    int tabLeft(int index) const { return tabs.value(index).left; }
    int tabRight(int index) const { return tabs.value(index).right; }

    static constexpr int overlap = 5;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Entry
    {
        Tab* tab = nullptr;
        int left = -1;
        int right = -1;
    };

    void paintTab(QPainter& painter, const Entry& entry, bool selected) const;
    void placeFeatureWidget(Tab* owner);

    QList<Entry> tabs;
    int current = -1;
    QRect featureArea;
    QWidget* feature = nullptr;
    QBrush background;
};
