// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Lumidesk.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/InPlaceLineEdit.h"
#include "toolkit/PanTiltMonitorCell.h"
#include "toolkit/ParameterCell.h"
#include "toolkit/ParameterRow.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPointer>
#include <QTest>

namespace {

class TestParameterCell : public ParameterCell
{
public:
    using ParameterCell::ParameterCell;
    QColor swatchColour(bool& valid) const override
    {
        valid = swatch.isValid();
        return swatch;
    }
    QString text() const override { return shown; }
    QString editText() const override { return edit; }
    void applyEditText(const QString& text) override { applied << text; }

    QColor swatch;
    QString shown = QStringLiteral("12");
    QString edit = QStringLiteral("12");
    QStringList applied;
};

// Pan and tilt as the views compute them from DMX values.
class TestPanTiltCell : public PanTiltMonitorCell
{
public:
    using PanTiltMonitorCell::PanTiltMonitorCell;
    bool isActive() const override { return active; }
    float panPosition() const override { return position(pan, panFine, sixteenBit); }
    float tiltPosition() const override { return position(tilt, tiltFine, sixteenBit); }

    bool active = true;
    bool sixteenBit = false;
    int pan = 128;
    int panFine = 0;
    int tilt = 128;
    int tiltFine = 0;
};

enum class Click
{
    Plain,
    Control,
    Shift,
    ControlDrag,
    PlainDrag,
    Right,
};

const QRgb black = qRgb(0, 0, 0);

// A double click as a mouse gives it: press, release, double click, release.
void doubleClick(QWidget* viewport, Qt::MouseButton button, const QPoint& at)
{
    QTest::mouseClick(viewport, button, {}, at);
    QTest::mouseDClick(viewport, button, {}, at);
    QTest::mouseRelease(viewport, button, {}, at);
}

} // namespace

Q_DECLARE_METATYPE(Click)

class TestParameterCells : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void selection_data();
    void selection();
    void selectionHighlightWidth_data();
    void selectionHighlightWidth();
    void editorOverActivePart_data();
    void editorOverActivePart();
    void nullEditTextOpensNothing();
    void decoration_data();
    void decoration();
    void nullTextDrawsNothing();
    void panTiltDot_data();
    void panTiltDot();
    void inactiveMonitorDrawsNothing();

private:
    QImage renderItem(const QGraphicsItem* item);
    QPoint centreOf(const QGraphicsItem* item) const;

    QGraphicsScene* m_scene = nullptr;
    QGraphicsView* m_view = nullptr;
    CellRowTable* m_table = nullptr;
    TestParameterCell* m_cells[3] = {};
    TestParameterCell* m_colourCell = nullptr;
    TestPanTiltCell* m_panTilt = nullptr;
};

void TestParameterCells::init()
{
    m_scene = new QGraphicsScene(0, 0, 400, 120);
    m_table = new CellRowTable(m_scene, false);
    auto* row = new ParameterRow(m_table, QStringLiteral("Dimmer"), true);
    for (int i = 0; i < 3; ++i)
        m_cells[i] = new TestParameterCell(row, 0, 1);
    m_colourCell = new TestParameterCell(row, 1, 5);
    m_table->addRow(row);
    auto* monitorRow = new ParameterRow(m_table, QStringLiteral("Pan/Tilt"), true);
    m_panTilt = new TestPanTiltCell(monitorRow);
    m_table->addRow(monitorRow);
    m_table->setPos(5, 5);
    m_view = new QGraphicsView(m_scene);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_view->resize(420, 140);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view));
}

void TestParameterCells::cleanup()
{
    delete m_view;
    delete m_scene;
}

