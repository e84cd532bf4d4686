// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/InPlaceEditableTextHandler.h"
#include "toolkit/InPlaceLineEdit.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPointer>
#include <QTest>

namespace {

struct RecordingTextHandler : InPlaceEditableTextHandler
{
    void textChanged(InPlaceEditableText* item, const QString& text) override
    {
        changes << qMakePair(item, text);
        if (!override.isNull())
            item->setText(override);
    }
    QList<QPair<InPlaceEditableText*, QString>> changes;
    QString override;
};

InPlaceLineEdit* openEditor(QWidget* viewport)
{
    const QList<InPlaceLineEdit*> editors =
        viewport->findChildren<InPlaceLineEdit*>(Qt::FindDirectChildrenOnly);
    for (InPlaceLineEdit* editor : editors) {
        if (editor->isVisible())
            return editor;
    }
    return nullptr;
}

} // namespace

class TestInPlaceEditableText : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fontShrinks_data();
    void fontShrinks();
    void hoverUnderline_data();
    void hoverUnderline();
    void clickOpensEditorOverItem();
    void clicksThatOpenNothing_data();
    void clicksThatOpenNothing();
    void returnCommitsThroughHandler();
    void handlerHasTheLastWord();
    void escapeKeepsOldText();
    void chainNavigation();
    void itemNotPaintedWhileEditing();
    void settersRepaintOnlyOnChange();

private:
    QImage renderScene();

    QGraphicsScene* m_scene = nullptr;
    QGraphicsView* m_view = nullptr;
    QGraphicsRectItem* m_parent = nullptr;
    RecordingTextHandler m_handler;
};

void TestInPlaceEditableText::init()
{
    m_handler = RecordingTextHandler();
    m_scene = new QGraphicsScene(0, 0, 400, 200);
    m_parent = m_scene->addRect(QRectF(0, 0, 1, 1), Qt::NoPen);
    m_parent->setPos(50, 40);
    m_view = new QGraphicsView(m_scene);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_view->resize(420, 220);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view));
}

void TestInPlaceEditableText::cleanup()
{
    delete m_view;
    delete m_scene;
}

QImage TestInPlaceEditableText::renderScene()
{
    QImage image(400, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    m_scene->render(&painter, QRectF(0, 0, 400, 200), QRectF(0, 0, 400, 200));
    return image;
}

void TestInPlaceEditableText::fontShrinks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("fits"); // 0: at full size, 1: two points less, 2: four less, 3: never
    QTest::addColumn<int>("grow");
    QTest::addColumn<int>("points");
    QTest::newRow("fits at full size") << "Wash" << 0 << 1 << 11;
    QTest::newRow("fits two points smaller") << "Moving head" << 1 << 3 << 9;
    QTest::newRow("fits four points smaller") << "Moving head" << 2 << 7 << 7;
    QTest::newRow("too wide even then") << "Moving head" << 3 << 7 << 7;
}

void TestInPlaceEditableText::fontShrinks()
{
    QFETCH(QString, text);
    QFETCH(int, fits);
    QFETCH(int, grow);
    QFETCH(int, points);
    // Box widths chosen against the font's own metrics, between the widths
    // at the three sizes.
    const auto widthAt = [&](int size) {
        QFont font(QStringLiteral("Gill Sans MT"));
        font.setPixelSize(size * 4 / 3);
        return QFontMetricsF(font).horizontalAdvance(text);
    };
    const qreal widths[] = {widthAt(11), widthAt(9), widthAt(7)};
    QVERIFY(widths[0] > widths[1] && widths[1] > widths[2]);
    qreal boxWidth = 0;
    switch (fits) {
    case 0:
        boxWidth = widths[0];
        break;
    case 1:
        boxWidth = (widths[0] + widths[1]) / 2;
        break;
    case 2:
        boxWidth = (widths[1] + widths[2]) / 2;
        break;
    default:
        boxWidth = widths[2] / 2;
        break;
    }
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(0, 0, boxWidth, 12), 6, 11,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(text);
    QCOMPARE(item->paintFont().pixelSize(), points * 4 / 3);
    QCOMPARE(item->paintGrow(), grow);
}

void TestInPlaceEditableText::hoverUnderline_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("underlined");
    QTest::newRow("editable shows underline") << true << true;
    QTest::newRow("not editable shows none") << false << false;
}

