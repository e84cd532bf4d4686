// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the simulated console as a show file to open:
// once as they are (the checksum stops almost everything) and once with the
// checksum made right, so that versions, the model check and every count and
// offset are reached. A file loads completely or is refused, and a refused
// file leaves the console's record byte for byte as it was.

#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "ModelProfile.h"
#include "RecordArea.h"
#include "ShowData.h"
#include "ShowFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {
constexpr qsizetype digestSize = 32;
constexpr qsizetype typeOffset = 10;
constexpr int modelCount = 4;

void check(bool condition)
{
    if (!condition)
        std::abort();
}

// One simulated console of each model, started once.
struct Console
{
    std::unique_ptr<char[]> memory{new char[RecordArea::end]()};
    ConsoleStateRecord* record = reinterpret_cast<ConsoleStateRecord*>(memory.get());
    EngineNotifier notifier;
    std::unique_ptr<ConsoleSimulation> simulation;
};

struct Fixture
{
    QTemporaryDir folder;
    QString fileName;
    std::array<Console, modelCount> consoles;

    Fixture()
    {
        check(folder.isValid());
        // The consoles keep their state in the data folder: not the user's.
        qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
        fileName = folder.filePath("input.asc");
        for (int type = 0; type < modelCount; ++type) {
            const ModelProfile profile =
                type == 3 ? ModelProfile::forVariant(ModelProfile::Generation::GlowPro, 0)
                          : ModelProfile::forVariant(ModelProfile::Generation::Glow, type);
            Console& console = consoles[size_t(type)];
            console.notifier.setMuted(true);
            console.simulation =
                std::make_unique<ConsoleSimulation>(console.record, console.notifier, profile);
            console.simulation->start(QStringLiteral("1.0.0"));
        }
    }
};

Fixture& fixture()
{
    static Fixture instance;
    return instance;
}

void openOn(int type, const QByteArray& bytes)
{
    Fixture& f = fixture();
    Console& console = f.consoles[size_t(type)];
    {
        QFile file(f.fileName);
        check(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        check(file.write(bytes) == bytes.size());
    }
    const QByteArray before(console.memory.get(), RecordArea::end);
    const ShowFile::Contents contents = ShowFile::decode(bytes, type);
    const ConsoleSimulation::OpenResult result = console.simulation->openShow(f.fileName);

    switch (result) {
    case ConsoleSimulation::OpenResult::Loaded:
        check(contents.status == ShowFile::Status::Ok);
        check(contents.consoleType == type);
        check(contents.showData.size() == ShowData::size());
        check(RecordArea::slotText(console.record, console.record->showFileName) == f.fileName);
        break;
    case ConsoleSimulation::OpenResult::OtherConsoleType:
        check(contents.status == ShowFile::Status::OtherConsoleType);
        check(contents.consoleType != type);
        check(std::memcmp(before.constData(), console.memory.get(), RecordArea::end) == 0);
        break;
    case ConsoleSimulation::OpenResult::ReadError:
        check(contents.status == ShowFile::Status::Damaged);
        check(std::memcmp(before.constData(), console.memory.get(), RecordArea::end) == 0);
        break;
    default:
        check(false);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const int declared = bytes.size() > typeOffset ? uchar(bytes[typeOffset]) % modelCount : 0;
    // As it came, on a console of another model than the file names.
    openOn((declared + 1) % modelCount, bytes);
    if (bytes.size() < digestSize)
        return 0;
    // With the checksum made right, on the console the file names.
    QByteArray mended = bytes.left(bytes.size() - digestSize);
    mended.append(QCryptographicHash::hash(mended, QCryptographicHash::Sha256));
    openOn(declared, mended);
    return 0;
}
