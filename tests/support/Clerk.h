// A clerk answering the message boxes and driving the modal dialogs of a test from a script,
// noting what was shown, in order.
#pragma once

#include "ScriptedUi.h"
#include "Widgets.h"
#include "search/SearchGrid.h"

namespace Varnel_Controles::Testing {

// A dialog played as a clerk: "name=text" fills a box, "name?" notes what a box shows, "focus?"
// the control that has the focus, "#n" takes row n of the list, F9 / F12; a dialog still open at
// the end is cancelled.
inline void play(QDialog &d, const QString &script, QStringList &shown)
{
    settle(); // as a modal loop would, while the dialog is up
    for (const QString &step : script.split(u';', Qt::SkipEmptyParts)) {
        const QString name = step.section(u'=', 0, 0).remove(u'?');
        if (auto *grid = d.findChild<SearchGrid *>(); step.startsWith(u'#')) {
            grid->setRow(step.mid(1).toInt());
            QTest::keyClick(grid, Qt::Key_Return);
        } else if (step.startsWith(u'F')) {
            QTest::keyClick(QApplication::focusWidget(), step == u"F9" ? Qt::Key_F9 : Qt::Key_F12);
        } else if (step == u"focus?") {
            shown << "focus: " + QApplication::focusWidget()->parentWidget()->objectName();
        } else if (QWidget *box = d.findChild<QWidget *>(name); step.endsWith(u'?')) {
            shown << name + ": " + box->property("Text").toString();
        } else {
            box->setProperty("Text", step.section(u'=', 1));
        }
    }
    if (d.isVisible())
        d.reject();
}

// One step per message box ("Y" answers Yes) and per dialog (a script for play), in order; what
// was shown: "style title: prompt" (a failure by its title alone), "[dialog]", and what the
// scripts noted.
struct Clerk : ScriptedUi
{
    QStringList steps, shown;
    QString next() { return steps.isEmpty() ? QString() : steps.takeFirst(); }
    int MsgBox(const QString &prompt, int style, const QString &title) override
    {
        shown << (style == 16 ? QStringLiteral("16 ") + title : QStringLiteral("%1 %2: %3").arg(style).arg(title, prompt));
        answerMessages({next() == u"Y" ? vbYes : vbNo});
        return ScriptedUi::MsgBox(prompt, style, title);
    }
    int ShowModal(QDialog &dialog) override
    {
        shown << u'[' + dialog.objectName() + u']';
        onModal([this, script = next()](QDialog &d) { play(d, script, shown); });
        return ScriptedUi::ShowModal(dialog);
    }
};

} // namespace Varnel_Controles::Testing
