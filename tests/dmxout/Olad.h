// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ola/Callback.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/TCPSocket.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>

// A private olad (tools/olad-sandbox.sh: loopback only, every plugin off) on
// a free port, killed when this goes; and OLA's side of the link, the frames
// olad passes on for the universes watched, through OLA's own client.
struct Olad
{
    QTemporaryDir config;
    QProcess process;
    const quint16 port = [] {
        QTcpServer probe;
        return probe.listen(QHostAddress::LocalHost) ? probe.serverPort() : 0;
    }();

    static ola::network::TCPSocket* connect(quint16 port)
    {
        using namespace ola::network;
        return TCPSocket::Connect(IPV4SocketAddress(IPV4Address::Loopback(), port));
    }
    ~Olad() { kill(); }
    void kill()
    {
        process.kill();
        process.waitForFinished();
    }
    // Empty when olad answers, else why not.
    QString start()
    {
        process.start(LUMIDESK_OLAD_SANDBOX, {QString::number(port), config.path()});
        const QDeadlineTimer end(10000);
        while (process.state() != QProcess::NotRunning && !end.hasExpired() &&
               !std::unique_ptr<ola::network::TCPSocket>(connect(port)))
            process.waitForFinished(50);
        if (process.state() == QProcess::Running && !end.hasExpired())
            return {};
        return "olad could not be started: " + process.readAllStandardError();
    }

    struct Reader
    {
        ola::io::SelectServer server;
        std::unique_ptr<ola::network::TCPSocket> socket;
        ola::client::OlaClient client{socket.get()};
        QHash<unsigned, QList<QByteArray>> frames;

        explicit Reader(quint16 port, const QList<unsigned>& universes = {7, 8})
            : socket(connect(port))
        {
            if (!socket || !client.Setup())
                return;
            server.AddReadDescriptor(socket.get());
            client.SetDMXCallback(ola::NewCallback(this, &Reader::received));
            int registered = 0;
            for (unsigned universe : universes)
                client.RegisterUniverse(universe, ola::client::REGISTER,
                                        ola::NewSingleCallback(this, &Reader::done, &registered));
            waitFor([&] { return registered == int(universes.size()); });
        }
        ~Reader()
        {
            if (socket)
                server.RemoveReadDescriptor(socket.get());
        }
        void received(const ola::client::DMXMetadata& frame, const ola::DmxBuffer& data)
        {
            frames[frame.universe].append(QByteArray::fromStdString(data.Get()));
        }
        void done(int* count, const ola::client::Result&) { ++*count; }
        // Runs Qt's and OLA's events until done() or five seconds have passed.
        bool waitFor(const std::function<bool()>& done)
        {
            for (QDeadlineTimer end(5000); !done() && !end.hasExpired();) {
                QCoreApplication::processEvents();
                server.RunOnce(ola::TimeInterval(0, 5000));
            }
            return done();
        }
    };
};
