// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/ChannelCell.h"
#include "toolkit/ChannelRow.h"
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/InPlaceLineEdit.h"
#include "toolkit/IndependentCell.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPointer>
#include <QTest>

#include <optional>

namespace {

// As the views write them: the level is a record byte shown through the
// shared level text, and a typed percentage is stored back.
class TestChannelCell : public ChannelCell
{
public:
    using ChannelCell::ChannelCell;
    QString text() const override { return ConsoleCache::formatLevel(storedLevel, true); }
    QString editText() const override { return editable ? text() : QString(); }
    void applyEditText(const QString& typed) override
    {
        applied << typed;
        if (const auto level = ConsoleCache::levelFromPercentText(typed))
            storedLevel = quint8(*level);
    }
    quint8 level() const override { return storedLevel; }
    bool isHighlighted() const override { return highlighted; }
    bool isBlind() const override { return blind; }

    quint8 storedLevel = 0;
    bool editable = true;
    bool highlighted = false;
    bool blind = false;
    QStringList applied;
};

class TestIndependentCell : public IndependentCell
{
public:
    using IndependentCell::IndependentCell;
    QString text() const override { return ConsoleCache::formatLevel(storedLevel, true); }
    quint8 level() const override { return storedLevel; }
    bool isHighlighted() const override { return false; }
    quint8 storedLevel = 0;
};

const QRgb black = qRgb(0, 0, 0);

// A double click as a mouse gives it: press, release, double click, release.
void doubleClick(QWidget* viewport, Qt::MouseButton button, const QPoint& at)
{
    QTest::mouseClick(viewport, button, {}, at);
    QTest::mouseDClick(viewport, button, {}, at);
    QTest::mouseRelease(viewport, button, {}, at);
}

QRgb over(QRgb background, const QColor& colour)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(background);
    QPainter painter(&pixel);
    painter.fillRect(0, 0, 1, 1, colour);
    painter.end();
    return pixel.pixel(0, 0);
}

} // namespace

class TestLevelCells : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void levelTextAndBar_data();
    void levelTextAndBar();
    void frameFollowsPatchAndHighlight_data();
    void frameFollowsPatchAndHighlight();
    void typedPercentage_data();
    void typedPercentage();
    void levelEditorOpensOnlyWhenEditable_data();
    void levelEditorOpensOnlyWhenEditable();
    void legendLinesReadAndWriteTheRecord();
    void independentLegendAndFlags();
    void legendLinesAreChainedInOrder();

private:
    QImage renderCell(const QGraphicsItem* cell);
    int barPixels(const QImage& image, bool blind);
    bool levelTextInked(const QImage& image, QRgb colour);

    // Held in place: the engine class is not meant to be deleted through a pointer.
    std::optional<FakeEngine> m_engine;
    Console* m_console = nullptr;
    QGraphicsScene* m_scene = nullptr;
    QGraphicsView* m_view = nullptr;
    CellRowTable* m_table = nullptr;
    ChannelRow* m_row = nullptr;
    TestChannelCell* m_cells[3] = {};
    TestIndependentCell* m_independent = nullptr;
};

void TestLevelCells::init()
{
    m_engine.emplace(ConsoleCache::ModelBirch);
    m_console = m_engine->createConsole();
    m_scene = new QGraphicsScene(0, 0, 400, 120);
    m_table = new CellRowTable(m_scene, false);
    m_row = new ChannelRow(m_table, m_console, QStringLiteral("Ch"));
    for (int i = 0; i < 3; ++i)
        m_cells[i] = new TestChannelCell(m_row, m_console, i + 4);
    m_independent = new TestIndependentCell(m_row, m_console, 1);
    m_table->addRow(m_row);
    m_table->setPos(10, 20);
    m_view = new QGraphicsView(m_scene);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_view->resize(420, 140);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view));
}

void TestLevelCells::cleanup()
{
    delete m_view;
    delete m_scene;
    delete m_console;
    m_engine.reset();
}

