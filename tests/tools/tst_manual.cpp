// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataRows.h"
#include "toolkit/TitleBar.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

namespace {
const QString source = QStringLiteral(LUMIDESK_MANUAL_SOURCE);

QStringList pages(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}
} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void picturesShowTheirTab_data();
    void picturesShowTheirTab();
    void pagesLinkOnlyToFilesThatExist_data();
    void pagesLinkOnlyToFilesThatExist();
    void helpButtonOpensTheManualOfTheBuild();

private:
    QTemporaryDir pictures;
    QSet<QRgb> background;
};

void TestManual::initTestCase()
{
    QProcess program;
    // The program runs the console's clock free, and its views read the
    // record the engine writes: shared by design, which the thread
    // sanitizer would report as races. Those reports do not fail this test;
    // crashes, leaks and undefined behaviour still do.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TSAN_OPTIONS"),
                       environment.value(QStringLiteral("TSAN_OPTIONS")) +
                           QStringLiteral(":exitcode=0"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(LUMIDESK_MANUAL_IMAGES),
                  {QStringLiteral("--out"), pictures.path(), QStringLiteral("maple")});
    QVERIFY(program.waitForFinished(120000));
    QCOMPARE(program.exitCode(), 0);
    const QImage grain(QStringLiteral(":/Lumidesk/Resources/BrittishGrain.png"));
    for (int y = 0; y < grain.height(); ++y)
        for (int x = 0; x < grain.width(); ++x)
            background.insert(grain.pixel(x, y) | 0xff000000u);
    QVERIFY(!background.isEmpty());
}

void TestManual::picturesShowTheirTab_data()
{
    addColumns<QString, QSize>({"picture", "size"});
    for (const char* tab : {"playback", "live", "pages", "memories", "sequences", "effects",
                            "groups", "palettes", "patch", "dmx", "system"})
        QTest::newRow(tab) << QStringLiteral("maple-%1.png").arg(QLatin1String(tab))
                           << QSize(1280, 1024);
    QTest::newRow("front panel") << QStringLiteral("maple-frontpanel.png") << QSize(1280, 459);
}

// Below the title bar and the tab strip, a tab whose view drew nothing shows
// only the background grain.
void TestManual::picturesShowTheirTab()
{
    auto [picture, size] = fetch<QString, QSize>({"picture", "size"});
    const QImage image(pictures.filePath(picture));
    QCOMPARE(image.size(), size);
    const int top = size.height() == 1024 ? 56 : 0;
    int drawn = 0;
    for (int y = top; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            drawn += background.contains(image.pixel(x, y) | 0xff000000u) ? 0 : 1;
    const int perMille = drawn * 1000 / (image.width() * (image.height() - top));
    QVERIFY2(perMille >= 5, qPrintable(QStringLiteral("%1 per mille drawn").arg(perMille)));
}

void TestManual::pagesLinkOnlyToFilesThatExist_data()
{
    QTest::addColumn<QString>("page");
    for (const QString& page : pages(source))
        QTest::newRow(qPrintable(page)) << page;
}

// Relative links to files of the manual (and to anchors in them) only: the
// manual is read offline.
void TestManual::pagesLinkOnlyToFilesThatExist()
{
    QFETCH(QString, page);
    QFile file(QDir(source).filePath(page));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    static const QRegularExpression link(QStringLiteral(R"re((?:href|src)="([^"]*)")re"));
    QStringList broken;
    for (const QRegularExpressionMatch& match : link.globalMatch(html)) {
        const QString target = match.captured(1);
        const QString path = target.section(QLatin1Char('#'), 0, 0);
        const QString anchor = target.section(QLatin1Char('#'), 1);
        QFile linked(QDir(source).filePath(path.isEmpty() ? page : path));
        const bool local = !target.contains(QLatin1Char(':')) && !target.startsWith('/');
        if (!local || !linked.open(QIODevice::ReadOnly) ||
            (!anchor.isEmpty() && !linked.readAll().contains("id=\"" + anchor.toUtf8() + '"')))
            broken << target;
    }
    QCOMPARE(broken.join(QLatin1Char(' ')), QString());
}

void TestManual::helpButtonOpensTheManualOfTheBuild()
{
    const QString folder = TitleBar::documentationFolder();
    QCOMPARE(pages(folder), pages(source));
    QVERIFY(pages(folder).contains(QStringLiteral("index.html")));
}

QTEST_MAIN(TestManual)
#include "tst_manual.moc"
