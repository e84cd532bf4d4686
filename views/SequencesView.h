// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"
#include "PagesBlockHandler.h"
#include "SequencesViewFeature.h"
#include "ShowItemHandler.h"
#include "Tab.h"
#include "TitleBarHandler.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>

class Cuelist;
class Cuematrix;
class PagesBlock;
class QMenu;
class Timeline;
class TitleBar;

// The tab in which one sequence or the stack is edited: its timeline on top,
// the cue list and the cue matrix below it, and on the right the pages block
// whose sequence faders open a sequence here. The tab strip's link and other views choose the
// sequence too.
class SequencesView : public QGraphicsView,
                      public Tab,
                      public TitleBarHandler,
                      public PagesBlockHandler,
                      public ShowItemHandler
{
    Q_OBJECT

public:
    static constexpr int stackListRows = 12;
    static constexpr int sequenceListRows = 26;
    static constexpr int stackMatrixLines = 11;
    static constexpr int sequenceMatrixLines = 4;
    static constexpr QPointF stackMatrixPos{0, 400};
    static constexpr QPointF sequenceMatrixPos{0, 695};

    SequencesView(QWidget* parent, TitleBar* bar);
    ~SequencesView() override;

    Console::Sequence sequence() const { return current; }
    // The one operation that changes what is shown.
    void setSequence(Console::Sequence sequence);
    // Whether a key names the stack or an existing sequence.
    static bool isValidSequence(Console::Sequence sequence);

    Timeline* timeline() const { return timelineBlock; }
    Cuelist* cuelist() const { return list; }
    Cuematrix* cuematrix() const { return matrix; }
    PagesBlock* pagesBlock() const { return pages; }
    SequencesViewFeature* feature() const { return featureWidget; }
    QString featureText() const;

    // The menu of the stack and every sequence; the caller owns it.
    QMenu* createSequenceMenu(QWidget* parent) const;
    // Opens that menu at a screen position and edits what is chosen.
    void openSequenceMenu(const QPoint& at);
    // Edits the sequence a menu entry's data names; false (and nothing
    // changes) for data that does not parse.
    bool chooseMenuEntry(const QString& data);
    void featureDestroyed(SequencesViewFeature* widget);

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

    void setMsMode(bool ms) override;
    void setLineCount(int lines) override;

    void openSequence(int page, int fader) override;
    void openMemory(int page, int fader) override;

    void showSequence(Console::Sequence sequence) override;

private:
    void fitScene();

    QGraphicsScene scene;
    TitleBar* bar;
    Console::Sequence current;
    QPointer<SequencesViewFeature> featureWidget;
    Timeline* timelineBlock = nullptr;
    Cuelist* list = nullptr;
    Cuematrix* matrix = nullptr;
    PagesBlock* pages = nullptr;
};
