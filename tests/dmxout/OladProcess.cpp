// SPDX-License-Identifier: GPL-3.0-or-later
#include "OladProcess.h"

#include <ola/Callback.h>
#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/SocketAddress.h>
#include <ola/network/TCPSocket.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>

#include <pwd.h>
#include <unistd.h>

namespace {
const QStringList plugins = {"artnet", "e131",       "espnet",  "ftdidmx", "gpio",
                             "karate", "kinet",      "milinst", "opendmx", "openpixelcontrol",
                             "osc",    "pathport",   "renard",  "sandnet", "shownet",
                             "spi",    "stageprofi", "uartdmx", "usbdmx",  "usbserial"};
} // namespace

OladProcess::OladProcess()
{
    for (const QString& plugin : plugins) {
        QFile file(m_config.filePath("ola-" + plugin + ".conf"));
        if (file.open(QIODevice::WriteOnly))
            file.write("enabled = false\n");
    }
    QTcpServer probe; // a port free now, handed to olad
    if (probe.listen(QHostAddress::LocalHost))
        m_port = probe.serverPort();
}

OladProcess::~OladProcess()
{
    kill();
}

QString OladProcess::start()
{
    const QString olad = QStandardPaths::findExecutable("olad");
    if (olad.isEmpty() || !m_config.isValid() || m_port == 0)
        return "olad is not installed (Debian: ola) or no config folder or port";
    QStringList arguments = {olad,
                             "--config-dir",
                             m_config.path(),
                             "--rpc-port",
                             QString::number(m_port),
                             "--no-http",
                             "--no-register-with-dns-sd"};
    if (geteuid() == 0) {
        const passwd* user = getpwnam("olad");
        const uid_t uid = user ? user->pw_uid : 65534;
        const QStringList paths = QDir(m_config.path()).entryList(QDir::Files) << ".";
        for (const QString& path : paths)
            if (chown(qPrintable(m_config.filePath(path)), uid, 65534) != 0)
                return "cannot hand the config folder to olad's user";
        arguments =
            QStringList{"--reuid=" + QString::number(uid), "--regid=65534", "--clear-groups"} +
            arguments;
    }
    m_process.start(geteuid() == 0 ? "setpriv" : arguments.takeFirst(), arguments);
    const QDeadlineTimer deadline(10000);
    QTcpSocket socket;
    while (m_process.state() != QProcess::NotRunning && !deadline.hasExpired()) {
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        if (socket.waitForConnected(200))
            return {};
        socket.abort();
        m_process.waitForFinished(100);
    }
    return "olad did not start: " + m_process.readAllStandardError().right(300);
}

void OladProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished(5000);
}

OlaReader::OlaReader(quint16 port) : m_server(std::make_unique<ola::io::SelectServer>())
{
    using namespace ola::network;
    m_socket.reset(TCPSocket::Connect(IPV4SocketAddress(IPV4Address::Loopback(), port)));
    if (!m_socket)
        return;
    m_client = std::make_unique<ola::client::OlaClient>(m_socket.get());
    m_client->Setup();
    m_server->AddReadDescriptor(m_socket.get());
    m_client->SetDMXCallback(ola::NewCallback(
        +[](OlaReader* reader, const ola::client::DMXMetadata& metadata,
            const ola::DmxBuffer& data) {
            reader->frames[metadata.universe].append(QByteArray::fromStdString(data.Get()));
        },
        this));
}

OlaReader::~OlaReader()
{
    if (m_client) {
        m_server->RemoveReadDescriptor(m_socket.get());
        m_client->Stop();
    }
}

void OlaReader::watch(unsigned universe)
{
    bool done = false;
    m_client->RegisterUniverse(
        universe, ola::client::REGISTER,
        ola::NewSingleCallback(
            +[](bool* done, const ola::client::Result&) { *done = true; }, &done));
    waitFor([&] { return done; });
}

bool OlaReader::waitFor(const std::function<bool()>& done)
{
    const QDeadlineTimer deadline(5000);
    while (!done() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        m_server->RunOnce(ola::TimeInterval(0, 5000));
    }
    return done();
}
