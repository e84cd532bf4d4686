// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the front panel as the layout file in the working
// directory. The first byte picks the model (its panel picture), the rest is
// the file. Whatever the lines, every control built has its middle on the
// panel picture.

#include "FrontPanel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGraphicsItem>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {
constexpr int modelCount = 4;

void check(bool condition)
{
    if (!condition)
        std::abort();
}

struct Fixture
{
    int argc = 1;
    char name[8] = "fuzzer";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> application;
    QTemporaryDir folder;

    Fixture()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QApplication>(argc, argv);
        check(folder.isValid());
        QDir::setCurrent(folder.path());
    }
};

Fixture& fixture()
{
    static Fixture instance;
    return instance;
}
} // namespace

// Fontconfig keeps what it allocates for a font looked up the first time
// until the process ends; that is a cache, not a leak of ours.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fixture();
    if (size < 1)
        return 0;
    const QString base = FrontPanel::baseName(data[0] % modelCount);
    {
        QFile file(base + QStringLiteral(".txt"));
        check(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        const qint64 length = qint64(size) - 1;
        check(file.write(reinterpret_cast<const char*>(data + 1), length) == length);
    }
    FrontPanel panel;
    panel.loadLayout(base);
    const QRectF onPanel = panel.panelScene()->sceneRect();
    check(!onPanel.isEmpty());
    for (QGraphicsItem* item : panel.panelScene()->items()) {
        if (item->parentItem() || !item->isVisible())
            continue;
        const QRectF extent =
            item->sceneBoundingRect() | item->mapRectToScene(item->childrenBoundingRect());
        // The panel keeps a control when its middle is on the picture.
        check(onPanel.contains(extent.center()));
    }
    return 0;
}