void TestInPlaceEditableText::hoverUnderline()
{
    QFETCH(bool, editable);
    QFETCH(bool, underlined);
    // Box at scene (60, 50)-(107, 62): the underline runs at y = 50 + 12 - 2
    // from x = 63 to 103.
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         QColor(255, 0, 255), Qt::AlignHCenter);
    item->setEditable(editable);
    const QRgb magenta = qRgb(255, 0, 255);
    const auto underlinePixels = [&] {
        const QImage image = renderScene();
        int count = 0;
        for (int x = 55; x < 115; ++x)
            count += image.pixel(x, 60) == magenta;
        return qMakePair(count, image.pixel(63, 60) == magenta && image.pixel(103, 60) == magenta &&
                                    image.pixel(62, 60) != magenta &&
                                    image.pixel(104, 60) != magenta);
    };
    QCOMPARE(underlinePixels().first, 0);

    QTest::mouseMove(m_view->viewport(), QPoint(80, 55));
    QTRY_VERIFY(item->isHovered());
    const auto [count, exactEnds] = underlinePixels();
    QCOMPARE(count, underlined ? 41 : 0);
    QCOMPARE(exactEnds, underlined);

    QTest::mouseMove(m_view->viewport(), QPoint(300, 150));
    QTRY_VERIFY(!item->isHovered());
    QCOMPARE(underlinePixels().first, 0);
}

void TestInPlaceEditableText::clickOpensEditorOverItem()
{
    m_view->centerOn(0, 0);
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(QStringLiteral("Spot"));
    item->setEditable(true);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, QPoint(80, 55));
    InPlaceLineEdit* editor = openEditor(m_view->viewport());
    QVERIFY(editor);
    QVERIFY(item->isEditing());
    QCOMPARE(editor->text(), QStringLiteral("Spot"));
    QCOMPARE(editor->selectedText(), QStringLiteral("Spot"));
    QCOMPARE(editor->maxLength(), 6);
    QCOMPARE(editor->alignment(), Qt::AlignHCenter);
    QVERIFY(editor->hasFocus());
    // Over the item, two pixels lower.
    QCOMPARE(editor->geometry(), QRect(60, 52, 47, 12));
}

void TestInPlaceEditableText::clicksThatOpenNothing_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("not editable, left button") << false << Qt::LeftButton;
    QTest::newRow("editable, right button") << true << Qt::RightButton;
    QTest::newRow("editable, middle button") << true << Qt::MiddleButton;
}

void TestInPlaceEditableText::clicksThatOpenNothing()
{
    QFETCH(bool, editable);
    QFETCH(Qt::MouseButton, button);
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         Qt::white, Qt::AlignHCenter);
    item->setEditable(editable);
    QTest::mouseClick(m_view->viewport(), button, {}, QPoint(80, 55));
    QCOMPARE(openEditor(m_view->viewport()), nullptr);
    QVERIFY(!item->isEditing());
}

void TestInPlaceEditableText::returnCommitsThroughHandler()
{
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(QStringLiteral("Spot"));
    item->setEditable(true);
    item->startEditing(m_view->viewport(), m_view);
    QPointer<InPlaceLineEdit> editor = openEditor(m_view->viewport());
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("Wash"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_handler.changes.size(), 1);
    QCOMPARE(m_handler.changes[0].first, item);
    QCOMPARE(m_handler.changes[0].second, QStringLiteral("Wash"));
    QCOMPARE(item->text(), QStringLiteral("Wash"));
    QVERIFY(!item->isEditing());
    QVERIFY(!item->isHovered());
    QTRY_VERIFY(editor.isNull());
}