QImage TestLevelCells::renderCell(const QGraphicsItem* cell)
{
    const QRectF area = cell->sceneBoundingRect();
    QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    m_scene->render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

int TestLevelCells::barPixels(const QImage& image, bool blind)
{
    int count = 0;
    for (int y = 3; y < 24; ++y) {
        const QRgb pixel = image.pixel(6, y);
        count += blind ? qBlue(pixel) > 150 && qGreen(pixel) < 100 : pixel == qRgb(187, 253, 172);
    }
    return count;
}

bool TestLevelCells::levelTextInked(const QImage& image, QRgb colour)
{
    for (int y = 0; y < 26; ++y)
        for (int x = 12; x < 45; ++x)
            if (image.pixel(x, y) == colour)
                return true;
    return false;
}

void TestLevelCells::levelTextAndBar_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("blind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("bar");
    QTest::newRow("0 shows nothing") << 0 << false << "0" << 0;
    QTest::newRow("12 shows 5 with an empty bar") << 12 << false << "5" << 0;
    QTest::newRow("13 fills one pixel") << 13 << false << "5" << 1;
    QTest::newRow("128 shows 50") << 128 << false << "50" << 10;
    QTest::newRow("255 shows F with a full bar") << 255 << false << "F" << 21;
    QTest::newRow("blind 255 in blue") << 255 << true << "F" << 21;
    QTest::newRow("blind 128 in blue") << 128 << true << "50" << 10;
}

void TestLevelCells::levelTextAndBar()
{
    QFETCH(int, level);
    QFETCH(bool, blind);
    QFETCH(QString, text);
    QFETCH(int, bar);
    TestChannelCell* cell = m_cells[0];
    cell->storedLevel = quint8(level);
    cell->blind = blind;
    QCOMPARE(cell->text(), text);
    const QImage image = renderCell(cell);
    QCOMPARE(barPixels(image, blind), bar);
    // The bar grows from the bottom of its 21-pixel slot.
    if (bar > 0 && !blind)
        QCOMPARE(image.pixel(6, 23), qRgb(187, 253, 172));
    const QRgb textColour = blind ? qRgb(0, 0, 255) : qRgb(187, 253, 172);
    QCOMPARE(levelTextInked(image, textColour), level != 0);
    QCOMPARE(levelTextInked(image, blind ? qRgb(187, 253, 172) : qRgb(0, 0, 255)), false);

    m_independent->storedLevel = quint8(level);
    const QImage independent = renderCell(m_independent);
    QCOMPARE(barPixels(independent, false), bar);
    QCOMPARE(levelTextInked(independent, qRgb(187, 253, 172)), level != 0);
}

void TestLevelCells::frameFollowsPatchAndHighlight_data()
{
    QTest::addColumn<bool>("patched");
    QTest::addColumn<bool>("highlighted");
    QTest::newRow("unpatched") << false << false;
    QTest::newRow("patched") << true << false;
    QTest::newRow("unpatched, selected") << false << true;
    QTest::newRow("patched, selected") << true << true;
}

void TestLevelCells::frameFollowsPatchAndHighlight()
{
    QFETCH(bool, patched);
    QFETCH(bool, highlighted);
    TestChannelCell* cell = m_cells[1]; // channel 5
    if (patched) {
        m_engine->record()->dmxPatch[17] = quint8(cell->channel() + 1);
        m_console->patchChanged();
    }
    QCOMPARE(m_console->cache()->channelFlags(cell->channel()) != 0, patched);
    cell->highlighted = highlighted;
    const QImage image = renderCell(cell);
    const QRgb fill = over(black, QColor(91, 116, 86, patched ? 80 : 40));
    QCOMPARE(image.pixel(30, 20), fill);
    // The outline runs along the frame's top edge at y = 2.7.
    int outlined = 0;
    for (int y = 1; y < 5; ++y)
        outlined += qGreen(image.pixel(25, y)) > 100;
    QCOMPARE(outlined > 0, highlighted);
    // Nothing is drawn outside the frame.
    QCOMPARE(image.pixel(0, 30), black);
    QCOMPARE(image.pixel(25, 0), black);
}

void TestLevelCells::typedPercentage_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("50 stores 127 and reads 50") << "50" << 127 << "50";
    QTest::newRow("10 stores 25") << "10" << 25 << "10";
    QTest::newRow("30 stores 76") << "30" << 76 << "30";
    QTest::newRow("70 stores 178") << "70" << 178 << "70";
    QTest::newRow("90 stores 229") << "90" << 229 << "90";
    QTest::newRow("100 stores 255, shown as F") << "100" << 255 << "F";
    QTest::newRow("0 stores 0") << "0" << 0 << "0";
    QTest::newRow("101 rejected") << "101" << 200 << "78";
    QTest::newRow("-1 rejected") << "-1" << 200 << "78";
    QTest::newRow("text rejected") << "ab" << 200 << "78";
    QTest::newRow("empty rejected") << "" << 200 << "78";
}

