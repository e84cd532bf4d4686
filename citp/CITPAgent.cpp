// SPDX-License-Identifier: GPL-3.0-or-later
#include "CITPAgent.h"

#include "SessionKey.h"

#include "console/Console.h"
#include "console/ConsoleStateRecord.h"

#include <QDebug>

#include <algorithm>
#include <cstring>

namespace {

const QString greetingName = QStringLiteral("Lumidesk");
const QString universeNames[CITPAgent::universes] = {QStringLiteral("1"), QStringLiteral("2")};
constexpr int addressCount = CITPAgent::universes * CITPAgent::levelsPerUniverse;

} // namespace

CITPAgent* CITPAgent::s_instance = nullptr;

QByteArrayView CITPAgent::sharedLevelKey()
{
    return QByteArrayView(CITP::sessionKey.data(), qsizetype(CITP::sessionKey.size()));
}

bool CITPAgent::start(Console* console, const CITP::Manager::Settings& settings,
                      QByteArrayView levelKey)
{
    if (s_instance || !console)
        return false;
    if (!CITP::Manager::start(settings))
        return false;
    auto* agent = new CITPAgent(console, levelKey);
    s_instance = agent;
    CITP::Manager* manager = CITP::Manager::instance();
    connect(manager, &CITP::Manager::peerListChanged, agent,
            &CITPAgent::citpManagerPeerListChanged);
    connect(manager, &CITP::Manager::peerHeard, agent, &CITPAgent::citpManagerPeerHeard);
    // The engine notifies on its own thread: automatic connections run these
    // on the agent's thread, at once when the console emits there itself
    // (which is what keeps a selection a peer sent from being echoed).
    connect(console, &Console::outputsUpdated, agent, &CITPAgent::consoleCacheOutputsUpdated);
    connect(console, &Console::deviceStatusUpdated, agent,
            &CITPAgent::consoleCacheDeviceStatusUpdated);
    return true;
}

void CITPAgent::stop()
{
    if (!s_instance)
        return;
    CITP::Manager::stop();
    delete s_instance;
    s_instance = nullptr;
}

CITPAgent::CITPAgent(Console* console, QByteArrayView levelKey)
    : m_console(console), m_cipher(levelKey)
{
    m_clock.start();
    if (!m_cipher.isValid())
        qWarning("CITP: the level cipher could not be set up; no levels are sent to visualisers");
}

CITPAgent::~CITPAgent()
{
    // The manager has deleted the TCP sessions already; only ours are left.
    for (Session* session : std::as_const(m_sessions)) {
        if (session->citpSession)
            delete session->citpSession;
        delete session;
    }
}

int CITPAgent::sessionCount() const
{
    return int(std::count_if(m_sessions.cbegin(), m_sessions.cend(),
                             [](const Session* session) { return !session->closed; }));
}

int CITPAgent::establishedSessionCount() const
{
    return int(std::count_if(m_sessions.cbegin(), m_sessions.cend(),
                             [](const Session* session) { return session->established; }));
}

void CITPAgent::citpManagerPeerListChanged()
{
    CITP::Manager* manager = CITP::Manager::instance();
    if (!manager)
        return;
    const QList<CITP::PeerInfo> peers = manager->peerList();
    for (const CITP::PeerInfo& peer : peers)
        openSession(peer);
}

void CITPAgent::citpManagerPeerHeard(const CITP::PeerInfo& peer)
{
    // A peer whose session has gone (it was restarted, or was not listening
    // yet) gets a new one when it is heard again.
    openSession(peer);
}

void CITPAgent::openSession(const CITP::PeerInfo& peer)
{
    CITP::Manager* manager = CITP::Manager::instance();
    // A peer announcing port 0 takes no sessions.
    if (!manager || peer.port == 0 || hasSessionTo(peer) || !mayAttempt(peer))
        return;
    auto* session = new Session(this);
    m_sessions.append(session);
    session->citpSession = manager->connectToPeer(peer, session);
}