QImage TestParameterCells::renderItem(const QGraphicsItem* item)
{
    const QRectF area = item->sceneBoundingRect();
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    m_scene->render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

QPoint TestParameterCells::centreOf(const QGraphicsItem* item) const
{
    return m_view->mapFromScene(item->sceneBoundingRect().center());
}

void TestParameterCells::selection_data()
{
    QTest::addColumn<QList<int>>("selectedBefore");
    QTest::addColumn<int>("target");
    QTest::addColumn<Click>("click");
    QTest::addColumn<QList<int>>("selectedAfter");
    QTest::newRow("plain click on unselected selects it alone")
        << QList<int>{0, 1} << 2 << Click::Plain << QList<int>{2};
    QTest::newRow("plain click on a selected one keeps the selection")
        << QList<int>{0, 1} << 1 << Click::Plain << QList<int>{0, 1};
    QTest::newRow("control-click on selected deselects only it")
        << QList<int>{0, 1, 2} << 1 << Click::Control << QList<int>{0, 2};
    QTest::newRow("control-click on unselected adds it")
        << QList<int>{0} << 2 << Click::Control << QList<int>{0, 2};
    QTest::newRow("shift-click on unselected selects it alone")
        << QList<int>{0} << 1 << Click::Shift << QList<int>{1};
    QTest::newRow("shift-click on selected keeps the selection")
        << QList<int>{0, 1} << 1 << Click::Shift << QList<int>{0, 1};
    QTest::newRow("control-drag changes nothing")
        << QList<int>{0, 1} << 1 << Click::ControlDrag << QList<int>{0, 1};
    QTest::newRow("plain drag from selected changes nothing")
        << QList<int>{0, 1} << 0 << Click::PlainDrag << QList<int>{0, 1};
    QTest::newRow("right click changes nothing")
        << QList<int>{0} << 2 << Click::Right << QList<int>{0};
}

void TestParameterCells::selection()
{
    QFETCH(QList<int>, selectedBefore);
    QFETCH(int, target);
    QFETCH(Click, click);
    QFETCH(QList<int>, selectedAfter);
    for (int i : selectedBefore)
        m_cells[i]->setSelected(true);
    QWidget* viewport = m_view->viewport();
    const QPoint at = centreOf(m_cells[target]);
    switch (click) {
    case Click::Plain:
        QTest::mouseClick(viewport, Qt::LeftButton, {}, at);
        break;
    case Click::Control:
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::ControlModifier, at);
        break;
    case Click::Shift:
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::ShiftModifier, at);
        break;
    case Click::ControlDrag:
        QTest::mousePress(viewport, Qt::LeftButton, Qt::ControlModifier, at);
        QTest::mouseMove(viewport, at + QPoint(6, 0));
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::ControlModifier, at + QPoint(6, 0));
        break;
    case Click::PlainDrag:
        QTest::mousePress(viewport, Qt::LeftButton, {}, at);
        QTest::mouseMove(viewport, at + QPoint(0, 3));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, at + QPoint(0, 3));
        break;
    case Click::Right:
        QTest::mouseClick(viewport, Qt::RightButton, {}, at);
        break;
    }
    QList<int> selected;
    for (int i = 0; i < 3; ++i) {
        if (m_cells[i]->isSelected())
            selected << i;
    }
    QCOMPARE(selected, selectedAfter);
}

void TestParameterCells::selectionHighlightWidth_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("rightHalfLit");
    QTest::newRow("Focus: whole cell") << 0 << true;
    QTest::newRow("Color: left half") << 1 << false;
    QTest::newRow("Beam: left half") << 2 << false;
}

void TestParameterCells::selectionHighlightWidth()
{
    QFETCH(int, group);
    QFETCH(bool, rightHalfLit);
    auto* row = new ParameterRow(m_table, QString(), false);
    auto* cell = new TestParameterCell(row, group, 60);
    cell->shown = QString();
    m_table->addRow(row);
    cell->setSelected(true);
    const QImage image = renderItem(cell);
    const QRgb lit = qRgb(64, 64, 64);
    QCOMPARE(image.pixel(2, 8), lit);
    QCOMPARE(image.pixel(23, 8), lit);
    QCOMPARE(image.pixel(25, 8), rightHalfLit ? lit : black);
    QCOMPARE(image.pixel(47, 8), rightHalfLit ? lit : black);
    cell->setSelected(false);
    QCOMPARE(renderItem(cell).pixel(2, 8), black);
}

void TestParameterCells::editorOverActivePart_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("width");
    QTest::newRow("Focus: full width") << 0 << 49;
    QTest::newRow("Color: left half, rounded") << 1 << 25;
}

void TestParameterCells::editorOverActivePart()
{
    QFETCH(int, group);
    QFETCH(int, width);
    TestParameterCell* cell = group == 0 ? m_cells[1] : m_colourCell;
    const QPoint at = m_view->mapFromScene(cell->scenePos() + QPointF(10, 8));
    doubleClick(m_view->viewport(), Qt::LeftButton, at);
    QPointer<InPlaceLineEdit> editor = m_view->viewport()->findChild<InPlaceLineEdit*>();
    QVERIFY(editor);
    QCOMPARE(editor->geometry(), QRect(m_view->mapFromScene(cell->scenePos()), QSize(width, 16)));
    QCOMPARE(editor->maxLength(), 3);
    QCOMPARE(editor->alignment(), Qt::AlignCenter);
    QCOMPARE(editor->palette().color(QPalette::Text), QColor(Qt::white));
    QVERIFY(cell->isEditing());
    // Nothing at all is drawn under an open editor, not even the selection.
    QVERIFY(cell->isSelected());
    const QImage image = renderItem(cell);
    for (int x = 0; x < 49; ++x)
        QCOMPARE(image.pixel(x, 8), black);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, QStringLiteral("42"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(cell->applied, QStringList{QStringLiteral("42")});
    QVERIFY(!cell->isEditing());
    QTRY_VERIFY(editor.isNull());
}

void TestParameterCells::nullEditTextOpensNothing()
{
    m_cells[0]->edit = QString();
    doubleClick(m_view->viewport(), Qt::LeftButton, centreOf(m_cells[0]));
    QCOMPARE(m_view->viewport()->findChild<InPlaceLineEdit*>(), nullptr);
    QVERIFY(!m_cells[0]->isEditing());
}

void TestParameterCells::decoration_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<QRect>("swatch");
    QTest::newRow("colour mix 0") << 0 << QRect(29, 2, 18, 14);
    QTest::newRow("colour mix 3") << 3 << QRect(29, 0, 18, 16);
    QTest::newRow("colour mix 4") << 4 << QRect(29, 0, 18, 14);
    QTest::newRow("pan has none") << 1 << QRect();
    QTest::newRow("tilt fine has none") << 49 << QRect();
}

