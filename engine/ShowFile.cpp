// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShowFile.h"

#include "ShowData.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSaveFile>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {
constexpr char magic[8] = {'L', 'D', 'S', 'K', 'S', 'H', 'O', 'W'};
constexpr int headerSize = 16;
constexpr int digestSize = 32;
constexpr quint32 showTag = 0x574F4853;  // "SHOW"
constexpr quint32 nameTag = 0x454D414E;  // "NAME"
constexpr qint64 maxFileSize = 64 << 20; // far above any show; refuses absurd files
constexpr qsizetype writeBlockSize = 512 << 10;

ShowFile::WriteProbe writeProbe = nullptr;

void appendU16(QByteArray& out, quint16 value)
{
    char buffer[2];
    qToLittleEndian(value, buffer);
    out.append(buffer, 2);
}

void appendU32(QByteArray& out, quint32 value)
{
    char buffer[4];
    qToLittleEndian(value, buffer);
    out.append(buffer, 4);
}

void appendSection(QByteArray& out, quint32 tag, const QByteArray& data)
{
    appendU32(out, tag);
    appendU32(out, quint32(data.size()));
    out.append(data);
}

QByteArray digest(const char* data, qsizetype length)
{
    return QCryptographicHash::hash(QByteArrayView(data, length), QCryptographicHash::Sha256);
}
} // namespace

QByteArray ShowFile::encode(int consoleType, const QByteArray& showData,
                            const QString& showFileName)
{
    QByteArray out;
    out.reserve(showData.size() + 256);
    out.append(magic, sizeof magic);
    appendU16(out, formatVersion);
    appendU16(out, quint16(consoleType));
    const bool withName = !showFileName.isEmpty();
    appendU32(out, withName ? 2 : 1);
    appendSection(out, showTag, showData);
    if (withName) {
        appendSection(out, nameTag,
                      QByteArray(reinterpret_cast<const char*>(showFileName.utf16()),
                                 showFileName.size() * 2));
    }
    out.append(digest(out.constData(), out.size()));
    return out;
}

ShowFile::Contents ShowFile::decode(const QByteArray& bytes, int expectedConsoleType)
{
    Contents result;
    if (bytes.size() < headerSize + digestSize ||
        std::memcmp(bytes.constData(), magic, sizeof magic) != 0)
        return result;
    const qsizetype bodySize = bytes.size() - digestSize;
    if (digest(bytes.constData(), bodySize) != bytes.right(digestSize))
        return result;
    const uchar* data = reinterpret_cast<const uchar*>(bytes.constData());
    if (qFromLittleEndian<quint16>(data + 8) > formatVersion)
        return result;
    const int consoleType = qFromLittleEndian<quint16>(data + 10);
    const quint32 sectionCount = qFromLittleEndian<quint32>(data + 12);

    qsizetype position = headerSize;
    bool haveShow = false;
    for (quint32 i = 0; i < sectionCount; ++i) {
        if (position + 8 > bodySize)
            return result;
        const quint32 tag = qFromLittleEndian<quint32>(data + position);
        const quint32 length = qFromLittleEndian<quint32>(data + position + 4);
        position += 8;
        if (qsizetype(length) > bodySize - position)
            return result;
        const QByteArray section = bytes.mid(position, length);
        position += length;
        if (tag == showTag) {
            result.showData = section;
            haveShow = true;
        } else if (tag == nameTag && length % 2 == 0) {
            result.showFileName =
                QString(reinterpret_cast<const QChar*>(section.constData()), section.size() / 2);
        }
    }
    if (position != bodySize || !haveShow || result.showData.size() != ShowData::size())
        return result;
    result.consoleType = consoleType;
    result.status = consoleType == expectedConsoleType ? Status::Ok : Status::OtherConsoleType;
    return result;
}

ShowFile::Contents ShowFile::read(const QString& fileName, int expectedConsoleType)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() > maxFileSize)
        return {};
    return decode(file.readAll(), expectedConsoleType);
}

bool ShowFile::write(const QString& fileName, const QByteArray& bytes, QString* error)
{
    QSaveFile file(fileName);
    int step = 0;
    bool interrupted = false;
    const auto proceed = [&] {
        interrupted = writeProbe && !writeProbe(step++);
        return !interrupted;
    };
    bool ok = proceed() && file.open(QIODevice::WriteOnly);
    for (qsizetype offset = 0; ok && offset < bytes.size(); offset += writeBlockSize) {
        const qsizetype length = std::min(writeBlockSize, bytes.size() - offset);
        ok = proceed() && file.write(bytes.constData() + offset, length) == length;
    }
    ok = ok && proceed() && file.commit();
    if (!ok && error)
        *error = interrupted ? QStringLiteral("write interrupted") : file.errorString();
    return ok;
}

void ShowFile::setWriteProbe(WriteProbe probe)
{
    writeProbe = probe;
}
