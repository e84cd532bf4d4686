// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace ola::client {
class OlaClient;
}
namespace ola::io {
class SelectServer;
}
namespace ola::network {
class TCPSocket;
}

// A private olad on a free loopback port with every plugin but the dummy one
// disabled, so nothing leaves the machine. As root it runs as the olad user
// (or nobody): olad refuses to run as root. Killed when this goes.
class OladProcess
{
public:
    OladProcess();
    ~OladProcess();
    // Empty when olad could be started, else why not.
    QString start();
    void kill();
    quint16 port() const { return m_port; }

private:
    QTemporaryDir m_config;
    QProcess m_process;
    quint16 m_port = 0;
};

// OLA's side: the frames olad passes on for the watched universes, read
// through OLA's own callback client on the calling thread.
class OlaReader
{
public:
    explicit OlaReader(quint16 port);
    ~OlaReader();
    bool isConnected() const { return m_client != nullptr; }
    void watch(unsigned universe);
    // Runs Qt's and OLA's events until done() or five seconds have passed.
    bool waitFor(const std::function<bool()>& done);
    QHash<unsigned, QList<QByteArray>> frames;
    QByteArray last(unsigned universe) const
    {
        return frames.value(universe).value(frames.value(universe).size() - 1);
    }

private:
    std::unique_ptr<ola::io::SelectServer> m_server;
    std::unique_ptr<ola::network::TCPSocket> m_socket;
    std::unique_ptr<ola::client::OlaClient> m_client;
};
