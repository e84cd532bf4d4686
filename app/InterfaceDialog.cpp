// SPDX-License-Identifier: GPL-3.0-or-later
#include "InterfaceDialog.h"

#include "MakeFont.h"
#include "Resources.h"
#include "ScanHidDevices.h"

#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize consoleIconSize(200, 150);
}

InterfaceDialog::InterfaceDialog(QWidget* parent, Scanner scanner)
    : QDialog(parent), m_scanner(scanner ? std::move(scanner) : Scanner(scanHidDevices))
{
    setObjectName(QStringLiteral("InterfaceDialogClass"));
    setModal(true);
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::WindowText, QColor(40, 40, 40));
    setPalette(white);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(12);
    // Created in this order; shown from the smallest model to the largest.
    QPushButton* maple =
        addConsoleButton(QStringLiteral("glowcraftMaplePushButton"),
                         QStringLiteral("StartupMapleIcon.png"), QStringLiteral("Maple"));
    QPushButton* birch =
        addConsoleButton(QStringLiteral("glowcraftBirchPushButton"),
                         QStringLiteral("StartupBirchIcon.png"), QStringLiteral("Birch"));
    QPushButton* cedar =
        addConsoleButton(QStringLiteral("glowcraftCedarPushButton"),
                         QStringLiteral("StartupCedarIcon.png"), QStringLiteral("Cedar"));
    QPushButton* alder =
        addConsoleButton(QStringLiteral("glowcraftAlderPushButton"),
                         QStringLiteral("StartupAlderIcon.png"), QStringLiteral("Alder"));
    for (QPushButton* button : {alder, birch, cedar, maple})
        buttons->addWidget(button);

    m_heading = new QLabel(this);
    m_heading->setObjectName(QStringLiteral("label_2"));
    m_heading->setFont(makeFont(QStringLiteral("Gill Sans MT"), 16, true));

    m_line = new QFrame(this);
    m_line->setObjectName(QStringLiteral("line"));
    m_line->setFrameShape(QFrame::HLine);
    m_line->setFrameShadow(QFrame::Sunken);

    m_information = new QLabel(this);
    m_information->setObjectName(QStringLiteral("label"));
    m_information->setTextFormat(Qt::RichText);
    m_information->setOpenExternalLinks(true);
    m_information->setWordWrap(true);
    m_information->setFont(makeFont(QStringLiteral("Gill Sans MT"), 10));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 18, 24, 18);
    layout->setSpacing(14);
    layout->addWidget(m_heading);
    layout->addLayout(buttons);
    layout->addWidget(m_line);
    layout->addWidget(m_information);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    retranslateUi();
    QMetaObject::connectSlotsByName(this);
}

QPushButton* InterfaceDialog::addConsoleButton(const QString& objectName, const QString& iconFile,
                                               const QString& model)
{
    auto* button = new QPushButton(this);
    button->setObjectName(objectName);
    button->setIcon(QIcon(Resources::folder() + iconFile));
    button->setIconSize(consoleIconSize);
    button->setFixedSize(consoleIconSize + QSize(16, 16));
    button->setFlat(true);
    button->setCursor(Qt::PointingHandCursor);
    button->setAccessibleName(model);
    m_buttons.append(button);
    return button;
}

void InterfaceDialog::retranslateUi()
{
    setWindowTitle(QCoreApplication::translate("InterfaceDialogClass", "Lumidesk"));
    m_heading->setText(QCoreApplication::translate("InterfaceDialogClass", "Select console type:"));
    m_information->setText(QCoreApplication::translate(
        "InterfaceDialogClass",
        "<p>The latest console and Lumidesk software is available at "
        "<a href=\"https://www.glowcraft-lighting.com/software\">"
        "www.glowcraft-lighting.com/software</a>.</p>"
        "<p style=\"color:#808080\">Glowcraft, Alder, Birch, Cedar and Maple are trademarks "
        "of Glowcraft Lighting.</p>"));
    for (QPushButton* button : std::as_const(m_buttons))
        button->setToolTip(
            QCoreApplication::translate("InterfaceDialogClass", "Run Lumidesk with a %1 console")
                .arg(button->accessibleName()));
}

int InterfaceDialog::exec()
{
    const QString library = selectConsoleLibrary(m_scanner());
    if (!library.isEmpty()) {
        m_libraryName = library;
        setResult(QDialog::Accepted);
        return QDialog::Accepted;
    }
    return QDialog::exec();
}

void InterfaceDialog::choose(const QString& libraryName, int modelVariant)
{
    m_libraryName = libraryName;
    m_modelVariant = modelVariant;
    accept();
}

void InterfaceDialog::on_glowcraftAlderPushButton_clicked(bool)
{
    choose(QStringLiteral("glowEngine"), 0);
}

void InterfaceDialog::on_glowcraftBirchPushButton_clicked(bool)
{
    choose(QStringLiteral("glowEngine"), 1);
}

void InterfaceDialog::on_glowcraftCedarPushButton_clicked(bool)
{
    choose(QStringLiteral("glowEngine"), 2);
}

void InterfaceDialog::on_glowcraftMaplePushButton_clicked(bool)
{
    choose(QStringLiteral("glowproEngine"), 0);
}
