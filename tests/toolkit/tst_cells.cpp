// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"
#include "LumideskTestMain.h"
#include "ToolkitFixture.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "toolkit/Cell.h"
#include "toolkit/CellRow.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/CellText.h"
#include "toolkit/ChannelCell.h"
#include "toolkit/ChannelRow.h"
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/InPlaceEditableTextHandler.h"
#include "toolkit/InPlaceLineEditHandler.h"
#include "toolkit/IndependentCell.h"
#include "toolkit/MakeFont.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/PanTiltMonitorCell.h"
#include "toolkit/ParameterCell.h"
#include "toolkit/ParameterRow.h"
#include "toolkit/SpacingRow.h"

#include <QFontMetricsF>
#include <QPointer>

#include <functional>

#include <optional>

namespace {

// As the views write them: the level is a record byte shown through the
// shared level text, and a typed percentage is stored back.
class TestChannelCell : public ChannelCell
{
public:
    using ChannelCell::ChannelCell;
    QString text() const override { return ConsoleCache::formatLevel(stored, true); }
    QString editText() const override { return editable ? text() : QString(); }
    void applyEditText(const QString& typed) override
    {
        applied << typed;
        if (const auto level = ConsoleCache::levelFromPercentText(typed))
            stored = quint8(*level);
        // May delete this cell: a copy runs.
        if (const auto hook = onApply)
            hook();
    }
    quint8 level() const override { return stored; }
    bool isHighlighted() const override { return highlighted; }
    bool isBlind() const override { return blind; }

    quint8 stored = 0;
    bool editable = true, highlighted = false, blind = false;
    QStringList applied;
    std::function<void()> onApply;
};

class TestIndependentCell : public IndependentCell
{
public:
    using IndependentCell::IndependentCell;
    QString text() const override { return ConsoleCache::formatLevel(stored, true); }
    quint8 level() const override { return stored; }
    bool isHighlighted() const override { return false; }
    quint8 stored = 0;
};

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
    QString shown = QStringLiteral("12"), edit = QStringLiteral("12");
    QStringList applied;
};

class TestPanTiltCell : public PanTiltMonitorCell
{
public:
    using PanTiltMonitorCell::PanTiltMonitorCell;
    bool isActive() const override { return active; }
    float panPosition() const override { return position(pan, panFine, sixteenBit); }
    float tiltPosition() const override { return position(tilt, 0, sixteenBit); }
    bool active = true, sixteenBit = false;
    int pan = 128, panFine = 0, tilt = 128;
};

constexpr QRgb black = qRgb(0, 0, 0);
constexpr QRgb levelGreen = qRgb(187, 253, 172);

// A cell that paints nothing, so that only the table's separators show.
class BlankCell : public Cell
{
public:
    BlankCell(CellRow* row, int height) : Cell(row, height), m_height(height) {}
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override {}
    qreal height() const override { return m_height; }
    void setHeight(int height)
    {
        prepareGeometryChange();
        m_height = height;
    }

private:
    int m_height;
};

// A row kind as the views write them: the header separator, then its label.
class LabelledRow : public CellRow
{
public:
    using CellRow::CellRow;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override
    {
        paintHeaderSeparator(painter, option, widget);
    }
};

CellRow* addRow(CellRowTable* table, Spacing above, Spacing below, QList<int> heights)
{
    auto* row = new LabelledRow(table, above, below);
    for (int height : heights)
        new BlankCell(row, height);
    table->addRow(row);
    return row;
}

QImage render(QGraphicsScene& scene)
{
    QImage image(200, 50, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    scene.render(&painter, QRectF(0, 0, 200, 50), QRectF(0, 0, 200, 50));
    return image;
}

struct Recorder : InPlaceEditableTextHandler, InPlaceLineEditHandler
{
    void textChanged(InPlaceEditableText* item, const QString& text) override
    {
        events << "changed:" + text;
        if (!override.isNull())
            item->setText(override);
    }
    void navigate(InPlaceLineEdit*, bool up) override { events << (up ? "up" : "down"); }
    void textCommitted(InPlaceLineEdit*, const QString& text) override
    {
        events << "commit:" + text;
    }
    void editorClosed(InPlaceLineEdit*) override { events << QStringLiteral("closed"); }
    QStringList events;
    QString override;
};

} // namespace

Q_DECLARE_METATYPE(Spacing)

// The cell grid, the shared cells and in-place editing. The fixture is a grid of
// every shared cell kind on a Birch console: a channel row (channels 4-6 and
// independent 1), a parameter row (three Focus cells and a Color cell) and a
// pan/tilt monitor; editable texts go below it, at (250, 140).
class TestCells : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void lineEditWaysOut_data();
    void lineEditWaysOut();
    void lineEditLook_data();
    void lineEditLook();
    void textShrinksToFit_data();
    void textShrinksToFit();
    void editableText_data();
    void editableText();
    void chainNavigation();
    void rowGap_data();
    void rowGap();
    void emptyRowsAndRestacking();
    void separators_data();
    void separators();
    void textPlacedAndCutAsDrawText_data();
    void textPlacedAndCutAsDrawText();
    void levelCellPaint_data();
    void levelCellPaint();
    void levelEditor_data();
    void levelEditor();
    void legendLinesAreKeptInTheRecord_data();
    void legendLinesAreKeptInTheRecord();
    void parameterSelection_data();
    void parameterSelection();
    void parameterEditorOverActivePart_data();
    void parameterEditorOverActivePart();
    void parameterDecoration_data();
    void parameterDecoration();
    void panTiltDot_data();
    void panTiltDot();
    void rowHeaders_data();
    void rowHeaders();
    void editorOutlivesItsGrid_data();
    void editorOutlivesItsGrid();

