// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Button.h"
#include "ButtonHandler.h"
#include "VisualiserFinder.h"

#include <QFont>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QPixmap>
#include <QPoint>
#include <QTimer>

class TitleBarHandler;

// The main window's own title bar: logo, title with the show file name,
// clock, connection and DMX input state and a row of icon buttons, some of
// which only mean something for certain views. Dragging it moves the window.
class TitleBar : public QGraphicsView, public ButtonHandler
{
    Q_OBJECT

public:
    // The title text, elided on the left so that the end of a long show
    // file path stays readable.
    class Title : public QGraphicsItem
    {
    public:
        explicit Title(const QFont& font);
        void setText(const QString& text);
        QString text() const { return title; }
        // Shown instead of the title while set.
        void setMessage(const QString& text);
        QString message() const { return note; }
        void setAvailableWidth(int width);
        int availableWidth() const { return available; }
        // What is drawn: "Lumidesk - [" + the elided text + "]".
        QString shownText() const { return shown; }

        QRectF boundingRect() const override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        void elide();

        QFont font;
        int available = 100;
        QString title;
        QString note;
        QString shown;
    };

    // Whether the console sees a valid DMX signal on its input.
    class DMXInputIndicator : public QGraphicsItem
    {
    public:
        DMXInputIndicator();
        QRectF boundingRect() const override { return QRectF(0, 0, 27, 27); }
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        QFont font;
        QPixmap good;
        QPixmap bad;
    };

    // Every item of the bar, for placing and inspecting them.
    enum class Item
    {
        Logo,
        Title,
        Clock,
        Capture,
        Console,
        Online,
        DmxInput,
        Language,
        Help,
        Sm,
        Ms,
        IfcbFx,
        Time,
        NoLines,
        OneLine,
        TwoLines,
        ThreeLines,
        Minimize,
        Close
    };

    explicit TitleBar(QWidget* mainWindow);
    ~TitleBar() override;

    void setTitle(const QString& title);
    // A short notice in place of the title for a few seconds.
    void showMessage(const QString& text, int milliseconds = messageDuration);
    void setOnline(bool online);
    // A view registers itself from its activate(); it stays until replaced.
    void setTitleBarHandler(TitleBarHandler* handler) { this->handler = handler; }
    TitleBarHandler* titleBarHandler() const { return handler; }
    void setSmMsButtonsVisible(bool visible);
    // Only the Maple has these; on other consoles the call does nothing.
    void setIfcbFxTimeButtonsVisible(bool visible);
    // The button for n lines shows when min <= n <= max; (-1, -1) hides all.
    void setLineButtonRange(int min, int max);
    // For views that use none of the SM/MS, IFCB Fx/Time and line buttons.
    void hideViewButtons();

    void buttonClicked(Button* button) override;

    QGraphicsItem* item(Item which);
    const Title& titleItem() const { return title; }
    QString onlineState() const { return onlineText.toPlainText(); }
    QString clockText() const { return clock.toPlainText(); }

    static constexpr int height = 33;
    static constexpr int messageDuration = 4000;

    // The folder the help button opens: the manual, one level above the
    // program's folder, where the build and the install both put it.
    static QString documentationFolder();

signals:
    void minimizeButtonClicked();
    void closeButtonClicked();

public slots:
    void refreshCaptureButton();
    void refreshClock();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void layoutItems();
    void captureClicked();
    void consoleClicked();
    void languageClicked();
    void helpClicked();
    static QString consoleIcon(int consoleType);

    QGraphicsScene itemScene;
    QWidget* mainWindow;
    TitleBarHandler* handler = nullptr;
    QPoint lastMousePosition;
    VisualiserFinder visualiserFinder;
    QTimer refreshTimer;
    QTimer messageTimer;
    const int consoleType;
    QGraphicsPixmapItem logo;
    Title title;
    QGraphicsTextItem clock;
    Button captureButton;
    Button consoleButton;
    QGraphicsTextItem onlineText;
    DMXInputIndicator dmxInputIndicator;
    Button languageButton;
    Button helpButton;
    Button smButton;
    Button msButton;
    Button ifcbFxButton;
    Button timeButton;
    Button noLinesButton;
    Button oneLineButton;
    Button twoLinesButton;
    Button threeLinesButton;
    Button minimizeButton;
    Button closeButton;
};
