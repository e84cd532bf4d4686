// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InPlaceEditableTextHandler.h"

#include <QGraphicsItem>
#include <QList>
#include <QObject>

class ConsoleButton;
class InPlaceEditableText;

// The Maple's long row of mode keys with their group captions and the name
// of the current page; a click on the page area picks another page.
class MLButtonRow : public QObject, public QGraphicsItem, public InPlaceEditableTextHandler
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    explicit MLButtonRow(QGraphicsScene* scene);
    ~MLButtonRow() override;

    const QList<ConsoleButton*>& keys() const { return buttons; }
    InPlaceEditableText* pageNameItem() const { return pageName; }
    int currentPage() const { return page; }
    // The page area that opens the page menu, in item coordinates.
    static QRectF pageArea();

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void textChanged(InPlaceEditableText* item, const QString& text) override;

public slots:
    void consoleCacheConsoleStatusUpdated();
    void consoleCachePageUpdated(int page);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    // A group caption: a line from x1 to x2 broken for its centred text.
    struct Caption
    {
        QString text;
        QRectF box;
        qreal x1;
        qreal x2;
    };
    static const QFont& captionFont();
    void reloadPageName();
    void addCaption(const QString& text, int x1, int x2);

    int page = 0;
    QList<Caption> captions;
    QString pageLabel;
    QList<ConsoleButton*> buttons;
    InPlaceEditableText* pageName = nullptr;
};
