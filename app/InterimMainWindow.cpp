// SPDX-License-Identifier: GPL-3.0-or-later
#include "InterimMainWindow.h"

#include "Console.h"
#include "ConsoleCache.h"
#include "Lumidesk.h"
#include "MakeFont.h"
#include "Resources.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

QString modelName(const Console* console)
{
    if (!console)
        return QString();
    switch (console->consoleType()) {
    case ConsoleCache::ModelAlder:
        return QStringLiteral("Alder");
    case ConsoleCache::ModelBirch:
        return QStringLiteral("Birch");
    case ConsoleCache::ModelCedar:
        return QStringLiteral("Cedar");
    default:
        return QStringLiteral("Maple");
    }
}

} // namespace

InterimMainWindow::InterimMainWindow(QWidget* parent)
    : QWidget(parent), m_logo(new QLabel(this)), m_text(new QLabel(this))
{
    const QString model =
        modelName(Lumidesk::instance() ? Lumidesk::instance()->console() : nullptr);
    setWindowTitle(QStringLiteral("Lumidesk - [%1]").arg(model));
    resize(1280, 720);
    QPalette grain = palette();
    grain.setBrush(QPalette::Window,
                   QBrush(QImage(Resources::folder() + QStringLiteral("BrittishGrain.png"))));
    grain.setColor(QPalette::WindowText, QColor(220, 220, 220));
    setPalette(grain);
    setAutoFillBackground(true);

    m_logo->setPixmap(QPixmap(Resources::folder() + QStringLiteral("LumideskLogo.png")));
    m_logo->setAlignment(Qt::AlignCenter);
    m_text->setFont(makeFont(QStringLiteral("Gill Sans MT"), 16));
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setText(tr("Lumidesk is connected to the %1 console.").arg(model));

    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(m_logo);
    layout->addWidget(m_text);
    layout->addStretch();
}