void TestLevelCells::typedPercentage()
{
    QFETCH(QString, typed);
    QFETCH(int, stored);
    QFETCH(QString, shown);
    TestChannelCell* cell = m_cells[2];
    cell->storedLevel = 200;
    // Over the level text, above the legend lines.
    const QPoint inCell = m_view->mapFromScene(cell->scenePos() + QPointF(25, 12));
    doubleClick(m_view->viewport(), Qt::LeftButton, inCell);
    auto* editor = m_view->viewport()->findChild<InPlaceLineEdit*>();
    QVERIFY(editor);
    QVERIFY(cell->isEditing());
    QCOMPARE(editor->text(), QStringLiteral("78"));
    QTest::keyClick(editor, Qt::Key_Backspace); // the selected text goes
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(cell->applied, QStringList{typed});
    QCOMPARE(int(cell->storedLevel), stored);
    QCOMPARE(cell->text(), shown);
    QVERIFY(!cell->isEditing());
}

void TestLevelCells::levelEditorOpensOnlyWhenEditable_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("opens");
    QTest::newRow("editable, left double click") << true << Qt::LeftButton << true;
    QTest::newRow("null edit text") << false << Qt::LeftButton << false;
    QTest::newRow("right double click") << true << Qt::RightButton << false;
}

void TestLevelCells::levelEditorOpensOnlyWhenEditable()
{
    QFETCH(bool, editable);
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, opens);
    TestChannelCell* cell = m_cells[1];
    cell->editable = editable;
    cell->storedLevel = 255;
    // Over the level text, above the legend lines.
    const QPoint inCell = m_view->mapFromScene(cell->scenePos() + QPointF(25, 12));
    doubleClick(m_view->viewport(), button, inCell);
    QPointer<InPlaceLineEdit> editor = m_view->viewport()->findChild<InPlaceLineEdit*>();
    QCOMPARE(!editor.isNull(), opens);
    QCOMPARE(cell->isEditing(), opens);
    if (!opens)
        return;
    // Over the level text: 14 pixels in from the left, 26 high.
    const QRectF scene = cell->sceneBoundingRect();
    QCOMPARE(editor->geometry(),
             QRect(m_view->mapFromScene(scene.topLeft() + QPointF(14, 0)), QSize(35, 26)));
    QCOMPARE(editor->maxLength(), 3);
    QCOMPARE(editor->alignment(), Qt::AlignRight);
    QCOMPARE(editor->palette().color(QPalette::Text), QColor(187, 253, 172));
    QCOMPARE(editor->font().pixelSize(), 22);
    QVERIFY(editor->hasFocus());
    // The old text is not drawn under the editor.
    QVERIFY(!levelTextInked(renderCell(cell), qRgb(187, 253, 172)));
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(cell->applied.isEmpty());
    QVERIFY(!cell->isEditing());
    QVERIFY(levelTextInked(renderCell(cell), qRgb(187, 253, 172)));
    QTRY_VERIFY(editor.isNull());
}

