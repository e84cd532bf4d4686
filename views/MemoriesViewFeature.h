// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FeatureLabel.h"
#include "InPlaceEditableTextHandler.h"

#include <QLabel>
#include <QPointer>
#include <QString>
#include <QWidget>

class InPlaceEditableText;
class MemoriesView;
class QGraphicsScene;
class QGraphicsView;

// The tab strip's header of the memories view: the current memory's number
// and name as a link that opens the memory menu and, on Maple, the memory's
// time beside a clock.
class MemoriesViewFeature : public QWidget, public InPlaceEditableTextHandler
{
    Q_OBJECT

public:
    static constexpr int timeWidth = 64;

    MemoriesViewFeature(QWidget* parent, MemoriesView* view, bool withTime);
    ~MemoriesViewFeature() override;

    // Re-reads the header text and the time.
    void refresh();

    QLabel* label() { return &m_label; }
    // Null without the time item.
    InPlaceEditableText* timeItem() const { return m_timeItem; }

    void textChanged(InPlaceEditableText* item, const QString& text) override;

public slots:
    void handleTextChanged(InPlaceEditableText* item, const QString& text);
    void linkActivated(const QString& link);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    // The strip owns the header and may outlive the view.
    QPointer<MemoriesView> m_view;
    FeatureLabel m_label;
    QGraphicsScene* m_timeScene = nullptr;
    QGraphicsView* m_timeView = nullptr;
    InPlaceEditableText* m_timeItem = nullptr;
};