private:
    InPlaceLineEdit* openLineEdit(InPlaceLineEditHandler* handler, const QString& text,
                                  int maxLength = 6, float fontSize = 11);
    InPlaceEditableText* addText(const QString& text, bool editable = true);

    std::optional<FakeEngine> m_engine;
    Console* m_console = nullptr;
    std::optional<ShownScene> m_shown;
    CellRowTable* m_table = nullptr;
    TestChannelCell* m_channels[3] = {};
    TestIndependentCell* m_independent = nullptr;
    TestParameterCell* m_parameters[4] = {};
    TestPanTiltCell* m_panTilt = nullptr;
    QGraphicsRectItem* m_parent = nullptr;
    // Outlives every editor a test leaves open.
    Recorder m_recorder;
};

void TestCells::init()
{
    m_engine.emplace(ConsoleCache::ModelBirch);
    m_console = m_engine->createConsole();
    m_shown.emplace();
    m_table = new CellRowTable(&m_shown->scene, false);
    auto* channels = new ChannelRow(m_table, m_console, QStringLiteral("Ch"));
    for (int i = 0; i < 3; ++i)
        m_channels[i] = new TestChannelCell(channels, m_console, i + 4);
    m_independent = new TestIndependentCell(channels, m_console, 1);
    m_table->addRow(channels);
    auto* parameters = new ParameterRow(m_table, QStringLiteral("Dimmer"), true);
    for (int i = 0; i < 4; ++i)
        m_parameters[i] = new TestParameterCell(parameters, i < 3 ? 0 : 1, i < 3 ? 1 : 5);
    m_table->addRow(parameters);
    auto* monitor = new ParameterRow(m_table, QStringLiteral("Pan/Tilt"), true);
    m_panTilt = new TestPanTiltCell(monitor);
    m_table->addRow(monitor);
    m_table->setPos(10, 20);
    m_recorder = Recorder();
    m_parent = m_shown->scene.addRect(QRectF(0, 0, 1, 1), Qt::NoPen);
    m_parent->setPos(250, 140);
    QVERIFY(m_shown->show());
}

void TestCells::cleanup()
{
    m_shown.reset();
    delete m_console;
    m_engine.reset();
}

void TestCells::levelCellPaint_data()
{
    addColumns<bool, int, bool, bool, int>({"independent", "level", "blind", "patched", "bar"});
    QTest::newRow("0 shows no text") << false << 0 << false << false << 0;
    QTest::newRow("12 shows 5 with an empty bar") << false << 12 << false << true << 0;
    QTest::newRow("13 fills one pixel") << false << 13 << false << false << 1;
    QTest::newRow("128 shows 50") << false << 128 << false << true << 10;
    QTest::newRow("255 shows F with a full bar") << false << 255 << false << false << 21;
    QTest::newRow("blind 128 in blue") << false << 128 << true << false << 10;
    QTest::newRow("independent 0") << true << 0 << false << false << 0;
    QTest::newRow("independent 255, patched") << true << 255 << false << true << 21;
}

void TestCells::levelCellPaint()
{
    auto [independent, level, blind, patched, bar] =
        fetch<bool, int, bool, bool, int>({"independent", "level", "blind", "patched", "bar"});
    m_channels[0]->stored = m_independent->stored = quint8(level);
    m_channels[0]->blind = blind;
    // Highlighted, the frame gets an outline; patched, a stronger fill.
    m_channels[0]->highlighted = level == 128;
    if (patched) { // DMX 18 to channel 4, or to independent 1 (numbered after the channels)
        m_engine->record()->dmxPatch[17] =
            quint8(independent ? m_console->cache()->channelCount() + 2 : 5);
        m_console->patchChanged();
    }
    const QImage image =
        m_shown->render(independent ? static_cast<QGraphicsItem*>(m_independent) : m_channels[0]);
    QCOMPARE(image.pixel(30, 40), over(black, QColor(91, 116, 86, patched ? 80 : 40)));
    const bool outlined =
        !inkBox(image, QRect(25, 1, 1, 4), [](QRgb p) { return qGreen(p) > 100; }).isEmpty();
    QCOMPARE(outlined, !independent && level == 128);
    QCOMPARE(image.pixel(0, 30), black); // nothing outside the frame
    int lit = 0;
    for (int y = 3; y < 24; ++y) {
        const QRgb pixel = image.pixel(6, y);
        lit += blind ? qBlue(pixel) > 150 && qGreen(pixel) < 100 : pixel == levelGreen;
    }
    QCOMPARE(lit, bar);
    // The bar grows from the bottom of its 21-pixel slot.
    QCOMPARE(image.pixel(6, 23) == levelGreen, bar > 0 && !blind);
    const QRgb textColour = blind ? qRgb(0, 0, 255) : levelGreen;
    const QRgb otherColour = blind ? levelGreen : qRgb(0, 0, 255);
    const QRect text(12, 0, 33, 26);
    QCOMPARE(inkBox(image, text, [&](QRgb p) { return p == textColour; }).isEmpty(), level == 0);
    QVERIFY(inkBox(image, text, [&](QRgb p) { return p == otherColour; }).isEmpty());
}

void TestCells::levelEditor_data()
{
    // typed: null: Escape
    addColumns<bool, Qt::MouseButton, QString, int, QString>(
        {"editable", "button", "typed", "stored", "shown"});
    const Qt::MouseButton left = Qt::LeftButton;
    QTest::newRow("50 stores 127 and reads 50") << true << left << "50" << 127 << "50";
    QTest::newRow("100 stores 255, shown as F") << true << left << "100" << 255 << "F";
    QTest::newRow("0 stores 0, shown as nothing") << true << left << "0" << 0 << "0";
    QTest::newRow("101 rejected") << true << left << "101" << 200 << "78";
    QTest::newRow("text rejected") << true << left << "ab" << 200 << "78";
    QTest::newRow("Escape discards") << true << left << QString() << 200 << "78";
    QTest::newRow("null edit text opens nothing") << false << left << QString() << 200 << "78";
    QTest::newRow("right double click opens nothing")
        << true << Qt::RightButton << QString() << 200 << "78";
}

