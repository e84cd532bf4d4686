// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InPlaceEditableText.h"
#include "InPlaceEditableTextHandler.h"

#include <QGraphicsItem>
#include <QList>
#include <QObject>

class ConsoleButton;

// The console's 24 select keys in two rows of 12, with three legend lines
// above the upper row and below the lower one. What the legends name follows
// the console's select mode: channels, groups, palettes or effects.
class SelectBlock : public QObject, public QGraphicsItem, public InPlaceEditableTextHandler
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    // One legend line of one select key.
    class InPlaceEditableText : public ::InPlaceEditableText
    {
    public:
        InPlaceEditableText(SelectBlock* block, const QRectF& rect, int column, int line);
        int column() const { return columnIndex; }
        int line() const { return lineIndex; }

    private:
        int columnIndex;
        int lineIndex;
    };

    static constexpr int columns = 24;
    static constexpr int lines = 3;

    SelectBlock(QGraphicsScene* scene, int columnWidth, int gap, bool drawBackground);
    ~SelectBlock() override;

    int selectMode() const { return mode; }
    // Legend line of select key column + 1.
    InPlaceEditableText* legend(int column, int line) const
    {
        return legends.at(column * lines + line);
    }
    ConsoleButton* key(int column) const { return keys.at(column); }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void textChanged(::InPlaceEditableText* item, const QString& text) override;

    // Re-reads every legend line for the current select mode.
    void refresh();

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCacheEffectUpdated();
    void consoleCacheGroupUpdated(int group);
    void consoleCachePaletteUpdated(int palette);
    void consoleCacheConsoleStatusUpdated();

private:
    void refreshColumn(int column);
    void connectConsole();

    bool background;
    int mode = -1;
    QList<InPlaceEditableText*> legends; // column-major, 3 per column
    QList<ConsoleButton*> keys;
};