bool CITPAgent::hasSessionTo(const CITP::PeerInfo& peer) const
{
    return std::any_of(m_sessions.cbegin(), m_sessions.cend(), [&](const Session* session) {
        return session->citpSession && session->citpSession->peer() == peer;
    });
}

bool CITPAgent::mayAttempt(const CITP::PeerInfo& peer)
{
    const qint64 now = m_clock.elapsed();
    m_attempts.removeIf(
        [&](const Attempt& attempt) { return now - attempt.at >= reconnectIntervalMs; });
    const bool recent = std::any_of(m_attempts.cbegin(), m_attempts.cend(),
                                    [&](const Attempt& attempt) { return attempt.peer == peer; });
    if (recent)
        return false;
    m_attempts.append({peer, now});
    return true;
}

void CITPAgent::greet(Session* session)
{
    // A peer that has gone ends the session inside a send; the rest of the
    // greeting is then not sent.
    const auto sent = [session](const CITP::Message& message) {
        if (session->citpSession)
            session->citpSession->send(message);
        return !session->closed;
    };
    CITP::Message message;
    message.initPNam(greetingName);
    if (!sent(message))
        return;
    message.initEnId(greetingName);
    if (!sent(message))
        return;
    for (int universe = 0; universe < universes; ++universe) {
        message.initUNam(quint8(universe), universeNames[universe]);
        if (!sent(message))
            return;
    }
    session->established = true;
    // A visualiser that (re)connects shows the stage as it is now, not only
    // after the next change.
    if (session->citpSession)
        session->citpSession->sendStates(outputMessages());
    if (session->closed)
        return;
    const Selection selection = currentSelection();
    if (std::find(selection.cbegin(), selection.cend(), true) != selection.cend())
        sendSelection(session, selection);
}

void CITPAgent::consoleCacheOutputsUpdated()
{
    if (establishedSessionCount() == 0)
        return;
    const QList<CITP::Session::State> messages = outputMessages();
    // Sessions that end during a send stay listed until this walk is over.
    for (qsizetype i = 0; i < m_sessions.size(); ++i) {
        Session* session = m_sessions.at(i);
        if (session->established && session->citpSession)
            session->citpSession->sendStates(messages);
    }
}

QList<CITP::Session::State> CITPAgent::outputMessages() const
{
    QList<CITP::Session::State> messages;
    const ConsoleStateRecord* record = m_console ? m_console->cache()->record() : nullptr;
    // Levels go out enciphered or not at all.
    if (!record || !m_cipher.isValid())
        return messages;
    CITP::Message message;
    CITP::Message::ChannelBlock block;
    block.firstChannel = 0;
    block.channelCount = levelsPerUniverse;
    for (int universe = 0; universe < universes; ++universe) {
        block.universe = quint8(universe);
        std::memcpy(block.levels.data(), record->dmxOutput + universe * levelsPerUniverse,
                    levelsPerUniverse);
        m_cipher.encryptLittleEndian(block.levels.data(), block.levels.size());
        message.initChBk(block);
        messages.append({FirstUniverseKey + universe, message.toByteArray()});
    }
    return messages;
}

CITPAgent::Selection CITPAgent::currentSelection() const
{
    Selection selection{};
    const ConsoleStateRecord* record = m_console ? m_console->cache()->record() : nullptr;
    if (record) {
        for (int device = 0; device < devices; ++device)
            selection[device] = record->deviceSelected[device] != 0;
    }
    return selection;
}

void CITPAgent::consoleCacheDeviceStatusUpdated()
{
    const Selection current = currentSelection();
    if (current == m_lastSelection)
        return;
    for (qsizetype i = 0; i < m_sessions.size(); ++i) {
        if (m_sessions.at(i)->established)
            sendSelection(m_sessions.at(i), current);
    }
    m_lastSelection = current;
}

