// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PagesBlockHandler.h"
#include "Tab.h"
#include "TitleBarHandler.h"

#include <QGraphicsScene>
#include <QGraphicsView>

class PagesBlock;
class TitleBar;

// Every page of memories and sequences at once, named in place; a
// double-click opens the memory or sequence in its own view. The Cedar's
// 48 faders are split over two of these, faders 1-24 and 25-48.
class PagesView : public QGraphicsView, public Tab, public TitleBarHandler, public PagesBlockHandler
{
    Q_OBJECT

public:
    static constexpr int fadersShown = 24;

    // index 0 shows the first 24 faders, 1 the next 24.
    PagesView(QWidget* window, TitleBar* bar, bool wide, int index);
    ~PagesView() override;

    PagesBlock* block() const { return pages; }

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

    void setMsMode(bool ms) override;
    void setTimeMode(bool time) override;
    void setLineCount(int lines) override;

    void openSequence(int page, int fader) override;
    void openMemory(int page, int fader) override;

private:
    QGraphicsScene itemScene;
    QWidget* window;
    TitleBar* bar;
    bool high;
    PagesBlock* pages;
};
