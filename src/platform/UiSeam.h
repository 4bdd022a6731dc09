// The one way the library shows message boxes and modal dialogs. Hosts and tests may install
// their own seam (a test installs a scripted one that records what was shown and answers it).
#pragma once

#include "varnel_controles_export.h"

#include <QString>
#include <memory>

class QDialog;

namespace Varnel_Controles {

/// A long task's progress window with Cancel, shown for as long as the object lives.
class VARNEL_CONTROLES_EXPORT Progreso
{
public:
    virtual ~Progreso();
    /// Moves the bar to `hechos` steps; false once the clerk has pressed Cancel (and from then on).
    virtual bool avanzar(qint64 hechos) = 0;
    /// A new number of steps (0: not known, the bar only shows activity).
    virtual void setTotal(qint64 total) = 0;
};

class VARNEL_CONTROLES_EXPORT UiSeam
{
public:
    /// Message-box styles and answers, with the legacy numbers.
    enum Style : int {
        vbOKOnly = 0, vbOKCancel = 1, vbYesNoCancel = 3, vbYesNo = 4, vbCritical = 16,
        vbQuestion = 32, vbExclamation = 48, vbInformation = 64, vbDefaultButton2 = 256
    };
    enum Answer : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

    virtual ~UiSeam() = default;
    /// Shows `prompt` with the buttons and icon of `style` under `title`; returns the answer.
    virtual int MsgBox(const QString &prompt, int style, const QString &title) = 0;
    /// Shows `dialog` modally; returns when the dialog hides itself, with QDialog's result code.
    virtual int ShowModal(QDialog &dialog) = 0;
    /// A progress window titled `title` saying `text`, for `total` steps (0: not known). The
    /// default is a window-modal QProgressDialog (nothing without a QApplication).
    virtual std::unique_ptr<Progreso> Progress(const QString &text, const QString &title, qint64 total);

    /// The seam in use (real message boxes and QDialog::exec unless another was installed).
    static UiSeam &current();
    /// Installs `seam` (not owned); nullptr restores the default.
    static void install(UiSeam *seam);
};

/// QMessageBox and QDialog::exec.
class VARNEL_CONTROLES_EXPORT WidgetUiSeam : public UiSeam
{
public:
    int MsgBox(const QString &prompt, int style, const QString &title) override;
    int ShowModal(QDialog &dialog) override;
};

} // namespace Varnel_Controles