void TestInPlaceEditableText::handlerHasTheLastWord()
{
    m_handler.override = QStringLiteral("WASH");
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         Qt::white, Qt::AlignHCenter);
    item->startEditing(m_view->viewport(), m_view);
    InPlaceLineEdit* editor = openEditor(m_view->viewport());
    QTest::keyClicks(editor, QStringLiteral("wash"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(item->text(), QStringLiteral("WASH"));
}

void TestInPlaceEditableText::escapeKeepsOldText()
{
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(10, 10, 47, 12), 6, 8,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(QStringLiteral("Spot"));
    item->startEditing(m_view->viewport(), m_view);
    InPlaceLineEdit* editor = openEditor(m_view->viewport());
    QTest::keyClicks(editor, QStringLiteral("Wash"));
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(m_handler.changes.isEmpty());
    QCOMPARE(item->text(), QStringLiteral("Spot"));
    QVERIFY(!item->isEditing());
}

void TestInPlaceEditableText::chainNavigation()
{
    InPlaceEditableText* lines[3];
    for (int i = 0; i < 3; ++i) {
        lines[i] = new InPlaceEditableText(m_parent, &m_handler, QRectF(0, 12 * i, 47, 12), 6, 8,
                                           Qt::white, Qt::AlignHCenter);
        lines[i]->setText(QStringLiteral("L%1").arg(i + 1));
        lines[i]->setEditable(true);
    }
    InPlaceEditableText::chain(lines, 3);
    QCOMPARE(lines[0]->above(), nullptr);
    QCOMPARE(lines[1]->above(), lines[0]);
    QCOMPARE(lines[1]->below(), lines[2]);
    QCOMPARE(lines[2]->below(), nullptr);

    // Down in the last line keeps its editor.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, QPoint(70, 40 + 24 + 6));
    QPointer<InPlaceLineEdit> last = openEditor(m_view->viewport());
    QVERIFY(last);
    QVERIFY(lines[2]->isEditing());
    QTest::keyClick(last, Qt::Key_Down);
    QVERIFY(last && last->isVisible() && last->hasFocus());
    QVERIFY(m_handler.changes.isEmpty());
    QTest::keyClick(last, Qt::Key_Escape);

    // Up in the middle one commits it and opens the first at its place.
    lines[1]->startEditing(m_view->viewport(), m_view);
    QPointer<InPlaceLineEdit> middle = openEditor(m_view->viewport());
    QTest::keyClicks(middle, QStringLiteral("Mid"));
    QTest::keyClick(middle, Qt::Key_Up);
    QCOMPARE(m_handler.changes.size(), 1);
    QCOMPARE(m_handler.changes[0].first, lines[1]);
    QCOMPARE(lines[1]->text(), QStringLiteral("Mid"));
    QVERIFY(!lines[1]->isEditing());
    QVERIFY(lines[0]->isEditing());
    InPlaceLineEdit* first = openEditor(m_view->viewport());
    QVERIFY(first && first != middle);
    QCOMPARE(first->text(), QStringLiteral("L1"));
    QCOMPARE(first->geometry(), QRect(50, 42, 47, 12));
    QVERIFY(first->hasFocus());
    QTRY_VERIFY(middle.isNull());
}

void TestInPlaceEditableText::itemNotPaintedWhileEditing()
{
    auto* item = new InPlaceEditableText(m_parent, &m_handler, QRectF(0, 0, 60, 20), 6, 14,
                                         Qt::white, Qt::AlignHCenter);
    item->setText(QStringLiteral("HHH"));
    const auto inked = [&] {
        const QImage image = renderScene();
        int count = 0;
        for (int y = 40; y < 62; ++y)
            for (int x = 50; x < 110; ++x)
                count += image.pixel(x, y) != qRgb(0, 0, 0);
        return count;
    };
    QVERIFY(inked() > 0);
    item->startEditing(m_view->viewport(), m_view);
    QCOMPARE(inked(), 0);
    QTest::keyClick(openEditor(m_view->viewport()), Qt::Key_Escape);
    QVERIFY(inked() > 0);
}

void TestInPlaceEditableText::settersRepaintOnlyOnChange()
{
    auto* item = new InPlaceEditableText(m_scene, &m_handler, QRectF(0, 0, 60, 20), 6, 14,
                                         Qt::white, Qt::AlignHCenter);
    QCOMPARE(item->parentItem(), nullptr);
    QCOMPARE(item->scene(), m_scene);
    QVERIFY(item->text().isEmpty());
    QVERIFY(!item->isEditable());
    item->setRect(QRectF(5, 5, 30, 10));
    QCOMPARE(item->boundingRect(), QRectF(5, 5, 30, 10));
    item->setAlignment(Qt::AlignLeft);
    QCOMPARE(item->alignment(), Qt::AlignLeft);
    item->setColour(Qt::red);
    QCOMPARE(item->colour(), QColor(Qt::red));
}

QTEST_MAIN(TestInPlaceEditableText)
#include "tst_inplace_editabletext.moc"