void TestCells::levelEditor()
{
    auto [editable, button, typed, stored, shown] =
        fetch<bool, Qt::MouseButton, QString, int, QString>(
            {"editable", "button", "typed", "stored", "shown"});
    const bool opens = editable && button == Qt::LeftButton;
    TestChannelCell* cell = m_channels[2];
    cell->editable = editable;
    cell->stored = 200;
    const auto textInked = [&] {
        const QImage image = m_shown->render(cell);
        return !inkBox(image, QRect(12, 0, 33, 26), [](QRgb p) {
                    return p == levelGreen;
                }).isEmpty();
    };
    m_shown->doubleClick(cell->scenePos() + QPointF(25, 12), button);
    QPointer<InPlaceLineEdit> editor = m_shown->editor();
    QCOMPARE(!editor.isNull(), opens);
    QCOMPARE(cell->isEditing(), opens);
    QCOMPARE(textInked(), !opens); // no old text under the editor
    if (!opens)
        return;
    // Over the level text: 14 pixels in from the left, 26 high.
    QCOMPARE(editor->geometry(),
             QRect(m_shown->at(cell->scenePos() + QPointF(14, 0)), QSize(35, 26)));
    QCOMPARE(editor->text(), QStringLiteral("78"));
    QCOMPARE(editor->maxLength(), 3);
    QTest::keyClick(editor, Qt::Key_Backspace); // the selected text goes
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, typed.isNull() ? Qt::Key_Escape : Qt::Key_Return);
    QCOMPARE(cell->applied, typed.isNull() ? QStringList() : QStringList{typed});
    QCOMPARE(int(cell->stored), stored);
    QCOMPARE(cell->text(), shown);
    QVERIFY(!cell->isEditing());
    QCOMPARE(textInked(), stored != 0);
    QTRY_VERIFY(editor.isNull());
}

void TestCells::legendLinesAreKeptInTheRecord_data()
{
    QTest::addColumn<bool>("independent");
    QTest::newRow("channel 4") << false;
    QTest::newRow("independent 1") << true;
}

void TestCells::legendLinesAreKeptInTheRecord()
{
    QFETCH(bool, independent);
    ConsoleStateRecord* record = m_engine->record();
    auto& legend = independent ? record->independents[1].legend : record->channelLegends[4];
    LevelCell* cell = independent ? static_cast<LevelCell*>(m_independent) : m_channels[0];
    ConsoleCache::writeText(legend, 1, QStringLiteral("Wash"));
    QCOMPARE(cell->legendLine(1)->text(), QString());
    cell->refreshLegend();
    QCOMPARE(cell->legendLine(1)->text(), QStringLiteral("Wash"));
    for (int line = 0; line < 3; ++line)
        QCOMPARE(cell->legendLine(line)->rect(), QRectF(1, 26 + 12 * line, 46, 12));

    // A click on the last line edits it; Up moves to the middle one.
    m_engine->clearUpdates();
    const QPointF onLine = cell->legendLine(2)->sceneBoundingRect().center();
    QTest::mouseClick(m_shown->viewport(), Qt::LeftButton, {}, m_shown->at(onLine));
    QVERIFY(m_shown->editor());
    QCOMPARE(m_shown->editor()->maxLength(), 6);
    QTest::keyClicks(m_shown->editor(), QStringLiteral("Front"));
    QTest::keyClick(m_shown->editor(), Qt::Key_Up);
    QVERIFY(cell->legendLine(1)->isEditing());
    QTest::keyClick(m_shown->editor(), Qt::Key_Escape);
    QCOMPARE(ConsoleCache::readText(legend, 2), QStringLiteral("Front"));
    QCOMPARE(ConsoleCache::readText(legend, 1), QStringLiteral("Wash"));
    const int code =
        independent ? int(ConsoleCode::IndependentsChanged) : int(ConsoleCode::ChannelTextChanged);
    QCOMPARE(m_engine->updates().size(), 1);
    QCOMPARE(m_engine->updates().first().code, code);
    if (!independent)
        QCOMPARE(m_engine->updates().first().a, 4);
}

void TestCells::parameterSelection_data()
{
    addColumns<QList<int>, int, int, int, QList<int>>(
        {"before", "target", "modifiers", "drag", "after"});
    const int none = Qt::NoModifier, control = Qt::ControlModifier, shift = Qt::ShiftModifier;
    QTest::newRow("plain click on unselected selects it alone")
        << QList<int>{0, 1} << 2 << none << 0 << QList<int>{2};
    QTest::newRow("plain click on a selected one keeps the selection")
        << QList<int>{0, 1} << 1 << none << 0 << QList<int>{0, 1};
    QTest::newRow("control-click on selected deselects only it")
        << QList<int>{0, 1, 2} << 1 << control << 0 << QList<int>{0, 2};
    QTest::newRow("control-click on unselected adds it")
        << QList<int>{0} << 2 << control << 0 << QList<int>{0, 2};
    QTest::newRow("shift-click on unselected selects it alone")
        << QList<int>{0} << 1 << shift << 0 << QList<int>{1};
    QTest::newRow("control-drag changes nothing")
        << QList<int>{0, 1} << 1 << control << 6 << QList<int>{0, 1};
    QTest::newRow("plain drag from selected changes nothing")
        << QList<int>{0, 1} << 0 << none << 6 << QList<int>{0, 1};
    QTest::newRow("right click changes nothing")
        << QList<int>{0} << 2 << none << -1 << QList<int>{0};
}

