// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorViewLook.h"

#include "Resources.h"

#include <QGraphicsView>
#include <QPixmap>
#include <QPixmapCache>

void EditorViewLook::apply(QGraphicsView* view)
{
    static const QString key = QStringLiteral("EditorViewLook/grain");
    QPixmap grain;
    if (!QPixmapCache::find(key, &grain)) {
        grain.load(Resources::folder() + QStringLiteral("BrittishGrain.png"));
        QPixmapCache::insert(key, grain);
    }
    view->setFrameShape(QFrame::NoFrame);
    view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view->setBackgroundBrush(grain);
}