void TestParameterCells::decoration()
{
    QFETCH(int, parameter);
    QFETCH(QRect, swatch);
    auto* row = new ParameterRow(m_table, QString(), false);
    auto* cell = new TestParameterCell(row, 1, parameter);
    cell->shown = QString(QLatin1Char(' ')); // no ink from the text
    cell->swatch = QColor(0, 0, 250);
    m_table->addRow(row);
    const QImage image = renderItem(cell);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 49; ++x) {
            if (image.pixel(x, y) != (swatch.contains(x, y) ? qRgb(0, 0, 250) : black)) {
                image.save("/tmp/grid-decoration.png");
                QFAIL(qPrintable(QStringLiteral("pixel %1,%2").arg(x).arg(y)));
            }
        }
    }
    // Without a valid colour nothing is filled.
    cell->swatch = QColor();
    QCOMPARE(renderItem(cell).pixel(40, 8), black);
}

void TestParameterCells::nullTextDrawsNothing()
{
    const auto inked = [this] {
        const QImage image = renderItem(m_colourCell);
        int count = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 49; ++x)
                count += image.pixel(x, y) != black;
        return count;
    };
    // A value and the parameter's icon in the rightmost 22 pixels.
    QVERIFY(inked() > 0);
    const QImage image = renderItem(m_colourCell);
    int iconInk = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 27; x < 49; ++x)
            iconInk += image.pixel(x, y) != black;
    QVERIFY(iconInk > 0);
    m_colourCell->shown = QString();
    QCOMPARE(inked(), 0);
}

void TestParameterCells::panTiltDot_data()
{
    QTest::addColumn<bool>("sixteenBit");
    QTest::addColumn<int>("pan");
    QTest::addColumn<int>("panFine");
    QTest::addColumn<int>("tilt");
    QTest::addColumn<double>("panFraction");
    QTest::addColumn<double>("tiltFraction");
    QTest::newRow("8-bit pan 0: left edge") << false << 0 << 0 << 128 << -0.4 << 0.0;
    QTest::newRow("8-bit pan 128: just right of centre") << false << 128 << 0 << 128 << 0.0 << 0.0;
    QTest::newRow("8-bit pan 255: right edge") << false << 255 << 0 << 0 << 0.4 << -0.4;
    QTest::newRow("16-bit 0/0: left edge") << true << 0 << 0 << 255 << -0.4 << 0.4;
    QTest::newRow("16-bit 255/255: right edge") << true << 255 << 255 << 128 << 0.4 << 0.0;
    QTest::newRow("16-bit 128/0: centre") << true << 128 << 0 << 128 << 0.0 << 0.0;
}

void TestParameterCells::panTiltDot()
{
    QFETCH(bool, sixteenBit);
    QFETCH(int, pan);
    QFETCH(int, panFine);
    QFETCH(int, tilt);
    QFETCH(double, panFraction);
    QFETCH(double, tiltFraction);
    m_panTilt->sixteenBit = sixteenBit;
    m_panTilt->pan = pan;
    m_panTilt->panFine = panFine;
    m_panTilt->tilt = tilt;
    m_panTilt->tiltFine = sixteenBit ? 0 : 0;
    const QSize image = Lumidesk::instance()->resources().image(Resources::Id::PanTiltRoom).size();
    QVERIFY(!image.isEmpty());
    const QPoint dot = m_panTilt->dotPosition();
    // Within a pixel of the fraction of the image around the cell's centre.
    QVERIFY2(qAbs(dot.x() - (24.5 + panFraction * image.width())) <= 1.0,
             qPrintable(QString::number(dot.x())));
    QVERIFY2(qAbs(dot.y() - (19 + tiltFraction * image.height())) <= 1.0,
             qPrintable(QString::number(dot.y())));
    if (pan == 128 && !sixteenBit)
        QVERIFY(m_panTilt->panPosition() > 0);

    // The dot is a white 3 x 3 square over the room image.
    const QImage picture = renderItem(m_panTilt);
    QCOMPARE(picture.pixel(dot), qRgb(255, 255, 255));
    QCOMPARE(picture.pixel(dot + QPoint(1, 1)), qRgb(255, 255, 255));
    QCOMPARE(picture.pixel(dot - QPoint(1, 1)), qRgb(255, 255, 255));
}

void TestParameterCells::inactiveMonitorDrawsNothing()
{
    m_panTilt->active = false;
    const QImage picture = renderItem(m_panTilt);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixel(x, y), black);
    m_panTilt->active = true;
    const QImage active = renderItem(m_panTilt);
    QVERIFY(active != picture);
}

int main(int argc, char** argv)
{
    Lumidesk application(argc, argv);
    TestParameterCells test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_cells_parameter.moc"