void TestCells::parameterSelection()
{
    // drag: -1: the right button
    auto [before, target, modifiers, drag, after] = fetch<QList<int>, int, int, int, QList<int>>(
        {"before", "target", "modifiers", "drag", "after"});
    for (int i : before)
        m_parameters[i]->setSelected(true);
    QWidget* viewport = m_shown->viewport();
    const QPoint at = m_shown->at(m_parameters[target]->sceneBoundingRect().center());
    const Qt::MouseButton button = drag < 0 ? Qt::RightButton : Qt::LeftButton;
    QTest::mousePress(viewport, button, Qt::KeyboardModifiers(modifiers), at);
    QTest::mouseMove(viewport, at + QPoint(qMax(drag, 0), 0));
    QTest::mouseRelease(viewport, button, Qt::KeyboardModifiers(modifiers),
                        at + QPoint(qMax(drag, 0), 0));
    QList<int> selected;
    for (int i = 0; i < 3; ++i)
        if (m_parameters[i]->isSelected())
            selected << i;
    QCOMPARE(selected, after);
}

void TestCells::parameterEditorOverActivePart_data()
{
    addColumns<int, bool, int>({"cell", "editable", "width"});
    QTest::newRow("Focus: full width") << 1 << true << 49;
    QTest::newRow("Color: left half, rounded") << 3 << true << 25;
    QTest::newRow("null edit text opens nothing") << 0 << false << 0;
}

void TestCells::parameterEditorOverActivePart()
{
    auto [cell, editable, width] = fetch<int, bool, int>({"cell", "editable", "width"});
    TestParameterCell* target = m_parameters[cell];
    if (!editable)
        target->edit = QString();
    target->setSelected(true);
    const QImage unedited = m_shown->render(target);
    m_shown->doubleClick(target->scenePos() + QPointF(10, 8));
    QPointer<InPlaceLineEdit> editor = m_shown->editor();
    QCOMPARE(!editor.isNull(), editable);
    QCOMPARE(target->isEditing(), editable);
    if (!editable)
        return;
    // The selection shows over the active part only; nothing at all is
    // drawn under an open editor.
    QCOMPARE(unedited.pixel(47, 2), width == 49 ? qRgb(64, 64, 64) : black);
    QCOMPARE(unedited.pixel(2, 2), qRgb(64, 64, 64));
    QVERIFY(inkBox(m_shown->render(target)).isEmpty());
    QCOMPARE(editor->geometry(), QRect(m_shown->at(target->scenePos()), QSize(width, 16)));
    QCOMPARE(editor->maxLength(), 3);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, QStringLiteral("42"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(target->applied, QStringList{QStringLiteral("42")});
    QVERIFY(!target->isEditing());
    QTRY_VERIFY(editor.isNull());
}

void TestCells::parameterDecoration_data()
{
    addColumns<int, QString, QRect, QRect>({"parameter", "text", "swatch", "textRoom"});
    const QRect colourRoom(0, 0, 27, 16);
    QTest::newRow("colour mix 0") << 0 << " " << QRect(29, 2, 18, 14) << colourRoom;
    QTest::newRow("colour mix 3") << 3 << " " << QRect(29, 0, 18, 16) << colourRoom;
    QTest::newRow("colour mix 4") << 4 << " " << QRect(29, 0, 18, 14) << colourRoom;
    QTest::newRow("pan has none") << 1 << " " << QRect() << colourRoom;
    QTest::newRow("null text draws no swatch") << 0 << QString() << QRect() << QRect();
    // A value wider than its room is cut at the room, as drawText cuts it.
    QTest::newRow("long value stays in its room")
        << 0 << "8888888" << QRect(29, 2, 18, 14) << colourRoom;
}

void TestCells::parameterDecoration()
{
    auto [parameter, text, swatch, textRoom] =
        fetch<int, QString, QRect, QRect>({"parameter", "text", "swatch", "textRoom"});
    auto* row = new ParameterRow(m_table, QString(), false);
    auto* cell = new TestParameterCell(row, 1, parameter);
    cell->shown = text;
    cell->swatch = QColor(0, 0, 250);
    m_table->addRow(row);
    // With the header column left of the cell, clear of its separator.
    const QImage image = m_shown->render(cell->sceneBoundingRect().adjusted(-40, 0, 0, 0));
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 89; ++x) {
            const QPoint at(x - 40, y);
            if (at.x() == -1) // the header separator
                continue;
            const QRgb expected = swatch.contains(at) ? qRgb(0, 0, 250) : black;
            if (!textRoom.contains(at) && image.pixel(x, y) != expected)
                QFAIL(qPrintable(QStringLiteral("pixel %1,%2").arg(at.x()).arg(y)));
        }
}

void TestCells::panTiltDot_data()
{
    addColumns<bool, QPoint, int, QPointF>({"sixteenBit", "panTilt", "panFine", "fraction"});
    QTest::newRow("8-bit pan 0: left edge") << false << QPoint(0, 128) << 0 << QPointF(-0.4, 0);
    QTest::newRow("8-bit pan 128: right of centre")
        << false << QPoint(128, 128) << 0 << QPointF(0.0016, 0);
    QTest::newRow("8-bit 255/0: right, top") << false << QPoint(255, 0) << 0 << QPointF(0.4, -0.4);
    QTest::newRow("16-bit 0/0: left edge") << true << QPoint(0, 255) << 0 << QPointF(-0.4, 0.4);
    QTest::newRow("16-bit 255/255: right edge")
        << true << QPoint(255, 128) << 255 << QPointF(0.4, 0);
}

