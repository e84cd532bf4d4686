// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InPlaceEditableTextHandler.h"

#include <QGraphicsItem>
#include <QList>
#include <QObject>

class ConsoleButton;
class InPlaceEditableText;

// The column of master keys beside the faders (independents, black out,
// solo and, except on the Maple, memories and channel banks) with the grand
// master and bump levels and the name of the current page.
class GMButtonRow : public QObject, public QGraphicsItem, public InPlaceEditableTextHandler
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    explicit GMButtonRow(QGraphicsScene* scene);
    ~GMButtonRow() override;

    const QList<ConsoleButton*>& keys() const { return buttons; }
    // The three page name lines, empty on the Maple.
    const QList<InPlaceEditableText*>& pageNameItems() const { return pageItems; }
    int currentPage() const { return page; }
    // A level byte as this column shows it: a percentage, full as "F".
    static QString levelText(int level);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void textChanged(InPlaceEditableText* item, const QString& text) override;

public slots:
    void consoleCacheFaderUpdated();
    void consoleCacheConsoleStatusUpdated();
    void consoleCachePageUpdated(int page);

private:
    void addKey(const QString& label, int key, int y);
    void reloadPageNames();

    bool maple = false;
    int page = 0;
    QList<ConsoleButton*> buttons;
    QList<InPlaceEditableText*> pageItems;
};
