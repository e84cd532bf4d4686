// SPDX-License-Identifier: GPL-3.0-or-later
#include "VisualiserFinder.h"

#ifdef Q_OS_WIN
#include <windows.h>

#include <iterator>
#endif

bool VisualiserFinder::isVisualiserWindowClass(const QString& className)
{
    return className == QLatin1String("Capture2005MainWindow") ||
           className == QLatin1String("Capture2005DemoWindow");
}

#ifdef Q_OS_WIN

namespace {
BOOL CALLBACK visitWindow(HWND hwnd, LPARAM result)
{
    wchar_t name[256];
    const int length = GetClassNameW(hwnd, name, int(std::size(name)));
    if (length > 0 &&
        VisualiserFinder::isVisualiserWindowClass(QString::fromWCharArray(name, length))) {
        *reinterpret_cast<HWND*>(result) = hwnd;
        return FALSE;
    }
    return TRUE;
}
} // namespace

bool VisualiserFinder::find()
{
    HWND hwnd = nullptr;
    EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&hwnd));
    found = hwnd != nullptr;
    window = reinterpret_cast<quintptr>(hwnd);
    return found;
}

void VisualiserFinder::toggle(const QRect& area)
{
    if (!found)
        return;
    const HWND hwnd = reinterpret_cast<HWND>(window);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(hwnd, &placement))
        return;
    if (placement.showCmd == SW_SHOWMINIMIZED || placement.showCmd == SW_MINIMIZE) {
        ShowWindowAsync(hwnd, SW_RESTORE);
        SetWindowPos(hwnd, HWND_TOPMOST, area.left(), area.top(), area.right() - area.left() + 1,
                     area.bottom() - area.top() + 1, SWP_ASYNCWINDOWPOS);
    } else {
        ShowWindowAsync(hwnd, SW_MINIMIZE);
    }
}

#else

bool VisualiserFinder::find()
{
    found = false;
    window = 0;
    return found;
}

void VisualiserFinder::toggle(const QRect&) {}

#endif
