// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Blowfish.h"
#include "Manager.h"
#include "Message.h"
#include "PeerInfo.h"
#include "Session.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>

#include <array>

class Console;

// The bridge between the console and the visualisers on the network: it
// opens a session to every peer discovery reports, introduces Lumidesk, sends
// both DMX output universes (levels enciphered) on every output change and the
// device selection when it changes, and applies levels and selections a peer
// sends back.
class CITPAgent : public QObject
{
    Q_OBJECT

public:
    static constexpr int universes = 2;
    static constexpr int levelsPerUniverse = CITP::Message::levelsPerUniverse;
    static constexpr int devices = 24;
    // A peer whose session failed or ended is tried again when it announces
    // itself, but not more often than this.
    static constexpr int reconnectIntervalMs = 1000;

    // The peer-side state a session carries; the newest of each replaces an
    // unsent older one.
    enum StateKey : int
    {
        FirstUniverseKey = 0,
        SelectionKey = universes
    };

    // Starts listening for peers; false when an agent runs already (the
    // program then goes on without CITP). Tests pass their own ports and key.
    static bool start(Console* console,
                      const CITP::Manager::Settings& settings = CITP::Manager::Settings(),
                      QByteArrayView levelKey = sharedLevelKey());
    // The key the visualisers share for the level blocks.
    static QByteArrayView sharedLevelKey();
    // Stops the manager (and with it every session), then deletes the agent.
    static void stop();
    static CITPAgent* instance() { return s_instance; }

    int sessionCount() const;
    int establishedSessionCount() const;

public slots:
    void citpManagerPeerListChanged();
    void consoleCacheOutputsUpdated();
    void consoleCacheDeviceStatusUpdated();

private slots:
    void citpManagerPeerHeard(const CITP::PeerInfo& peer);

private:
    class Session final : public CITP::Session::Handler
    {
    public:
        explicit Session(CITPAgent* agent);

        void connected(CITP::Session* session) override;
        void messageReceived(CITP::Session* session, const CITP::Message& message) override;
        void disconnected(CITP::Session* session) override;

        CITPAgent* agent;
        QPointer<CITP::Session> citpSession;
        bool established = false;
        // Ended; deleted once no call into it is running any more.
        bool closed = false;
    };

    using Selection = std::array<bool, devices>;

    CITPAgent(Console* console, QByteArrayView levelKey);
    ~CITPAgent() override;

    void openSession(const CITP::PeerInfo& peer);
    bool hasSessionTo(const CITP::PeerInfo& peer) const;
    bool mayAttempt(const CITP::PeerInfo& peer);
    void greet(Session* session);
    // Both universes as enciphered ChBk, ready for every session.
    QList<CITP::Session::State> outputMessages() const;
    void sendSelection(Session* session, const Selection& selection);
    void applyChannelBlock(const CITP::Message::ChannelBlock& block);
    void applySelection(const CITP::Message::Selection& selection);
    void applyDeselection(const QList<quint16>& deviceIds);
    void selectionApplied();
    void remove(Session* session);
    void deleteClosedSessions();
    void reportSelection();
    // Runs the method once from the event loop, however often it is asked
    // for before then.
    void runSoon(bool& queued, void (CITPAgent::*method)());
    Selection currentSelection() const;

    static CITPAgent* s_instance;

    QList<Session*> m_sessions;
    bool m_deletionQueued = false;
    bool m_selectionReportQueued = false;
    Selection m_lastSelection{};
    QPointer<Console> m_console;
    // Every session uses the same fixed key, and ECB gives the same bytes
    // for the same levels, so each universe is enciphered once per change.
    CITP::Blowfish m_cipher;
    struct Attempt
    {
        CITP::PeerInfo peer;
        qint64 at;
    };
    QList<Attempt> m_attempts;
    QElapsedTimer m_clock;
};