void TestCells::panTiltDot()
{
    auto [sixteenBit, panTilt, panFine, fraction] =
        fetch<bool, QPoint, int, QPointF>({"sixteenBit", "panTilt", "panFine", "fraction"});
    m_panTilt->sixteenBit = sixteenBit;
    m_panTilt->pan = panTilt.x();
    m_panTilt->panFine = panFine;
    m_panTilt->tilt = panTilt.y();
    const QSize room = Lumidesk::instance()->resources().image(Resources::Id::PanTiltRoom).size();
    // The whole room fits the cell: none of it is cut or reaches the next rows.
    QVERIFY(QRect(0, 0, 49, PanTiltMonitorCell::cellHeight)
                .contains(QRect(m_panTilt->imageOrigin(), room)));
    const QPoint dot(int(24.5 + fraction.x() * room.width()),
                     int(19 + fraction.y() * room.height()));
    QVERIFY((m_panTilt->dotPosition() - dot).manhattanLength() <= 1);
    // The dot is a white 3 x 3 square over the room image; inactive, nothing.
    const QImage picture = m_shown->render(m_panTilt);
    for (const QPoint& offset : {QPoint(0, 0), QPoint(1, 1), QPoint(-1, -1)})
        QCOMPARE(picture.pixel(m_panTilt->dotPosition() + offset), qRgb(255, 255, 255));
    m_panTilt->active = false;
    QVERIFY(inkBox(m_shown->render(m_panTilt)).isEmpty());
}

void TestCells::rowHeaders_data()
{
    addColumns<int, QRect, int>({"kind", "inkWithin", "inkCentreY"});
    QTest::newRow("channel row: title at the top right") << 0 << QRect(40, 0, 39, 18) << 5;
    QTest::newRow("parameter row: title centred") << 1 << QRect(40, 2, 39, 19) << 11;
    QTest::newRow("number row: title centred") << 2 << QRect(20, 2, 42, 18) << 9;
    QTest::newRow("number row: arrow image") << 3 << QRect() << -1;
}

void TestCells::rowHeaders()
{
    auto [kind, inkWithin, inkCentreY] =
        fetch<int, QRect, int>({"kind", "inkWithin", "inkCentreY"});
    auto* table = new CellRowTable(&m_shown->scene, true);
    CellRow* row = kind == 0   ? new ChannelRow(table, nullptr, QStringLiteral("CH"))
                   : kind == 1 ? static_cast<CellRow*>(new ParameterRow(table, "Zoom", true))
                               : new NumberRow(table, kind == 2 ? QStringLiteral("#") : QString());
    new NumberCell(row, 0);
    table->addRow(row);
    table->setPos(0, 150);
    const QImage image = m_shown->render(QRectF(0, 150, 140, 23));
    const QRect ink = inkBox(image, QRect(0, 0, 82, 23));
    if (kind == 3) {
        const QImage& arrow = Lumidesk::instance()->resources().image(Resources::Id::ArrowRight);
        inkWithin = QRect(QPoint(82 - 3 - arrow.width(), 4), arrow.size());
    }
    QVERIFY(!ink.isEmpty() && inkWithin.contains(ink));
    if (inkCentreY >= 0)
        QVERIFY(qAbs(ink.center().y() - inkCentreY) <= 1);
    // The number cell: grey frame, "1" in white centred.
    QCOMPARE(image.pixel(83 + 4, 11), qRgb(45, 45, 45));
    QVERIFY(qAbs(inkBox(image, QRect(83 + 8, 6, 33, 12)).center().x() - (83 + 24)) <= 2);
}

void TestCells::editorOutlivesItsGrid_data()
{
    // owner: 0: level, 1: parameter, 2: legend line
    addColumns<int, bool, bool>({"owner", "focusOut", "rebuiltByCommit"});
    QTest::newRow("level editor, then Return") << 0 << false << false;
    QTest::newRow("level editor, then focus out") << 0 << true << false;
    QTest::newRow("parameter editor, then Return") << 1 << false << false;
    QTest::newRow("legend line, then focus out") << 2 << true << false;
    QTest::newRow("level editor whose commit rebuilds the grid") << 0 << false << true;
}

// A view rebuilds its grid on playLoaded() while the user may be typing in a
// cell; the editor must not call the deleted cell afterwards.
void TestCells::editorOutlivesItsGrid()
{
    auto [owner, focusOut, rebuiltByCommit] =
        fetch<int, bool, bool>({"owner", "focusOut", "rebuiltByCommit"});
    if (owner == 0)
        m_shown->doubleClick(m_channels[0]->scenePos() + QPointF(25, 12));
    else if (owner == 1)
        m_shown->doubleClick(m_parameters[0]->scenePos() + QPointF(10, 8));
    else
        m_channels[0]->legendLine(2)->startEditing(m_shown->viewport(), &m_shown->view);
    QPointer<InPlaceLineEdit> editor = m_shown->editor();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("7"));
    const auto rebuild = [this] {
        delete m_table;
        m_table = new CellRowTable(&m_shown->scene, false);
    };
    if (rebuiltByCommit) {
        m_channels[0]->onApply = rebuild;
    } else {
        rebuild();
        QVERIFY(!editor || !editor->isVisible());
    }
    if (editor && focusOut)
        m_shown->view.setFocus();
    else if (editor)
        QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(editor.isNull());
}

void TestCells::rowGap_data()
{
    addColumns<Spacing, Spacing, int>({"upperBelow", "lowerAbove", "gap"});
    QTest::newRow("none and none touch") << Spacing::NoSpacing << Spacing::NoSpacing << 0;
    QTest::newRow("thin and thin is one, not two")
        << Spacing::ThinSpacing << Spacing::ThinSpacing << 1;
    QTest::newRow("thick below, thin above") << Spacing::ThickSpacing << Spacing::ThinSpacing << 2;
    QTest::newRow("thin below, thick above") << Spacing::ThinSpacing << Spacing::ThickSpacing << 2;
    QTest::newRow("none below, thin above") << Spacing::NoSpacing << Spacing::ThinSpacing << 1;
    QTest::newRow("unknown kind counts as none")
        << static_cast<Spacing>(7) << Spacing::NoSpacing << 0;
}

