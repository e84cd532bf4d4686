// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchedQGraphicsItem.h"

namespace {
// A member pointer named through a class derived from QGraphicsItem may call
// the protected handler on any item, and still dispatches virtually.
struct SceneEventAccess : QGraphicsItem
{
    static bool send(QGraphicsItem* item, QEvent* event)
    {
        return (item->*(&SceneEventAccess::sceneEvent))(event);
    }
};
} // namespace

bool PatchedQGraphicsItem::sceneEvent(QEvent* event)
{
    return target ? SceneEventAccess::send(target, event) : false;
}
