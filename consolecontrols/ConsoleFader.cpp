// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleFader.h"

#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "PanelEvent.h"

#include <QPainter>

namespace {
constexpr QColor green(0, 255, 0);
constexpr QColor blue(0, 0, 255);
constexpr QColor yellow(255, 255, 0);
constexpr QColor red(255, 0, 0);
constexpr QColor markerLit(252, 246, 105);
constexpr QColor markerDark(143, 120, 50);
// The grand master and the crossfader sit at full when the panel opens.
constexpr int firstFullFader = 48;
constexpr int lastFullFader = 49;

} // namespace

ConsoleFader::ConsoleFader(QGraphicsItem* parent, QGraphicsScene* scene, int faderNumber,
                           int length, bool showStatus, bool trackLevels)
    : QObject(), Fader(parent, scene, this, length, showStatus), number(faderNumber),
      showStatus(showStatus)
{
    if (number == firstFullFader || number == lastFullFader)
        setValue(1.0f, false);
    Console* console = ConsoleLink::console();
    if (showStatus) {
        updateStatusColours();
        if (console)
            connect(console, &Console::consoleStatusUpdated, this,
                    &ConsoleFader::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
    }
    if (trackLevels) {
        consoleCacheFaderUpdated();
        if (console) {
            connect(console, &Console::playLoaded, this, &ConsoleFader::consoleCachePlayLoaded,
                    Qt::QueuedConnection);
            connect(console, &Console::faderUpdated, this, &ConsoleFader::consoleCacheFaderUpdated,
                    Qt::QueuedConnection);
            connect(console, &Console::blindLevelsUpdated, this,
                    &ConsoleFader::consoleCacheBlindLevelsUpdated, Qt::QueuedConnection);
            connect(console, &Console::sequenceUpdated, this,
                    &ConsoleFader::consoleCacheSequenceUpdated, Qt::QueuedConnection);
            connect(console, &Console::pageUpdated, this, &ConsoleFader::consoleCachePageUpdated,
                    Qt::QueuedConnection);
        }
    }
}

quint8 ConsoleFader::levelOf(float value)
{
    return quint8(value * 255.5f);
}

void ConsoleFader::faderValueChanged(Fader*)
{
    Console* console = ConsoleLink::console();
    if (!console || !console->engine())
        return;
    PanelEvent event;
    event.kind = PanelEvent::PanelFader;
    event.control = quint8(number);
    event.value = levelOf(value());
    console->engine()->panelEvent(&event);
}

bool ConsoleFader::holdsSequenceWithSteps(const ConsoleCache* cache) const
{
    const int pageFader = cache->faderSequence(number);
    const int page = cache->record()->memoryPage;
    if (pageFader < 0 || pageFader >= ConsoleStateRecord::sequenceFadersPerPage || page < 0 ||
        page >= ConsoleStateRecord::pages)
        return false;
    return cache->stepCount(page, pageFader) > 0;
}

void ConsoleFader::updateStatusColours()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !showStatus)
        return;
    lastMode = cache->faderMode();
    switch (lastMode) {
    case 3:
    case 4:
        setLevelColourA(green);
        setLevelColourB(QColor());
        break;
    case 5:
        setLevelColourA(holdsSequenceWithSteps(cache) ? yellow : red);
        setLevelColourB(QColor());
        break;
    default:
        setLevelColourA(green);
        setLevelColourB(cache->record()->blindMode ? blue : QColor());
        break;
    }
}

void ConsoleFader::paintPlaybackMarker(QPainter* painter, const QRectF& rect) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const bool active = cache && number >= 0 && number < ConsoleStateRecord::maxFaders &&
                        cache->record()->faders[number].active;
    const QRectF bar(rect.left() + 2, rect.center().y() - 1.5, rect.width() - 4, 3);
    painter->fillRect(bar, active ? markerLit : markerDark);
}

void ConsoleFader::consoleCachePlayLoaded()
{
    updateStatusColours();
}

void ConsoleFader::consoleCacheFaderUpdated()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || number < 0 || number >= ConsoleStateRecord::maxFaders)
        return;
    setLevelA(cache->record()->faders[number].level / 255.0f);
}

void ConsoleFader::consoleCacheBlindLevelsUpdated()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const int channel = cache->faderChannel(cache->faderMode(), number);
    if (channel < 0 || channel >= ConsoleStateRecord::maxChannels)
        return;
    setLevelB(cache->record()->blindLevels[channel] / 255.0f);
}

void ConsoleFader::consoleCacheConsoleStatusUpdated()
{
    updateStatusColours();
}

void ConsoleFader::consoleCacheSequenceUpdated(Console::Sequence sequence)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const int pageFader = cache->faderSequence(number);
    if (pageFader >= 0 && sequence.page == cache->record()->memoryPage &&
        sequence.fader == pageFader)
        updateStatusColours();
}

void ConsoleFader::consoleCachePageUpdated(int)
{
    updateStatusColours();
}
