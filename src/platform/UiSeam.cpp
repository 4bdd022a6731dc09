#include "platform/UiSeam.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>

namespace Varnel_Controles {

namespace {
UiSeam *g_installed = nullptr;
}

UiSeam &UiSeam::current()
{
    static WidgetUiSeam widgets;
    return g_installed ? *g_installed : widgets;
}

void UiSeam::install(UiSeam *seam)
{
    g_installed = seam;
}

int WidgetUiSeam::MsgBox(const QString &prompt, int style, const QString &title)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setText(prompt);
    switch (style & 0x70) {
    case vbCritical: box.setIcon(QMessageBox::Critical); break;
    case vbQuestion: box.setIcon(QMessageBox::Question); break;
    case vbExclamation: box.setIcon(QMessageBox::Warning); break;
    case vbInformation: box.setIcon(QMessageBox::Information); break;
    default: break;
    }
    struct Choice { QMessageBox::StandardButton button; int answer; const char *text; };
    QList<Choice> choices;
    switch (style & 0x7) {
    case vbOKCancel: choices = {{QMessageBox::Ok, vbOK, "Aceptar"}, {QMessageBox::Cancel, vbCancel, "Cancelar"}}; break;
    case vbYesNoCancel:
        choices = {{QMessageBox::Yes, vbYes, "&Sí"}, {QMessageBox::No, vbNo, "&No"}, {QMessageBox::Cancel, vbCancel, "Cancelar"}};
        break;
    case vbYesNo: choices = {{QMessageBox::Yes, vbYes, "&Sí"}, {QMessageBox::No, vbNo, "&No"}}; break;
    default: choices = {{QMessageBox::Ok, vbOK, "Aceptar"}}; break;
    }
    for (int i = 0; i < choices.size(); ++i) {
        QPushButton *b = box.addButton(choices[i].button);
        b->setText(QString::fromUtf8(choices[i].text));
        if ((style & vbDefaultButton2) ? i == 1 : i == 0)
            box.setDefaultButton(b);
    }
    box.exec();
    const auto clicked = box.standardButton(box.clickedButton());
    for (const Choice &c : choices)
        if (c.button == clicked)
            return c.answer;
    return choices.size() > 1 ? vbCancel : vbOK;
}

int WidgetUiSeam::ShowModal(QDialog &dialog)
{
    return dialog.exec();
}

} // namespace Varnel_Controles
