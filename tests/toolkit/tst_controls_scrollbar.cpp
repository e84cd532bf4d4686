// SPDX-License-Identifier: GPL-3.0-or-later
#include "SceneMouse.h"

#include "toolkit/ScrollBar.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QSignalSpy>
#include <QTest>

class TestScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void thumbGeometry_data();
    void thumbGeometry();
    void shrinkingPullsTheCurrentLineBack_data();
    void shrinkingPullsTheCurrentLineBack();
    void setCurrentLineEmitsUnclamped();
    void dragMovesInWholeLinesAndClamps();
    void pressOutsideTheThumbOrWithoutScrollingIsIgnored_data();
    void pressOutsideTheThumbOrWithoutScrollingIsIgnored();
    void thumbPixels();
};

void TestScrollBar::thumbGeometry_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("visible");
    QTest::addColumn<int>("current");
    QTest::addColumn<QRectF>("thumb");
    QTest::newRow("first line") << 10 << 4 << 0 << QRectF(2, 10, 10, 40);
    QTest::newRow("ten pixels per line") << 10 << 4 << 3 << QRectF(2, 40, 10, 40);
    QTest::newRow("last first line") << 10 << 4 << 6 << QRectF(2, 70, 10, 40);
    QTest::newRow("everything visible fills the track") << 3 << 4 << 0 << QRectF(2, 10, 10, 100);
    QTest::newRow("nothing visible stays on top") << 10 << 0 << 5 << QRectF(2, 10, 10, 0);
}

void TestScrollBar::thumbGeometry()
{
    QFETCH(int, lines);
    QFETCH(int, visible);
    QFETCH(int, current);
    QFETCH(QRectF, thumb);
    ScrollBar bar(nullptr, QRectF(2, 10, 10, 100));
    bar.setLineCount(lines);
    bar.setVisibleLines(visible);
    bar.setCurrentLine(current);
    QCOMPARE(bar.thumbRect(), thumb);
}

void TestScrollBar::shrinkingPullsTheCurrentLineBack_data()
{
    QTest::addColumn<bool>("viaLineCount");
    QTest::addColumn<int>("newCount");
    QTest::addColumn<QList<int>>("emitted");
    QTest::newRow("fewer lines") << true << 5 << QList<int>{1};
    QTest::newRow("more visible lines") << false << 8 << QList<int>{2};
    QTest::newRow("still room") << true << 12 << QList<int>{};
    QTest::newRow("all visible") << false << 20 << QList<int>{0};
}

void TestScrollBar::shrinkingPullsTheCurrentLineBack()
{
    QFETCH(bool, viaLineCount);
    QFETCH(int, newCount);
    QFETCH(QList<int>, emitted);
    ScrollBar bar(nullptr, QRectF(0, 0, 8, 100));
    bar.setLineCount(10);
    bar.setVisibleLines(4);
    bar.setCurrentLine(6);
    QSignalSpy spy(&bar, &ScrollBar::currentLineChanged);
    if (viaLineCount)
        bar.setLineCount(newCount);
    else
        bar.setVisibleLines(newCount);
    QList<int> seen;
    for (const QList<QVariant>& args : spy)
        seen << args.at(0).toInt();
    QCOMPARE(seen, emitted);
    QCOMPARE(bar.currentLine(), emitted.isEmpty() ? 6 : emitted.last());
}

void TestScrollBar::setCurrentLineEmitsUnclamped()
{
    ScrollBar bar(nullptr, QRectF(0, 0, 8, 100));
    bar.setLineCount(10);
    bar.setVisibleLines(4);
    QSignalSpy spy(&bar, &ScrollBar::currentLineChanged);
    bar.setCurrentLine(50);
    bar.setCurrentLine(50);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toInt(), 50);
    QCOMPARE(bar.currentLine(), 50);
    // Drawn, the thumb still stays in the track.
    QCOMPARE(bar.thumbRect().bottom(), 100.0);
}

void TestScrollBar::dragMovesInWholeLinesAndClamps()
{
    QGraphicsScene scene;
    auto* bar = new ScrollBar(nullptr, QRectF(0, 0, 10, 100));
    scene.addItem(bar);
    bar->setLineCount(10);
    bar->setVisibleLines(4);
    bar->setCurrentLine(3);
    QSignalSpy spy(bar, &ScrollBar::currentLineChanged);
    SceneMouse mouse(scene);

    QVERIFY(mouse.press(QPointF(5, 35)));
    QVERIFY(bar->isDragging());
    mouse.move(QPointF(5, 44)); // 9 pixels: still line 3
    QCOMPARE(spy.count(), 0);
    QCOMPARE(bar->thumbRect().top(), 39.0);
    mouse.move(QPointF(5, 60)); // 25 pixels: two whole lines
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toInt(), 5);
    QCOMPARE(bar->thumbRect().top(), 55.0);
    mouse.move(QPointF(5, 300));
    QCOMPARE(bar->currentLine(), 6);
    QCOMPARE(bar->thumbRect().top(), 60.0);
    mouse.move(QPointF(5, -300));
    QCOMPARE(bar->currentLine(), 0);
    QCOMPARE(bar->thumbRect().top(), 0.0);
    const int beforeRelease = int(spy.count());
    mouse.release(QPointF(5, -300));
    QVERIFY(!bar->isDragging());
    QCOMPARE(spy.count(), beforeRelease + 1);
    QCOMPARE(spy.last().at(0).toInt(), 0);
    QCOMPARE(bar->thumbRect().top(), 0.0);
}

void TestScrollBar::pressOutsideTheThumbOrWithoutScrollingIsIgnored_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QPointF>("press");
    QTest::newRow("below the thumb") << 10 << QPointF(5, 90);
    QTest::newRow("nothing to scroll") << 4 << QPointF(5, 10);
}

void TestScrollBar::pressOutsideTheThumbOrWithoutScrollingIsIgnored()
{
    QFETCH(int, lines);
    QFETCH(QPointF, press);
    QGraphicsScene scene;
    auto* bar = new ScrollBar(nullptr, QRectF(0, 0, 10, 100));
    scene.addItem(bar);
    bar->setLineCount(lines);
    bar->setVisibleLines(4);
    QSignalSpy spy(bar, &ScrollBar::currentLineChanged);
    SceneMouse mouse(scene);
    QVERIFY(!mouse.press(press));
    mouse.move(press + QPointF(0, 30));
    mouse.release(press + QPointF(0, 30));
    QVERIFY(!bar->isDragging());
    QCOMPARE(spy.count(), 0);
}

void TestScrollBar::thumbPixels()
{
    ScrollBar bar(nullptr, QRectF(0, 0, 10, 100));
    bar.setLineCount(10);
    bar.setVisibleLines(5);
    const QImage image = renderItem(bar);
    // Track: white at alpha 32 over black; thumb: alpha 60 more on top.
    const QColor track = image.pixelColor(5, 80);
    const QColor thumb = image.pixelColor(5, 25);
    QVERIFY2(qAbs(track.red() - 32) <= 1, qPrintable(track.name()));
    QVERIFY2(qAbs(thumb.red() - (32 + (255 - 32) * 60 / 255)) <= 2, qPrintable(thumb.name()));
}

QTEST_MAIN(TestScrollBar)
#include "tst_controls_scrollbar.moc"
