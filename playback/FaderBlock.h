// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ButtonHandler.h"
#include "Console.h"
#include "InPlaceEditableText.h"
#include "InPlaceEditableTextHandler.h"

#include <QGraphicsItem>
#include <QList>
#include <QObject>

class ConsoleButton;
class ConsoleFader;

// A strip of console faders, each with its flash key and three legend lines
// that follow the console's fader mode: the channel of a bank, or the
// sequence or memory on that fader of the current page.
class FaderBlock : public QObject,
                   public QGraphicsItem,
                   public InPlaceEditableTextHandler,
                   public ButtonHandler
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    // A legend line (0-2) or the value line (3) of one fader.
    class InPlaceEditableText : public ::InPlaceEditableText
    {
    public:
        InPlaceEditableText(FaderBlock* block, const QRectF& rect, Qt::Alignment alignment,
                            int fader, int line);
        int fader() const { return faderIndex; }
        int line() const { return lineIndex; }

    private:
        int faderIndex;
        int lineIndex;
    };
    static constexpr int valueLine = 3;

    FaderBlock(QGraphicsScene* scene, int first, int count, int faderLength, int spacing, int gap,
               int buttonOffset, bool trackLevels);
    ~FaderBlock() override;

    int first() const { return firstFader; }
    int count() const { return faderTotal; }
    int faderMode() const { return mode; }
    // Items of the i-th fader of the block (0 = the first shown).
    ConsoleFader* fader(int i) const { return faders.at(i); }
    ConsoleButton* flashButton(int i) const { return buttons.at(i); }
    InPlaceEditableText* legend(int i, int line) const { return legends.at(i * 3 + line); }
    InPlaceEditableText* valueItem(int i) const { return values.at(i); }
    Button* zeroButton() const { return zero; }
    // The panel key of a fader's flash button: the keys of faders 25 and up
    // follow the console's other keys.
    static int flashKey(int fader);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void buttonClicked(Button* button) override;
    void textChanged(::InPlaceEditableText* item, const QString& text) override;

    // Re-reads every legend and value line for the current mode and page.
    void refresh();

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCacheMemoryUpdated(Console::Memory memory);
    void consoleCacheSequenceUpdated(Console::Sequence sequence);
    void consoleCacheConsoleStatusUpdated();
    // Repaints the markers of faders that started or stopped playing.
    void consoleCacheFaderUpdated();

private:
    qreal columnX(int i) const { return i * (38 + spacing); }
    QRectF markerRect(int i) const;
    bool isPlaying(int i) const;
    void refreshFader(int i);
    void showChannel(int i);
    void showPlayback(int i);
    void clearFader(int i);
    bool holdsSequence(int fader) const;
    bool holdsMemory(int fader) const;
    void readModeAndPage();
    void connectConsole();

    int firstFader;
    int faderTotal;
    int spacing;
    int mode = -1;
    int page = 0;
    QList<ConsoleFader*> faders;
    QList<ConsoleButton*> buttons;
    QList<InPlaceEditableText*> legends;
    QList<InPlaceEditableText*> values;
    // Whether each fader was playing when its marker was last painted.
    QList<bool> playing;
    Button* zero = nullptr;
};
