// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/InPlaceLineEdit.h"
#include "toolkit/InPlaceLineEditHandler.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPointer>
#include <QTest>
#include <QWidget>

namespace {

struct RecordingHandler : InPlaceLineEditHandler
{
    void navigate(InPlaceLineEdit*, bool up) override { navigations << up; }
    void textCommitted(InPlaceLineEdit*, const QString& text) override
    {
        events << QStringLiteral("commit:") + text;
    }
    void editorClosed(InPlaceLineEdit*) override { events << QStringLiteral("closed"); }
    QStringList events;
    QList<bool> navigations;
};

// Just a handler that keeps the base navigate().
struct PlainHandler : InPlaceLineEditHandler
{
    void textCommitted(InPlaceLineEdit*, const QString&) override {}
    void editorClosed(InPlaceLineEdit*) override { ++closed; }
    int closed = 0;
};

enum class WayOut
{
    Escape,
    Return,
    Enter,
    FocusElsewhere,
    CloseCall,
};

} // namespace

Q_DECLARE_METATYPE(WayOut)

class TestInPlaceLineEdit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void waysOut_data();
    void waysOut();
    void escapeWithoutFocusStillReportsOnce();
    void upAndDownNavigate();
    void typingReplacesSelectedText();
    void maxLengthLimitsTyping();
    void fontByLength_data();
    void fontByLength();
    void guideLines_data();
    void guideLines();
    void paletteIsTransparentWithYellowSelection();
    void noContextMenu();

private:
    InPlaceLineEdit* openEditor(InPlaceLineEditHandler* handler, const QString& text,
                                int maxLength = 6, float fontSize = 11);

    QWidget* m_window = nullptr;
    QWidget* m_other = nullptr;
    // Members, so that they outlive every editor left open by a test.
    RecordingHandler handler;
    PlainHandler plain;
};

void TestInPlaceLineEdit::init()
{
    handler = RecordingHandler();
    plain = PlainHandler();
    m_window = new QWidget;
    m_window->resize(300, 100);
    m_other = new QWidget(m_window);
    m_other->setFocusPolicy(Qt::StrongFocus);
    m_other->setGeometry(0, 60, 50, 20);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
}

void TestInPlaceLineEdit::cleanup()
{
    delete m_window;
    m_window = nullptr;
}

InPlaceLineEdit* TestInPlaceLineEdit::openEditor(InPlaceLineEditHandler* handler,
                                                 const QString& text, int maxLength, float fontSize)
{
    auto* editor = new InPlaceLineEdit(m_window, handler, text, maxLength, fontSize,
                                       QColor(187, 253, 172), Qt::AlignRight);
    editor->setGeometry(10, 10, 120, 30);
    editor->showEditor();
    return editor;
}

void TestInPlaceLineEdit::waysOut_data()
{
    QTest::addColumn<WayOut>("wayOut");
    QTest::addColumn<QStringList>("expected");
    const QStringList committed = {QStringLiteral("commit:42"), QStringLiteral("closed")};
    QTest::newRow("Escape discards") << WayOut::Escape << QStringList{QStringLiteral("closed")};
    QTest::newRow("Return commits once") << WayOut::Return << committed;
    QTest::newRow("keypad Enter commits once") << WayOut::Enter << committed;
    QTest::newRow("focus moving away commits") << WayOut::FocusElsewhere << committed;
    QTest::newRow("closing commits") << WayOut::CloseCall << committed;
}

void TestInPlaceLineEdit::waysOut()
{
    QFETCH(WayOut, wayOut);
    QFETCH(QStringList, expected);
    QPointer<InPlaceLineEdit> editor = openEditor(&handler, QStringLiteral("17"));
    QVERIFY(editor->hasFocus());
    QTest::keyClicks(editor, QStringLiteral("42"));
    switch (wayOut) {
    case WayOut::Escape:
        QTest::keyClick(editor, Qt::Key_Escape);
        break;
    case WayOut::Return:
        QTest::keyClick(editor, Qt::Key_Return);
        break;
    case WayOut::Enter:
        QTest::keyClick(editor, Qt::Key_Enter, Qt::KeypadModifier);
        break;
    case WayOut::FocusElsewhere:
        m_other->setFocus(Qt::MouseFocusReason);
        break;
    case WayOut::CloseCall:
        editor->close();
        break;
    }
    QCOMPARE(handler.events, expected);
    QVERIFY(editor.isNull() || !editor->isVisible());
    QTRY_VERIFY(editor.isNull());
    // Nothing more arrives once the editor is gone.
    QCoreApplication::processEvents();
    QCOMPARE(handler.events, expected);
}

void TestInPlaceLineEdit::escapeWithoutFocusStillReportsOnce()
{
    auto* editor = new InPlaceLineEdit(m_window, &handler, QStringLiteral("5"), 3, 11, Qt::white,
                                       Qt::AlignCenter);
    editor->show(); // never focused
    QVERIFY(!editor->hasFocus());
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(handler.events, QStringList{QStringLiteral("closed")});
}