void CITPAgent::sendSelection(Session* session, const Selection& selection)
{
    CITP::Session* citp = session->citpSession;
    if (!citp)
        return;
    CITP::Message::Selection list;
    list.complete = true;
    for (int device = 0; device < devices; ++device) {
        if (selection[device])
            list.deviceIds.append(quint16(device + 1));
    }
    CITP::Message message;
    if (list.deviceIds.isEmpty())
        message.initDeSe({});
    else
        message.initSele(list);
    citp->sendState(SelectionKey, message);
}

void CITPAgent::applyChannelBlock(const CITP::Message::ChannelBlock& block)
{
    if (!m_console)
        return;
    // Levels are taken as they arrive; only the console's two universes
    // exist, so addresses beyond them are dropped.
    for (int i = 0; i < block.channelCount; ++i) {
        const int address = block.universe * levelsPerUniverse + block.firstChannel + i;
        if (address >= addressCount)
            break;
        m_console->writeDmx(quint16(address), block.levels[size_t(i)], false);
    }
}

void CITPAgent::applySelection(const CITP::Message::Selection& selection)
{
    ConsoleStateRecord* record = m_console ? m_console->cache()->record() : nullptr;
    if (!record)
        return;
    if (selection.complete)
        std::fill(std::begin(record->deviceSelected), std::end(record->deviceSelected), 0);
    for (quint16 id : selection.deviceIds) {
        if (id >= 1 && id <= devices)
            record->deviceSelected[id - 1] = 1;
    }
    selectionApplied();
}

void CITPAgent::applyDeselection(const QList<quint16>& deviceIds)
{
    ConsoleStateRecord* record = m_console ? m_console->cache()->record() : nullptr;
    if (!record)
        return;
    if (deviceIds.isEmpty())
        std::fill(std::begin(record->deviceSelected), std::end(record->deviceSelected), 0);
    for (quint16 id : deviceIds) {
        if (id >= 1 && id <= devices)
            record->deviceSelected[id - 1] = 0;
    }
    selectionApplied();
}

void CITPAgent::selectionApplied()
{
    // Noted before the console reports the change, so it is not sent back.
    m_lastSelection = currentSelection();
    // A peer may send thousands of selections at once: the console hears
    // of them once, after the read.
    runSoon(m_selectionReportQueued, &CITPAgent::reportSelection);
}

void CITPAgent::reportSelection()
{
    m_selectionReportQueued = false;
    if (m_console)
        m_console->deviceStatusChanged();
}

void CITPAgent::remove(Session* session)
{
    // Called from inside the TCP session, possibly deep inside one of our own
    // sends or walks: the handler is deleted once those have returned.
    session->closed = true;
    session->established = false;
    session->citpSession.clear();
    runSoon(m_deletionQueued, &CITPAgent::deleteClosedSessions);
}

void CITPAgent::runSoon(bool& queued, void (CITPAgent::*method)())
{
    if (queued)
        return;
    queued = true;
    QMetaObject::invokeMethod(this, method, Qt::QueuedConnection);
}

void CITPAgent::deleteClosedSessions()
{
    m_deletionQueued = false;
    const auto closed =
        std::stable_partition(m_sessions.begin(), m_sessions.end(),
                              [](const Session* session) { return !session->closed; });
    std::for_each(closed, m_sessions.end(), [](const Session* session) { delete session; });
    m_sessions.erase(closed, m_sessions.end());
}

CITPAgent::Session::Session(CITPAgent* agent) : agent(agent) {}

void CITPAgent::Session::connected(CITP::Session*)
{
    agent->greet(this);
}

void CITPAgent::Session::messageReceived(CITP::Session*, const CITP::Message& message)
{
    const QString sdmx = message.sdmxType();
    if (sdmx == QLatin1String("ChBk")) {
        agent->applyChannelBlock(message.parseChBk());
        return;
    }
    const QString fsel = message.fselType();
    if (fsel == QLatin1String("Sele"))
        agent->applySelection(message.parseSele());
    else if (fsel == QLatin1String("DeSe"))
        agent->applyDeselection(message.parseDeSe());
}

void CITPAgent::Session::disconnected(CITP::Session*)
{
    // The TCP session deletes itself; this one goes now.
    agent->remove(this);
}
