#include "ScriptedUi.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QScopeGuard>

namespace Varnel_Controles::Testing {

namespace {

// Shows a window over the active one until the guard goes, as the window system shows a modal
// dialog: it takes the activation (the focus leaves the window below) and gives it back.
auto showOver(QWidget &window)
{
    QPointer<QWidget> previous = QApplication::activeWindow();
    window.show();
    QApplication::setActiveWindow(&window);
    return qScopeGuard([&window, previous] {
        window.hide();
        if (previous && previous->isVisible())
            QApplication::setActiveWindow(previous);
    });
}

} // namespace

ScriptedUi::ScriptedUi() { UiSeam::install(this); }
ScriptedUi::~ScriptedUi() { UiSeam::install(nullptr); }

int ScriptedUi::MsgBox(const QString &prompt, int style, const QString &title)
{
    messages.append({prompt, style, title});
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) { // a program without widgets shows nothing
        QMessageBox box(QApplication::activeWindow());
        box.setWindowTitle(title);
        box.setText(prompt);
        const auto shown = showOver(box);
    }
    return m_answers.isEmpty() ? vbOK : m_answers.takeFirst();
}

int ScriptedUi::ShowModal(QDialog &dialog)
{
    modalShown.append(dialog.objectName().isEmpty() ? QString::fromLatin1(dialog.metaObject()->className())
                                                    : dialog.objectName());
    const auto shown = showOver(dialog);
    if (!m_scripts.isEmpty())
        m_scripts.takeFirst()(dialog);
    return dialog.result();
}

std::unique_ptr<Progreso> ScriptedUi::Progress(const QString &text, const QString &title, qint64 total)
{
    struct Recorded : Progreso
    {
        ScriptedUi &ui;
        qsizetype index;
        Recorded(ScriptedUi &u, qsizetype i) : ui(u), index(i) {}
        bool avanzar(qint64 hechos) override
        {
            ui.progress[index].steps.append(hechos);
            return ui.m_cancelAt < 0 || hechos < ui.m_cancelAt;
        }
        void setTotal(qint64 total) override { ui.progress[index].total = total; }
    };
    progress.append({text, title, total, {}});
    return std::make_unique<Recorded>(*this, progress.size() - 1);
}

} // namespace Varnel_Controles::Testing