void TestLevelCells::legendLinesReadAndWriteTheRecord()
{
    TestChannelCell* cell = m_cells[0]; // channel 4
    ConsoleCache::writeText(m_engine->record()->channelLegends[4], 1, QStringLiteral("Wash"));
    QCOMPARE(cell->legendLine(1)->text(), QString());
    cell->refreshLegend();
    QCOMPARE(cell->legendLine(1)->text(), QStringLiteral("Wash"));
    QVERIFY(cell->legendLine(0)->text().isEmpty());

    // Geometry: (1, 26 + 12 line, width - 3, 12), editable, 6 characters.
    for (int line = 0; line < 3; ++line) {
        InPlaceEditableText* item = cell->legendLine(line);
        QCOMPARE(item->parentItem(), cell);
        QCOMPARE(item->rect(), QRectF(1, 26 + 12 * line, 46, 12));
        QCOMPARE(item->maxLength(), 6);
        QCOMPARE(item->fontSize(), 8.0f);
        QVERIFY(item->isEditable());
    }

    m_engine->clearUpdates();
    const QPoint onLine = m_view->mapFromScene(cell->legendLine(2)->sceneBoundingRect().center());
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, onLine);
    auto* editor = m_view->viewport()->findChild<InPlaceLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("Front"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(ConsoleCache::readText(m_engine->record()->channelLegends[4], 2),
             QStringLiteral("Front"));
    QCOMPARE(ConsoleCache::readText(m_engine->record()->channelLegends[4], 1),
             QStringLiteral("Wash"));
    QCOMPARE(m_engine->updates(),
             (QList<FakeEngine::Call>{{ConsoleCode::ChannelTextChanged, 4, 0, 0}}));
    QCOMPARE(cell->legendLine(2)->text(), QStringLiteral("Front"));
}

void TestLevelCells::independentLegendAndFlags()
{
    ConsoleCache::writeText(m_engine->record()->independents[1].legend, 0, QStringLiteral("Smoke"));
    m_independent->refreshLegend();
    QCOMPARE(m_independent->legendLine(0)->text(), QStringLiteral("Smoke"));

    m_engine->clearUpdates();
    m_independent->legendLine(1)->startEditing(m_view->viewport(), m_view);
    auto* editor = m_view->viewport()->findChild<InPlaceLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("Fan"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(ConsoleCache::readText(m_engine->record()->independents[1].legend, 1),
             QStringLiteral("Fan"));
    QCOMPARE(m_engine->updates().size(), 1);
    QCOMPARE(m_engine->updates().first().code, int(ConsoleCode::IndependentsChanged));

    // Frame strength follows the independent's patch flag.
    const QRgb unpatched = renderCell(m_independent).pixel(30, 20);
    QCOMPARE(unpatched, over(black, QColor(91, 116, 86, 40)));
    const int address = 40;
    m_engine->record()->dmxPatch[address] = quint8(m_console->cache()->channelCount() + 1 + 1);
    m_console->patchChanged();
    QCOMPARE(m_console->cache()->independentFlags(1), quint8(1));
    QCOMPARE(renderCell(m_independent).pixel(30, 20), over(black, QColor(91, 116, 86, 80)));
}

void TestLevelCells::legendLinesAreChainedInOrder()
{
    TestChannelCell* cell = m_cells[0];
    QCOMPARE(cell->legendLine(0)->above(), nullptr);
    QCOMPARE(cell->legendLine(0)->below(), cell->legendLine(1));
    QCOMPARE(cell->legendLine(1)->below(), cell->legendLine(2));
    QCOMPARE(cell->legendLine(2)->below(), nullptr);
    QCOMPARE(cell->legendLine(2)->above(), cell->legendLine(1));
}

int main(int argc, char** argv)
{
    Lumidesk application(argc, argv);
    TestLevelCells test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_cells_level.moc"
