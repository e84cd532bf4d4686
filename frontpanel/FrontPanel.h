// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

class FaderBlock;

// The on-screen copy of the console's surface: the panel picture of the
// model with live keys, faders, wheels and LCDs placed over it as the
// model's layout file says. A layout file in the current directory replaces
// the compiled-in one, so a panel can be adjusted without a rebuild.
class FrontPanel : public QGraphicsView
{
    Q_OBJECT

public:
    // One 2 x 20 character LCD.
    class Display : public QGraphicsItem
    {
    public:
        explicit Display(QGraphicsScene* scene);

        // Stores line 0 or 1 with the console's own characters mapped to
        // what they show, then repaints.
        void setLine(int line, const QString& text);
        QString line(int line) const;
        // The console's character codes turned into displayable text.
        static QString substituted(QString text);

        QRectF boundingRect() const override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

        static constexpr int charactersPerLine = 20;
        static constexpr int pitch = 7;
        static constexpr char16_t firstBarCell = 0x7F;
        static constexpr char16_t lastBarCell = 0x86;

    private:
        void paintLine(QPainter* painter, const QString& text, int baseline) const;

        std::array<QString, 2> lines;
    };

    explicit FrontPanel(QWidget* parent = nullptr);
    ~FrontPanel() override;

    // The panel image's and the layout file's name without extension for
    // a console type; empty for an unknown type.
    static QString baseName(int consoleType);

    // Builds the panel picture and the controls of layout base (a name from
    // baseName()); the constructor does it for the console's model.
    void loadLayout(const QString& base);

    // LCD 0 or 1, null when the layout has none.
    Display* display(int index) const;
    const QList<FaderBlock*>& faderBlocks() const { return blocks; }
    QGraphicsScene* panelScene() { return &panel; }

public slots:
    void slotDisplayUpdated(int lcdDisplay);

private:
    void buildLine(const QStringList& fields);
    void buildItems(const QStringList& fields);
    void buildButtons(const QStringList& fields);
    void buildFaders(const QStringList& fields);
    void buildWheels(const QStringList& fields);
    void buildDisplays(const QStringList& fields);
    void buildFaderBlock(const QStringList& fields);
    void buildSelectBlock(const QStringList& fields);

    QGraphicsScene panel;
    std::array<Display*, 2> displays{};
    QList<FaderBlock*> blocks;
};
