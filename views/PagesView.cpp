// SPDX-License-Identifier: GPL-3.0-or-later
#include "PagesView.h"

#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "FeatureLabel.h"
#include "MakeFont.h"
#include "PagesBlock.h"
#include "ShowItemRequests.h"
#include "TitleBar.h"

#include <QLabel>
#include <QPixmap>

namespace {
// Names and opens; the sequences view shows the sequence faders only.
constexpr int pagesMode = 2;
} // namespace

PagesView::PagesView(QWidget* window, TitleBar* bar, bool /*wide*/, int index)
    : QGraphicsView(window), window(window), bar(bar), high(index == 1)
{
    setScene(&itemScene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pages = new PagesBlock(&itemScene, this, high ? fadersShown : 0, fadersShown, pagesMode, false);
}

PagesView::~PagesView()
{
    // The block goes before the scene it lives in.
    itemScene.clear();
}

QString PagesView::title()
{
    if (ConsoleLink::consoleType() != ConsoleCache::ModelCedar)
        return tr("Pages");
    return high ? tr("Pages Hi") : tr("Pages Lo");
}

void PagesView::activate()
{
    show();
    bar->setTitleBarHandler(this);
    bar->setSmMsButtonsVisible(true);
    bar->setIfcbFxTimeButtonsVisible(ConsoleLink::consoleType() == ConsoleCache::ModelMaple);
    bar->setLineButtonRange(0, 3);
}

QWidget* PagesView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    auto* label = new FeatureLabel(parent, title());
    label->setGeometry(geometry);
    label->show();
    return label;
}

void PagesView::setMsMode(bool ms)
{
    pages->setMsMode(ms);
}

void PagesView::setTimeMode(bool time)
{
    pages->setTimeMode(time);
}

void PagesView::setLineCount(int lines)
{
    pages->setLineCount(lines);
}

void PagesView::openSequence(int page, int fader)
{
    if (ShowItemRequests* requests = ShowItemRequests::of(window))
        requests->showSequence(Console::Sequence(page, fader));
}

void PagesView::openMemory(int page, int fader)
{
    if (ShowItemRequests* requests = ShowItemRequests::of(window))
        requests->showMemory(page, fader);
}
