#include "ScriptedUi.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <memory>
#include <optional>

namespace Varnel_Controles::Testing {

namespace {

// A window shown over the active one for as long as it lives, as the window system shows a
// modal dialog: it takes the activation (the focus leaves the window below) and gives it back
// when it goes.
class ModalWindow
{
public:
    explicit ModalWindow(QWidget &window) : m_window(window), m_previous(QApplication::activeWindow())
    {
        m_window.show();
        QApplication::setActiveWindow(&m_window);
    }
    ~ModalWindow()
    {
        m_window.hide();
        if (m_previous && m_previous->isVisible())
            QApplication::setActiveWindow(m_previous);
    }

private:
    QWidget &m_window;
    QPointer<QWidget> m_previous;
};

} // namespace

ScriptedUi::ScriptedUi() { UiSeam::install(this); }
ScriptedUi::~ScriptedUi() { UiSeam::install(nullptr); }

int ScriptedUi::MsgBox(const QString &prompt, int style, const QString &title)
{
    messages.append({prompt, style, title});
    std::unique_ptr<QMessageBox> box;
    std::optional<ModalWindow> shown;
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) { // a program without widgets shows nothing
        box = std::make_unique<QMessageBox>(QApplication::activeWindow());
        box->setWindowTitle(title);
        box->setText(prompt);
        shown.emplace(*box);
    }
    return m_answers.isEmpty() ? vbOK : m_answers.takeFirst();
}

int ScriptedUi::ShowModal(QDialog &dialog)
{
    modalShown.append(dialog.objectName().isEmpty() ? QString::fromLatin1(dialog.metaObject()->className())
                                                    : dialog.objectName());
    {
        ModalWindow shown(dialog);
        if (!m_scripts.isEmpty())
            m_scripts.takeFirst()(dialog);
    }
    return dialog.result();
}

} // namespace Varnel_Controles::Testing
