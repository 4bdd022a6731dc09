#include "ScriptedUi.h"

namespace Varnel_Controles::Testing {

ScriptedUi::ScriptedUi() { UiSeam::install(this); }
ScriptedUi::~ScriptedUi() { UiSeam::install(nullptr); }

int ScriptedUi::MsgBox(const QString &prompt, int style, const QString &title)
{
    messages.append({prompt, style, title});
    return m_answers.isEmpty() ? vbOK : m_answers.takeFirst();
}

int ScriptedUi::ShowModal(QDialog &dialog)
{
    modalShown.append(dialog.objectName().isEmpty() ? QString::fromLatin1(dialog.metaObject()->className())
                                                    : dialog.objectName());
    if (!m_scripts.isEmpty())
        m_scripts.takeFirst()(dialog);
    dialog.hide();
    return dialog.result();
}

} // namespace Varnel_Controles::Testing
