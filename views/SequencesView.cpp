// SPDX-License-Identifier: GPL-3.0-or-later
#include "SequencesView.h"

#include "ConsoleLink.h"
#include "Cuelist.h"
#include "Cuematrix.h"
#include "EditorViewLook.h"
#include "PagesBlock.h"
#include "SequencesViewFeature.h"
#include "Timeline.h"
#include "TitleBar.h"

#include <QMenu>
#include <QPixmap>

namespace {
constexpr QPointF timelinePos(0, 5);
constexpr QPointF cuelistPos(0, 120);
constexpr QPointF pagesPos(588, 0);
constexpr int pagesMode = 3;
const QString stackData = QStringLiteral("Stack");
const QString sequenceData = QStringLiteral("Sequence");

QString linkText(const QString& text)
{
    return QStringLiteral(" - <a href=\"link\"><font color=\"white\">") + text +
           QStringLiteral("</font></a>");
}

QString withName(const QString& title, const QString& name)
{
    // Names are padded lines; the menu shows them as one line of words.
    const QString words = name.simplified();
    return words.isEmpty() ? title : title + QStringLiteral(", ") + words;
}
} // namespace

SequencesView::SequencesView(QWidget* parent, TitleBar* bar) : QGraphicsView(parent), bar(bar)
{
    setScene(&scene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    timelineBlock = new Timeline(&scene);
    timelineBlock->setPos(timelinePos);
    list =
        new Cuelist(&scene, stackListRows, ConsoleLink::consoleType() == ConsoleCache::ModelMaple);
    list->setPos(cuelistPos);
    matrix = new Cuematrix(&scene, stackMatrixLines, parent);
    matrix->setPos(stackMatrixPos);
    const ConsoleCache* cache = ConsoleLink::cache();
    const int first = cache ? cache->firstSequenceFader() : 0;
    const int count = cache ? cache->sequenceFaderCount() : 0;
    pages = new PagesBlock(&scene, this, first, count, pagesMode, false);
    pages->setPos(pagesPos);
    setSequence(Console::Sequence::makeStack());
}

SequencesView::~SequencesView()
{
    // The feature lives in the tab strip and may outlast the view: its link
    // must not offer the menu of a view that is gone.
    if (featureWidget)
        featureWidget->setText(QString());
}

bool SequencesView::isValidSequence(Console::Sequence sequence)
{
    if (sequence.isStack())
        return true;
    const ConsoleCache* cache = ConsoleLink::cache();
    return cache && sequence.page >= 0 && sequence.page < cache->pageCount() &&
           sequence.fader >= 0 && sequence.fader < cache->sequenceFaderCount();
}

void SequencesView::setSequence(Console::Sequence sequence)
{
    current = sequence;
    const bool stack = sequence.isStack();
    list->setRowCount(stack ? stackListRows : sequenceListRows);
    matrix->setPos(stack ? stackMatrixPos : sequenceMatrixPos);
    matrix->setVisibleLines(stack ? stackMatrixLines : sequenceMatrixLines);
    timelineBlock->setSequence(sequence);
    list->setSequence(sequence);
    matrix->setSequence(sequence);
    if (featureWidget)
        featureWidget->setText(featureText());
    fitScene();
    scene.update();
}

void SequencesView::fitScene()
{
    scene.setSceneRect(scene.itemsBoundingRect().united(QRectF(0, 0, 1, 1)));
}

QString SequencesView::featureText() const
{
    QString text = tr("Seq/Stack edit");
    const ConsoleCache* cache = ConsoleLink::cache();
    if (current.isStack() || !cache)
        return text + linkText(tr("stack"));
    return text + linkText(tr("seq") + QLatin1Char(' ') + QString::number(current.page + 1) +
                           QLatin1Char('/') +
                           QString::number(cache->firstSequenceFader() + current.fader + 1));
}

QMenu* SequencesView::createSequenceMenu(QWidget* parent) const
{
    auto* menu = new QMenu(parent);
    menu->addAction(tr("Stack"))->setData(stackData);
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return menu;
    for (int page = 0; page < cache->pageCount(); ++page) {
        const QString title = tr("Page") + QLatin1Char(' ') +
                              QStringLiteral("%1").arg(page + 1, 2, 10, QLatin1Char('0'));
        QMenu* sub =
            menu->addMenu(withName(title, cache->pageName(page, ConsoleCache::wholeBlock)));
        for (int fader = 0; fader < cache->sequenceFaderCount(); ++fader) {
            const QString entry = tr("Sequence") + QLatin1Char(' ') +
                                  QString::number(cache->firstSequenceFader() + fader + 1);
            sub->addAction(
                   withName(entry, cache->sequenceName(page, fader, ConsoleCache::wholeBlock)))
                ->setData(sequenceData + QLatin1Char('/') + QString::number(page) +
                          QLatin1Char('/') + QString::number(fader));
        }
    }
    return menu;
}

void SequencesView::openSequenceMenu(const QPoint& at)
{
    QMenu* menu = createSequenceMenu(this);
    // The top menu hears the entries of its submenus too.
    connect(menu, &QMenu::triggered, this,
            [this](QAction* chosen) { chooseMenuEntry(chosen->data().toString()); });
    menu->exec(at);
    delete menu;
}

bool SequencesView::chooseMenuEntry(const QString& data)
{
    const QStringList words = data.split(QLatin1Char('/'));
    if (words.size() == 1 && words[0] == stackData) {
        setSequence(Console::Sequence::makeStack());
        return true;
    }
    if (words.size() != 3 || words[0] != sequenceData)
        return false;
    bool pageOk = false;
    bool faderOk = false;
    const Console::Sequence chosen(words[1].toInt(&pageOk), words[2].toInt(&faderOk));
    if (!pageOk || !faderOk || chosen.isStack() || !isValidSequence(chosen))
        return false;
    setSequence(chosen);
    return true;
}

void SequencesView::featureDestroyed(SequencesViewFeature* widget)
{
    if (featureWidget == widget)
        featureWidget = nullptr;
}

QString SequencesView::title()
{
    return tr("Stack/Seq Edit");
}

void SequencesView::activate()
{
    show();
    bar->setTitleBarHandler(this);
    bar->setSmMsButtonsVisible(ConsoleLink::consoleType() != ConsoleCache::ModelMaple);
    bar->setIfcbFxTimeButtonsVisible(false);
    bar->setLineButtonRange(0, 3);
}

QWidget* SequencesView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    featureWidget = new SequencesViewFeature(parent, this);
    featureWidget->setGeometry(geometry);
    featureWidget->setText(featureText());
    return featureWidget;
}

void SequencesView::setMsMode(bool ms)
{
    pages->setMsMode(ms);
}

void SequencesView::setLineCount(int lines)
{
    pages->setLineCount(lines);
    fitScene();
    scene.update();
}

void SequencesView::openSequence(int page, int fader)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const Console::Sequence chosen(page, cache->faderSequence(fader));
    if (!chosen.isStack() && isValidSequence(chosen))
        setSequence(chosen);
}

void SequencesView::openMemory(int, int) {}

void SequencesView::showSequence(Console::Sequence sequence)
{
    if (isValidSequence(sequence))
        setSequence(sequence);
}
