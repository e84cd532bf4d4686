// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>

// Answers the modal dialogs a test provokes, one answer per dialog in order,
// and remembers what each one said. The answers run from the event loop of
// the dialog itself, as a user's clicks would.
class ModalAnswerer : public QObject
{
public:
    using Answer = std::function<void(QDialog*)>;

    struct Seen
    {
        QString title;
        QString text;
        QString className;
    };

    explicit ModalAnswerer(QList<Answer> answers) : answers(std::move(answers))
    {
        connect(&poll, &QTimer::timeout, this, &ModalAnswerer::look);
        poll.start(5);
    }

    static Answer press(QMessageBox::StandardButton button)
    {
        return [button](QDialog* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            if (box && box->button(button))
                box->button(button)->click();
            else
                dialog->reject();
        };
    }
    static Answer chooseFile(const QString& path)
    {
        return [path](QDialog* dialog) {
            auto* files = qobject_cast<QFileDialog*>(dialog);
            if (!files) {
                dialog->reject();
                return;
            }
            files->selectFile(path);
            static_cast<QDialog*>(files)->accept();
        };
    }
    static Answer cancel()
    {
        return [](QDialog* dialog) { dialog->reject(); };
    }

    QList<Seen> seen;
    int pending() const { return int(answers.size()); }

private:
    void look()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == last)
            return;
        last = dialog;
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        seen.append({dialog->windowTitle(), box ? box->text() : QString(),
                     QString::fromLatin1(dialog->metaObject()->className())});
        if (answers.isEmpty()) {
            dialog->reject();
            return;
        }
        answers.takeFirst()(dialog);
    }

    QList<Answer> answers;
    QTimer poll;
    QPointer<QDialog> last;
};
