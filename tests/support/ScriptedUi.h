// A UI seam for tests: records every message box and modal show, and answers them from a
// script instead of waiting on a modal loop. Each box or dialog is really shown and made the
// active window while it is up, so the focus leaves the window below as with a real modal show.
#pragma once

#include "platform/UiSeam.h"

#include <QDialog>
#include <QList>
#include <QString>
#include <functional>

namespace Varnel_Controles::Testing {

class ScriptedUi : public UiSeam
{
public:
    struct Message { QString prompt; int style; QString title; };
    struct ProgressShown { QString text; QString title; qint64 total; QList<qint64> steps; };

    /// Installs itself; the destructor restores the default seam.
    ScriptedUi();
    ~ScriptedUi() override;

    int MsgBox(const QString &prompt, int style, const QString &title) override;
    int ShowModal(QDialog &dialog) override;
    /// Records the window and each step; Cancel is pressed at the step given to cancelProgressAt.
    std::unique_ptr<Progreso> Progress(const QString &text, const QString &title, qint64 total) override;

    /// Answers for the coming message boxes, in order (vbOK when the queue is empty).
    void answerMessages(QList<int> answers) { m_answers = std::move(answers); }
    /// Drives the next modal dialogs, in order: the function plays the user (it may type,
    /// click and finally hide the dialog). Without one, the dialog is hidden at once.
    void onModal(std::function<void(QDialog &)> script) { m_scripts.append(std::move(script)); }
    /// The coming progress windows report Cancel from the first step at or past `step` on.
    void cancelProgressAt(qint64 step) { m_cancelAt = step; }

    QList<Message> messages;
    QStringList modalShown; // object names (or class names) of the dialogs shown
    QList<ProgressShown> progress;

private:
    QList<int> m_answers;
    QList<std::function<void(QDialog &)>> m_scripts;
    qint64 m_cancelAt = -1;
};

} // namespace Varnel_Controles::Testing
