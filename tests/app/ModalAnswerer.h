// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

// Answers the modal dialogs a test provokes in order from the dialog's own
// event loop, as a user would, rejecting any beyond the answers given.
class ModalAnswerer : public QObject
{
public:
    using Answer = std::function<void(QDialog*)>;
    explicit ModalAnswerer(QList<Answer> answers) : answers(std::move(answers))
    {
        connect(&poll, &QTimer::timeout, this, &ModalAnswerer::look);
        poll.start(5);
    }

    static Answer press(QMessageBox::StandardButton button)
    {
        return [button](QDialog* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            box && box->button(button) ? box->button(button)->click() : dialog->reject();
        };
    }
    static Answer click(const QString& name)
    {
        return [name](QDialog* dialog) {
            auto* button = dialog->findChild<QAbstractButton*>(name);
            button ? QTest::mouseClick(button, Qt::LeftButton) : dialog->reject();
        };
    }
    static Answer chooseFile(const QString& path)
    {
        return [path](QDialog* dialog) {
            if (auto* files = qobject_cast<QFileDialog*>(dialog))
                files->selectFile(path);
            dialog->accept();
        };
    }
    static Answer cancel() { return &QDialog::reject; }

    // "title: text" of every dialog seen, in order.
    QStringList seen;

private:
    void look()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == last)
            return;
        last = dialog;
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        seen << dialog->windowTitle() + QStringLiteral(": ") + (box ? box->text() : QString());
        answers.isEmpty() ? dialog->reject() : answers.takeFirst()(dialog);
    }

    QList<Answer> answers;
    QTimer poll;
    QPointer<QDialog> last;
};