void TestCells::rowGap()
{
    auto [upperBelow, lowerAbove, gap] =
        fetch<Spacing, Spacing, int>({"upperBelow", "lowerAbove", "gap"});
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    table->setTopOffset(30);
    CellRow* upper = addRow(table, Spacing::ThickSpacing, upperBelow, {23});
    // The k-th cell starts at 83 + 49 k whatever its height; the row follows
    // its tallest cell and ends a gap after the last one.
    CellRow* lower = addRow(table, lowerAbove, Spacing::ThickSpacing, {45, 16, 63});
    QCOMPARE(upper->pos(), QPointF(0, 30));
    QCOMPARE(lower->pos(), QPointF(0, 30 + 23 + gap));
    QCOMPARE(lower->cells().at(2)->pos(), QPointF(83 + 49 * 2, 0));
    QCOMPARE(lower->cells().at(2)->boundingRect(), QRectF(0, 0, 49, 63));
    QCOMPARE(lower->cells().at(2)->parentItem(), lower);
    QCOMPARE(table->boundingRect(), QRectF(0, 30, 3 * 49 + 84, 23 + gap + 63));
    // Deleting the table deletes its rows and cells.
    delete table;
    QVERIFY(scene.items().isEmpty());
}

void TestCells::emptyRowsAndRestacking()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    QVERIFY(table->boundingRect().isEmpty());
    auto* bare = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    QCOMPARE(bare->boundingRect(), QRectF(0, 0, 84, 0));
    auto* spacing = new SpacingRow(table);
    QCOMPARE(spacing->boundingRect(), QRectF(0, 0, 84, 25));
    table->addRow(spacing);
    QList<CellRow*> rows;
    for (int i = 0; i < 3; ++i)
        rows << addRow(table, Spacing::NoSpacing, Spacing::ThickSpacing, {20});
    QCOMPARE(rows[0]->y(), 26.0);
    static_cast<BlankCell*>(rows[0]->cells().first())->setHeight(40);
    static_cast<BlankCell*>(rows[1]->cells().first())->setHeight(5);
    // Nothing moves until the owner asks.
    QCOMPARE(rows[1]->y(), 48.0);
    table->layoutRows();
    QCOMPARE((QList<qreal>{rows[0]->y(), rows[1]->y(), rows[2]->y()}), (QList<qreal>{26, 68, 75}));
}

void TestCells::separators_data()
{
    QTest::addColumn<bool>("hideHeaderSeparator");
    QTest::newRow("with header separator") << false;
    QTest::newRow("header separator hidden") << true;
}

void TestCells::separators()
{
    QFETCH(bool, hideHeaderSeparator);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, hideHeaderSeparator);
    addRow(table, Spacing::ThinSpacing, Spacing::ThickSpacing, {10, 10});
    addRow(table, Spacing::ThinSpacing, Spacing::NoSpacing, {10, 10});
    addRow(table, Spacing::NoSpacing, Spacing::ThinSpacing, {10, 10});
    addRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing, {10, 10});
    // Rows at 0, 12, 22 (touching), 33; bands at y 10-11 and 32 only.
    const QImage image = render(scene);
    const QRgb band = over(qRgb(0, 0, 0), CellRowTable::separatorColour());
    const QRgb black = qRgb(0, 0, 0);
    for (int y = 0; y < 50; ++y) {
        const bool inBand = y == 10 || y == 11 || y == 32;
        QCOMPARE(image.pixel(0, y), inBand ? band : black);
        QCOMPARE(image.pixel(181, y), inBand ? band : black);
        QCOMPARE(image.pixel(182, y), black);
        // The header separator: one column at x = 82, within the rows.
        const bool inRow = !inBand && y < 43;
        QCOMPARE(image.pixel(82, y), inBand || (inRow && !hideHeaderSeparator) ? band : black);
        QCOMPARE(image.pixel(81, y), inBand ? band : black);
    }
}

void TestCells::textPlacedAndCutAsDrawText_data()
{
    addColumns<QString, int, QRectF, int>({"text", "points", "rect", "alignment"});
    const int rightMiddle = Qt::AlignRight | Qt::AlignVCenter;
    QTest::newRow("level text") << "50" << 17 << QRectF(4, 0, 41, 26) << rightMiddle;
    QTest::newRow("parameter value") << "255 " << 11 << QRectF(0, 0, 27, 16) << rightMiddle;
    QTest::newRow("focus value centred")
        << "128 " << 11 << QRectF(0, 0, 49, 16) << int(Qt::AlignCenter);
    QTest::newRow("row title at the top")
        << "Ch 1-24" << 11 << QRectF(0, 0, 78, 30) << int(Qt::AlignRight | Qt::AlignTop);
    QTest::newRow("half-pixel box")
        << "Wash" << 8 << QRectF(1.5, 2.5, 40, 13) << int(Qt::AlignHCenter | Qt::AlignVCenter);
    QTest::newRow("too wide, right-aligned")
        << "Moving head" << 17 << QRectF(4, 0, 41, 26) << rightMiddle;
    QTest::newRow("too wide, centred")
        << "Moving head" << 11 << QRectF(20, 10, 30, 16) << int(Qt::AlignCenter);
    QTest::newRow("too tall") << "Wash" << 17 << QRectF(10, 10, 50, 12) << rightMiddle;
}

