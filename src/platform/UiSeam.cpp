#include "platform/UiSeam.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>

namespace Varnel_Controles {

namespace {
UiSeam *g_installed = nullptr;

// The bar counts in steps of at most INT_MAX; the window appears after half a second.
class DialogProgreso : public Progreso
{
public:
    DialogProgreso(const QString &text, const QString &title, qint64 total)
        : m_dialog(new QProgressDialog(text, QStringLiteral("Cancelar"), 0, 0, QApplication::activeWindow()))
    {
        m_dialog->setWindowTitle(title);
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->setMinimumDuration(500);
        m_dialog->setAutoReset(false);
        m_dialog->setAutoClose(false);
        setTotal(total);
    }
    ~DialogProgreso() override { delete m_dialog.data(); }
    bool avanzar(qint64 hechos) override
    {
        if (!m_dialog)
            return false;
        m_dialog->setValue(int(qMin<qint64>(m_scale > 0 ? hechos / m_scale : 0, m_dialog->maximum())));
        QApplication::processEvents(); // Cancel is pressed between two steps
        return m_dialog && !m_dialog->wasCanceled();
    }
    void setTotal(qint64 total) override
    {
        m_scale = total > INT_MAX ? total / INT_MAX + 1 : 1;
        if (m_dialog)
            m_dialog->setMaximum(int(total / m_scale));
    }

private:
    QPointer<QProgressDialog> m_dialog;
    qint64 m_scale = 1;
};

class SinProgreso : public Progreso
{
public:
    bool avanzar(qint64) override { return true; }
    void setTotal(qint64) override {}
};

} // namespace

Progreso::~Progreso() = default;

std::unique_ptr<Progreso> UiSeam::Progress(const QString &text, const QString &title, qint64 total)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return std::make_unique<SinProgreso>();
    return std::make_unique<DialogProgreso>(text, title, total);
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
