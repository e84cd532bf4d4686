// SPDX-License-Identifier: GPL-3.0-or-later
#include "PeerInfo.h"

namespace CITP {

PeerInfo::PeerInfo(const QHostAddress& address, quint16 port, const QString& name)
    : address(address), port(port), name(name)
{
}

bool PeerInfo::operator==(const PeerInfo& other) const
{
    return address.isEqual(other.address, QHostAddress::TolerantConversion) && port == other.port;
}

} // namespace CITP