// Cell texts are drawn from a rendering made once; they must land where
// QPainter::drawText puts the same line, and be cut where it cuts it.
void TestCells::textPlacedAndCutAsDrawText()
{
    auto [text, points, rect, alignment] =
        fetch<QString, int, QRectF, int>({"text", "points", "rect", "alignment"});
    const QFont font = makeFont(QStringLiteral("Gill Sans MT"), points);
    QImage direct(80, 40, QImage::Format_ARGB32_Premultiplied);
    direct.fill(Qt::black);
    QImage cached = direct;
    {
        QPainter painter(&direct);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(rect, alignment, text);
    }
    {
        QPainter painter(&cached);
        // Drawn before in another text, then in another colour: the rendering follows both.
        CellText cellText;
        const auto align = Qt::Alignment(alignment);
        cellText.draw(&painter, rect, align, text + QLatin1Char('x'), font, Qt::white);
        cellText.draw(&painter, rect, align, text, font, Qt::red);
        painter.fillRect(cached.rect(), Qt::black);
        cellText.draw(&painter, rect, align, text, font, Qt::white);
    }
    const auto bright = [](QRgb pixel) { return qGray(pixel) > 96; };
    const QRect expected = inkBox(direct, QRect(), bright),
                actual = inkBox(cached, QRect(), bright);
    QVERIFY(!expected.isEmpty());
    // Within a pixel of drawText's ink on every side, and never outside the rectangle.
    QVERIFY(expected.adjusted(-1, -1, 1, 1).contains(actual));
    QVERIFY(actual.adjusted(-1, -1, 1, 1).contains(expected));
    QVERIFY(rect.toAlignedRect().contains(inkBox(cached)));
}

InPlaceLineEdit* TestCells::openLineEdit(InPlaceLineEditHandler* handler, const QString& text,
                                         int maxLength, float fontSize)
{
    auto* editor = new InPlaceLineEdit(m_shown->viewport(), handler, text, maxLength, fontSize,
                                       QColor(187, 253, 172), Qt::AlignRight);
    editor->setGeometry(10, 10, 200, 20);
    editor->showEditor();
    return editor;
}

// A 47 x 12 box at scene (260, 150), below the grid.
InPlaceEditableText* TestCells::addText(const QString& text, bool editable)
{
    auto* item = new InPlaceEditableText(m_parent, &m_recorder, QRectF(10, 10, 47, 12), 6, 8,
                                         QColor(255, 0, 255), Qt::AlignHCenter);
    item->setText(text);
    item->setEditable(editable);
    return item;
}

void TestCells::lineEditWaysOut_data()
{
    // Key: 0 moves the focus away, -1 closes the editor.
    addColumns<int, bool, QStringList>({"key", "focused", "expected"});
    const QStringList committed = {"commit:42", "closed"}, discarded = {"closed"};
    QTest::newRow("Escape discards") << int(Qt::Key_Escape) << true << discarded;
    QTest::newRow("Return commits once") << int(Qt::Key_Return) << true << committed;
    QTest::newRow("keypad Enter commits once") << int(Qt::Key_Enter) << true << committed;
    QTest::newRow("focus moving away commits") << 0 << true << committed;
    QTest::newRow("closing commits") << -1 << true << committed;
    QTest::newRow("closing a never focused editor commits") << -1 << false << committed;
    QTest::newRow("Escape in a never focused editor") << int(Qt::Key_Escape) << false << discarded;
}

void TestCells::lineEditWaysOut()
{
    auto [key, focused, expected] = fetch<int, bool, QStringList>({"key", "focused", "expected"});
    QWidget other(m_shown->viewport());
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    QPointer<InPlaceLineEdit> editor = new InPlaceLineEdit(
        m_shown->viewport(), &m_recorder, QStringLiteral("17"), 6, 11, Qt::white, Qt::AlignLeft);
    if (focused)
        editor->showEditor();
    else
        editor->show();
    QCOMPARE(editor->hasFocus(), focused);
    QTest::keyClicks(editor, QStringLiteral("42"));
    if (key > 0)
        QTest::keyClick(editor, Qt::Key(key),
                        key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
    else if (key == 0)
        other.setFocus(Qt::MouseFocusReason);
    else
        editor->close();
    QCOMPARE(m_recorder.events, expected);
    QTRY_VERIFY(editor.isNull());
    QCOMPARE(m_recorder.events, expected);
}

void TestCells::lineEditLook_data()
{
    addColumns<int, float, QString, int>({"maxLength", "fontSize", "family", "pixelSize"});
    QTest::newRow("level field, 3") << 3 << 17.0f << "Gill Sans MT" << 22;
    QTest::newRow("legend line, 6") << 6 << 8.0f << "Gill Sans MT" << 10;
    QTest::newRow("name, 7: monospaced at 85 %") << 7 << 11.0f << "Courier New" << 12;
    QTest::newRow("whole name, 18, size 20") << 18 << 20.0f << "Courier New" << 22;
}

void TestCells::lineEditLook()
{
    auto [maxLength, fontSize, family, pixelSize] =
        fetch<int, float, QString, int>({"maxLength", "fontSize", "family", "pixelSize"});
    InPlaceLineEdit* editor = openLineEdit(&m_recorder, QString(), maxLength, fontSize);
    QCOMPARE(editor->font().family(), family);
    QCOMPARE(editor->font().pixelSize(), pixelSize);
    // Fields longer than six characters get grey guides after the 6th and 12th.
    QImage image(200, 20, QImage::Format_ARGB32);
    image.fill(Qt::black);
    editor->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    const int space = editor->fontMetrics().horizontalAdvance(QLatin1Char(' '));
    QList<int> guides;
    for (int x = 0; x < 200; ++x)
        if (image.pixel(x, 10) == qRgb(128, 128, 128) && image.pixel(x, 0) == qRgb(128, 128, 128))
            guides << x;
    QCOMPARE(guides, maxLength > 6 ? (QList<int>{6 * space, 12 * space}) : QList<int>{});
    // Typing stops at the maximum length; Up and Down go to the handler.
    const QString typed = QStringLiteral("12345678901234567890");
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Up);
    QTest::keyClick(editor, Qt::Key_Down);
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_recorder.events,
             (QStringList{"up", "down", "commit:" + typed.left(maxLength), "closed"}));
}