void TestInPlaceLineEdit::upAndDownNavigate()
{
    QPointer<InPlaceLineEdit> editor = openEditor(&handler, QStringLiteral("ab"));
    QTest::keyClick(editor, Qt::Key_Up);
    QTest::keyClick(editor, Qt::Key_Down);
    QCOMPARE(handler.navigations, (QList<bool>{true, false}));
    QVERIFY(handler.events.isEmpty());
    QVERIFY(editor->isVisible());

    // The base navigate() does nothing: the editor stays open.
    QPointer<InPlaceLineEdit> second = openEditor(&plain, QStringLiteral("x"));
    QTest::keyClick(second, Qt::Key_Down);
    QVERIFY(second->isVisible());
    QCOMPARE(plain.closed, 0);
    QTest::keyClick(second, Qt::Key_Escape);
    QCOMPARE(plain.closed, 1);
}

void TestInPlaceLineEdit::typingReplacesSelectedText()
{
    InPlaceLineEdit* editor = openEditor(&handler, QStringLiteral("Front"));
    QCOMPARE(editor->selectedText(), QStringLiteral("Front"));
    QTest::keyClicks(editor, QStringLiteral("Back"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(handler.events.first(), QStringLiteral("commit:Back"));
}

void TestInPlaceLineEdit::maxLengthLimitsTyping()
{
    InPlaceLineEdit* editor = openEditor(&handler, QString(), 3);
    QTest::keyClicks(editor, QStringLiteral("12345"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(handler.events.first(), QStringLiteral("commit:123"));
}

void TestInPlaceLineEdit::fontByLength_data()
{
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<float>("fontSize");
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("level field, 3") << 3 << 17.0f << "Gill Sans MT" << 22;
    QTest::newRow("legend line, 6") << 6 << 8.0f << "Gill Sans MT" << 10;
    QTest::newRow("name, 7") << 7 << 11.0f << "Courier New" << 12;
    QTest::newRow("whole name, 12") << 12 << 11.0f << "Courier New" << 12;
    QTest::newRow("whole name, 18, size 20") << 18 << 20.0f << "Courier New" << 22;
}

void TestInPlaceLineEdit::fontByLength()
{
    QFETCH(int, maxLength);
    QFETCH(float, fontSize);
    QFETCH(QString, family);
    QFETCH(int, pixelSize);
    InPlaceLineEdit* editor = openEditor(&handler, QString(), maxLength, fontSize);
    QCOMPARE(editor->font().family(), family);
    QCOMPARE(editor->font().pixelSize(), pixelSize);
    QCOMPARE(editor->maxLength(), maxLength);
    QVERIFY(!editor->hasFrame());
    QVERIFY(editor->testAttribute(Qt::WA_DeleteOnClose));
}

void TestInPlaceLineEdit::guideLines_data()
{
    QTest::addColumn<int>("maxLength");
    QTest::addColumn<bool>("guides");
    QTest::newRow("12 characters: guides after 6 and 12") << 12 << true;
    QTest::newRow("6 characters: none") << 6 << false;
    QTest::newRow("3 characters: none") << 3 << false;
}

void TestInPlaceLineEdit::guideLines()
{
    QFETCH(int, maxLength);
    QFETCH(bool, guides);
    auto* editor =
        new InPlaceLineEdit(m_window, &handler, QString(), maxLength, 11, Qt::white, Qt::AlignLeft);
    editor->setGeometry(0, 0, 200, 20);
    editor->show();
    const int space = editor->fontMetrics().horizontalAdvance(QLatin1Char(' '));
    QVERIFY(space > 0);
    QImage image(200, 20, QImage::Format_ARGB32);
    image.fill(Qt::black);
    editor->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    const QRgb grey = qRgb(128, 128, 128);
    int greyColumns = 0;
    for (int x = 0; x < 200; ++x) {
        if (image.pixel(x, 10) == grey) {
            ++greyColumns;
            QVERIFY2(x == 6 * space || x == 12 * space, qPrintable(QString::number(x)));
            QCOMPARE(image.pixel(x, 0), grey);
            QCOMPARE(image.pixel(x, 19), grey);
        }
    }
    QCOMPARE(greyColumns, guides ? 2 : 0);
    QCOMPARE(editor->hasGuides(), guides);
}

void TestInPlaceLineEdit::paletteIsTransparentWithYellowSelection()
{
    InPlaceLineEdit* editor = openEditor(&handler, QStringLiteral("12"));
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        QCOMPARE(editor->palette().color(group, QPalette::Base).alpha(), 0);
        QCOMPARE(editor->palette().color(group, QPalette::Text), QColor(187, 253, 172));
        QCOMPARE(editor->palette().color(group, QPalette::Highlight), QColor(255, 200, 0));
        QCOMPARE(editor->palette().color(group, QPalette::HighlightedText), QColor(0, 0, 0));
    }
    QCOMPARE(editor->alignment(), Qt::AlignRight);
}

void TestInPlaceLineEdit::noContextMenu()
{
    InPlaceLineEdit* editor = openEditor(&handler, QStringLiteral("12"));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            editor->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(editor, &event);
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    QVERIFY(editor->hasFocus());
    QVERIFY(handler.events.isEmpty());
}

QTEST_MAIN(TestInPlaceLineEdit)
#include "tst_inplace_lineedit.moc"
