// SPDX-License-Identifier: GPL-3.0-or-later
// citp-peer: checks a show network from the visualiser's side. It announces
// itself, takes Lumidesk's session, prints every message (levels deciphered)
// and sends levels or selections typed on standard input or given by --send.

#include "CitpPeer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>

#include <unistd.h>

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

void print(const QString& line)
{
    out() << line << Qt::endl;
}

bool readPort(const QCommandLineParser& parser, const QString& option, quint16& port)
{
    if (!parser.isSet(option))
        return true;
    bool ok = false;
    const uint value = parser.value(option).toUInt(&ok);
    if (!ok || value > 65535) {
        err() << "citp-peer: --" << option << " needs a port number (0-65535)" << Qt::endl;
        return false;
    }
    port = quint16(value);
    return true;
}

bool readAddress(const QCommandLineParser& parser, const QString& option, QHostAddress& address)
{
    if (!parser.isSet(option))
        return true;
    if (!address.setAddress(parser.value(option))) {
        err() << "citp-peer: --" << option << " needs an IPv4 address, not \""
              << parser.value(option) << "\"" << Qt::endl;
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("citp-peer"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Stands in for a visualiser: announces itself, accepts Lumidesk's CITP "
                       "session and prints what arrives.\nCommands (standard input or --send): "
                       "chbk UNIVERSE FIRST L,L,...  |  sele [add] ID,...  |  dese [ID,...]; several "
                       "joined by ';' go out in one write"));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("name"), QStringLiteral("Peer name to announce."), QStringLiteral("name"),
         QStringLiteral("citp-peer")},
        {QStringLiteral("announce"),
         QStringLiteral("ploc (multicast, port 4809), pnam (port 4810) or both."),
         QStringLiteral("kind"), QStringLiteral("ploc")},
        {QStringLiteral("to"), QStringLiteral("Address PLoc goes to (default 239.224.0.180)."),
         QStringLiteral("address")},
        {QStringLiteral("ploc-port"), QStringLiteral("UDP port for PLoc (default 4809)."),
         QStringLiteral("port")},
        {QStringLiteral("pnam-to"),
         QStringLiteral("Address PNam goes to (default 255.255.255.255)."),
         QStringLiteral("address")},
        {QStringLiteral("pnam-port"), QStringLiteral("UDP port for PNam (default 4810)."),
         QStringLiteral("port")},
        {QStringLiteral("interface"), QStringLiteral("Network interface for multicast (e.g. lo)."),
         QStringLiteral("name")},
        {QStringLiteral("listen-port"),
         QStringLiteral("TCP port for sessions (default: free port; 4811 with --announce pnam)."),
         QStringLiteral("port")},
        {QStringLiteral("interval"), QStringLiteral("Milliseconds between announcements."),
         QStringLiteral("ms"), QStringLiteral("1000")},
        {QStringLiteral("send"),
         QStringLiteral("Command to send when a session opens (repeatable)."),
         QStringLiteral("command")},
        {QStringLiteral("exit-after"), QStringLiteral("Quit after this many milliseconds."),
         QStringLiteral("ms")},
    });
    parser.process(app);

    CitpPeer::Options options;
    options.name = parser.value(QStringLiteral("name"));
    const QString kind = parser.value(QStringLiteral("announce")).toLower();
    if (kind != QLatin1String("ploc") && kind != QLatin1String("pnam") &&
        kind != QLatin1String("both")) {
        err() << "citp-peer: --announce takes ploc, pnam or both" << Qt::endl;
        return 2;
    }
    options.announceLocation = kind != QLatin1String("pnam");
    options.announceName = kind != QLatin1String("ploc");
    if (!options.announceLocation)
        options.listenPort = 4811; // where Lumidesk looks for peers known only by name
    options.multicastInterface = parser.value(QStringLiteral("interface"));
    bool intervalOk = false;
    options.announceIntervalMs = parser.value(QStringLiteral("interval")).toInt(&intervalOk);
    if (!intervalOk || options.announceIntervalMs < 0) {
        err() << "citp-peer: --interval needs a number of milliseconds" << Qt::endl;
        return 2;
    }
    if (!readAddress(parser, QStringLiteral("to"), options.locationAddress) ||
        !readAddress(parser, QStringLiteral("pnam-to"), options.nameAddress) ||
        !readPort(parser, QStringLiteral("ploc-port"), options.locationPort) ||
        !readPort(parser, QStringLiteral("pnam-port"), options.namePort) ||
        !readPort(parser, QStringLiteral("listen-port"), options.listenPort))
        return 2;

    CitpPeer peer(options);
    const QStringList commands = parser.values(QStringLiteral("send"));
    QObject::connect(&peer, &CitpPeer::sessionOpened, &peer, [&](const QString& from) {
        print(QStringLiteral("session opened by %1").arg(from));
        for (const QString& command : commands) {
            QString error;
            if (!peer.sendCommand(command, &error))
                err() << "citp-peer: " << error << Qt::endl;
        }
    });
    QObject::connect(&peer, &CitpPeer::sessionClosed, &peer, [](const QString& from) {
        print(QStringLiteral("session closed by %1").arg(from));
    });
    QObject::connect(&peer, &CitpPeer::messageReceived, &peer,
                     [&](const CITP::Message& message) { print(peer.describe(message)); });

    QString error;
    if (!peer.start(&error)) {
        err() << "citp-peer: " << error << Qt::endl;
        return 1;
    }
    print(QStringLiteral("listening on TCP port %1").arg(peer.listenPort()));

    // Standard input is read as it comes, whole lines at a time.
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray pending;
    QObject::connect(&input, &QSocketNotifier::activated, &peer, [&] {
        char chunk[4096];
        const ssize_t count = ::read(STDIN_FILENO, chunk, sizeof chunk);
        if (count <= 0) {
            input.setEnabled(false); // end of input: keep serving the session
            return;
        }
        pending.append(chunk, qsizetype(count));
        qsizetype end;
        while ((end = pending.indexOf('\n')) >= 0) {
            const QString line = QString::fromLocal8Bit(pending.left(end)).trimmed();
            pending.remove(0, end + 1);
            QString commandError;
            if (!line.isEmpty() && !peer.sendCommand(line, &commandError))
                err() << "citp-peer: " << commandError << Qt::endl;
        }
    });

    if (parser.isSet(QStringLiteral("exit-after")))
        QTimer::singleShot(parser.value(QStringLiteral("exit-after")).toInt(), &app,
                           &QCoreApplication::quit);
    return app.exec();
}