void TestCells::textShrinksToFit_data()
{
    // fits: 0: at full size, 1: two points less, 2: four less, 3: never
    addColumns<int, int, int>({"fits", "grow", "points"});
    QTest::newRow("fits at full size") << 0 << 1 << 11;
    QTest::newRow("fits two points smaller") << 1 << 3 << 9;
    QTest::newRow("fits four points smaller") << 2 << 7 << 7;
    QTest::newRow("too wide even then") << 3 << 7 << 7;
}

void TestCells::textShrinksToFit()
{
    auto [fits, grow, points] = fetch<int, int, int>({"fits", "grow", "points"});
    const QString text = QStringLiteral("Moving head");
    // Box widths between the text's widths at the three sizes.
    qreal widths[4];
    for (int i = 0; i < 3; ++i) {
        QFont font(QStringLiteral("Gill Sans MT"));
        font.setPixelSize((11 - 2 * i) * 4 / 3);
        widths[i] = QFontMetricsF(font).horizontalAdvance(text);
    }
    widths[3] = widths[2] / 2;
    const qreal box = fits == 0 ? widths[0] : (widths[fits - 1] + widths[fits]) / 2;
    auto* item = new InPlaceEditableText(m_parent, &m_recorder,
                                         QRectF(0, 0, fits == 3 ? widths[3] : box, 12), 6, 11,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(text);
    QCOMPARE(item->paintFont().pixelSize(), points * 4 / 3);
    QCOMPARE(item->paintGrow(), grow);
}

void TestCells::editableText_data()
{
    addColumns<bool, Qt::MouseButton>({"editable", "button"});
    QTest::newRow("editable, left button") << true << Qt::LeftButton;
    QTest::newRow("not editable, left button") << false << Qt::LeftButton;
    QTest::newRow("editable, right button") << true << Qt::RightButton;
}

void TestCells::editableText()
{
    auto [editable, button] = fetch<bool, Qt::MouseButton>({"editable", "button"});
    const bool opens = editable && button == Qt::LeftButton;
    InPlaceEditableText* item = addText(QStringLiteral("HHH"), editable);
    // Hovered, an editable text is underlined along y = 150 + 12 - 2, x = 263 to 303.
    const auto underline = [this] { return inkBox(m_shown->render(QRectF(240, 160, 100, 1))); };
    QVERIFY(underline().isEmpty());
    QTest::mouseMove(m_shown->viewport(), QPoint(100, 190)); // from outside
    QTest::mouseMove(m_shown->viewport(), QPoint(280, 155));
    QTRY_COMPARE(underline(), editable ? QRect(23, 0, 41, 1) : QRect());
    const auto inked = [&] { return !inkBox(m_shown->render(item)).isEmpty(); };
    QVERIFY(inked());
    QTest::mouseClick(m_shown->viewport(), button, {}, QPoint(280, 155));
    QPointer<InPlaceLineEdit> editor = m_shown->editor();
    QCOMPARE(!editor.isNull(), opens);
    QCOMPARE(item->isEditing(), opens);
    QCOMPARE(inked(), !opens); // not drawn under the editor
    if (!opens)
        return;
    QCOMPARE(editor->selectedText(), QStringLiteral("HHH"));
    QVERIFY(editor->hasFocus());
    // Over the item, two pixels lower.
    QCOMPARE(editor->geometry(), QRect(260, 152, 47, 12));
    // The text is stored before the handler hears of it, so that a handler
    // that sets another text has the last word.
    m_recorder.override = QStringLiteral("WASH");
    QTest::keyClicks(editor, QStringLiteral("Wash"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_recorder.events, QStringList{"changed:Wash"});
    QCOMPARE(item->text(), QStringLiteral("WASH"));
    QVERIFY(!item->isEditing() && inked());
    QVERIFY(underline().isEmpty());
    QTRY_VERIFY(editor.isNull());
}

void TestCells::chainNavigation()
{
    InPlaceEditableText* lines[3];
    for (int i = 0; i < 3; ++i) {
        lines[i] = new InPlaceEditableText(m_parent, &m_recorder, QRectF(0, 12 * i, 47, 12), 6, 8,
                                           Qt::white, Qt::AlignHCenter);
        lines[i]->setText(QStringLiteral("L%1").arg(i + 1));
        lines[i]->setEditable(true);
    }
    InPlaceEditableText::chain(lines, 3);
    // Down in the last line keeps its editor.
    QTest::mouseClick(m_shown->viewport(), Qt::LeftButton, {}, QPoint(270, 140 + 24 + 6));
    QPointer<InPlaceLineEdit> last = m_shown->editor();
    QVERIFY(last && lines[2]->isEditing());
    QTest::keyClick(last, Qt::Key_Down);
    QVERIFY(last && last->hasFocus());
    QTest::keyClick(last, Qt::Key_Escape);
    // Up in the middle one commits it and opens the first at its place.
    lines[1]->startEditing(m_shown->viewport(), &m_shown->view);
    QPointer<InPlaceLineEdit> middle = m_shown->editor();
    QTest::keyClicks(middle, QStringLiteral("Mid"));
    QTest::keyClick(middle, Qt::Key_Up);
    QCOMPARE(m_recorder.events, QStringList{QStringLiteral("changed:Mid")});
    QVERIFY(!lines[1]->isEditing() && lines[0]->isEditing());
    InPlaceLineEdit* first = m_shown->editor();
    QVERIFY(first && first != middle);
    QCOMPARE(first->text(), QStringLiteral("L1"));
    QCOMPARE(first->geometry(), QRect(250, 142, 47, 12));
    QVERIFY(first->hasFocus());
}

LUMIDESK_TEST_MAIN(TestCells)

#include "tst_cells.moc"
