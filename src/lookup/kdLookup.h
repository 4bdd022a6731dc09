// What the lookup controls share: a code box (`txtCodigo`) and a name label (`lblNombre`)
// that resolve a typed numeric code against the company's table, turn an empty code into an
// open range bound, open the matching search dialog on F3, and move the focus on Enter and
// Up arrow. Each lookup gives its statement, its bounds and texts, its dialog and its keys.
#pragma once

#include "varnel_controles_export.h"

#include "ContextoDatos.h"
#include "UserControl.h"

class QLabel;

namespace Varnel_Controles {

class Conexion;
class Recordset;
class TextField;
class cEmpresa;

class VARNEL_CONTROLES_EXPORT kdLookup : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(bool Vital READ Vital WRITE setVital)
    Q_PROPERTY(bool Inicial READ Inicial WRITE setInicial)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(qint32 Codigo READ Codigo WRITE setCodigo NOTIFY Change USER true)
    Q_PROPERTY(qint32 Value READ Value NOTIFY Change)
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)
    Q_PROPERTY(bool Existe READ Existe NOTIFY NombreChanged)
    Q_PROPERTY(QString Nombre READ Nombre NOTIFY NombreChanged)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(bool CausesValidation READ CausesValidation WRITE setCausesValidation)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(qint16 MaxLength READ MaxLength)

public:
    ~kdLookup() override;

    /// The company object; its code is read at each query.
    void setCEmpresa(cEmpresa *company) { m_context.setCEmpresa(company); }
    /// The library-wide connection: kept only if none was handed to the library before.
    void setConexion(Conexion *connection) { m_context.setConexion(connection); }

    /// Looks the code up: the name, or an empty label and False for an unknown code (a vital
    /// control also empties the box). A zero code looks nothing up. Failures are shown in a
    /// critical message titled "<class>::Cargar" and return False.
    Q_INVOKABLE bool Cargar();
    /// Cargar again (the validation looks codes up through it).
    Q_INVOKABLE bool Refrescar_Datos() { return Cargar(); }
    /// Empties the box, opens the search dialog as F3 does, returns the code then in the box
    /// (0 when the dialog was cancelled).
    Q_INVOKABLE qint32 Buscar();
    /// Selects the whole code.
    Q_INVOKABLE void SelectText();
    /// Repaints the code box.
    Q_INVOKABLE void Refresh();

    /// An unknown, empty, zero or upper-bound code is wiped instead of becoming a bound.
    bool Vital() const { return m_vital; }
    void setVital(bool value);
    /// An empty code becomes the lower bound (True) or the upper bound (False).
    bool Inicial() const { return m_inicial; }
    void setInicial(bool value);
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);
    /// Enter moves on after the validation.
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// The value of the code's leading digits, rounded (0 for an empty box). Setting 0 empties
    /// the box; any setting empties the name and clears Existe.
    qint32 Codigo() const;
    void setCodigo(qint32 value);
    qint32 Value() const { return Codigo(); }
    /// The code box's text as it stands. Setting it empties the name and clears Existe.
    QString Text() const;
    void setText(const QString &value);
    /// The last lookup or validation found the record.
    bool Existe() const { return m_existe; }
    /// The name label's text (a name or one of the fixed messages).
    QString Nombre() const;
    /// The font of the box and the label (QWidget::setFont sets both).
    QFont Font() const;
    bool CausesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool value);
    bool Locked() const;
    void setLocked(bool value);
    QString ToolTipText() const;
    void setToolTipText(const QString &value);
    qint16 MaxLength() const;

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    void Click();
    void DblClick();
    /// After the control's own handling (Up arrow, F3).
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    /// After the control's filtering: only digits and Backspace arrive, the rest as 0.
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void Change();
    /// The name shown or Existe changed (a lookup, a validation, a choice from the search).
    void NombreChanged();

protected:
    struct Texts
    {
        QString errorClass;   // "kdProveedores": error titles are errorClass + "::Cargar"
        QString lowerBound;   // "00000"
        QString upperBound;   // "99999"
        QString inicial;      // "PROVEEDOR INICIAL"
        QString final;        // "PROVEEDOR FINAL"
        QString inexistente;  // "PROVEEDOR INEXISTENTE"
    };
    struct Choice
    {
        qint32 code = 0;
        QString name;
    };

    kdLookup(const Texts &texts, int codeWidthTwips, int minWidthTwips, QWidget *parent);

    /// The lookup statement for the company and the code as typed.
    virtual QString lookupStatement(qint16 empresa, const QString &typed) const = 0;
    /// Fills the label (and any extra field) from the found row.
    virtual void showFound(const Recordset &recordset) = 0;
    /// Shows the search dialog for the company modally and returns the choice (0 = cancelled).
    virtual Choice search(qint16 empresa) = 0;
    /// Whether a code of this value means an open bound (empty or the upper bound).
    virtual bool isOpenBound(qint32 code) const;
    /// The empty code of a control that is left blank (only the supplier lookup offers it).
    virtual bool leavesBlank() const { return false; }
    /// Persisted keys after the ten shared ones.
    virtual void readExtraProperties(const PropertyBag &) {}
    virtual void writeExtraProperties(PropertyBag &) const {}
    /// Persisted keys between "Locked" and "Text".
    virtual void readKeysAfterLocked(const PropertyBag &) {}
    virtual void writeKeysAfterLocked(PropertyBag &) const {}
    /// Reads the "Font" key (once, by default).
    virtual void readFontKey(const PropertyBag &bag) { readFont(bag); }
    /// Whether the box takes a typed character (Backspace always passes): digits by default.
    virtual bool acceptsCharacter(qint16 keyAscii) const;
    /// Runs before the typed code is validated (Enter or leaving the box, as `moverFoco` says):
    /// True lets the validation of the code in the box follow; False ends the validation
    /// there, the focus staying where it is. By default every entry is a code.
    virtual bool resolveEntry(bool moverFoco)
    {
        Q_UNUSED(moverFoco);
        return true;
    }
    /// The company object and the connection the control was given.
    const ContextoDatos &context() const { return m_context; }

    /// Shows `name` in the label; assistive technology reads it as the code box's description.
    void setName(const QString &name);
    void setExiste(bool value);
    /// Validates the typed code as Enter (`moverFoco` True) or leaving the box (False) does.
    void Validar_Codigo(bool moverFoco);

    TextField *txtCodigo;
    QLabel *lblNombre;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void enabledChanged(bool enabled) override;
    void fontChanged() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void onKeyDown(qint16 &keyCode, qint16 &shift);
    void onKeyPress(qint16 &keyAscii);
    void onChange();
    void onGotFocus();
    void onLostFocus();
    void openSearch();
    void reclaimFocus();
    void layoutChildren();

    Texts m_texts;
    int m_codeWidth, m_minWidth;
    ContextoDatos m_context;
    bool m_vital = false;
    bool m_inicial = false;
    bool m_keyUpChangeFocus = false;
    bool m_keyEnterChangeFocus = false;
    bool m_modified = false;
    bool m_movingOn = false; // Enter validated the code and moved the focus on
    bool m_existe = false;
    bool m_causesValidation = true;
};

} // namespace Varnel_Controles
