// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QMetaType>
#include <QString>

namespace CITP {

// A peer as its announcement describes it. Address and port identify it; the
// name is only shown.
class PeerInfo
{
public:
    PeerInfo() = default;
    PeerInfo(const QHostAddress& address, quint16 port, const QString& name);
    virtual ~PeerInfo() = default;
    PeerInfo(const PeerInfo&) = default;
    PeerInfo& operator=(const PeerInfo&) = default;

    bool operator==(const PeerInfo& other) const;
    bool operator!=(const PeerInfo& other) const { return !(*this == other); }

    QHostAddress address;
    quint16 port = 0;
    QString name;
};

} // namespace CITP

Q_DECLARE_METATYPE(CITP::PeerInfo)
