// kdTemporada: the season picker. A code box (`txtCodigo`: upper case as typed, no apostrophe,
// up to 10 characters) and the season's description (`lblDescripcion`), over table Temporadas
// of the company. Enter validates the code: a known season shows its description and the focus
// moves on (KeyEnterChangeFocus); an empty box moves on with no description; an unknown code
// empties the box, shows "TEMPORADA INEXISTENTE" and keeps the focus. Leaving the box after
// typing validates it the same way, without moving. Up arrow moves back (KeyUpChangeFocus).
// F3 opens frmBusqueda_Temporadas with every season of the company; the choice fills the box.
// Database failures are shown in a critical message titled "kdTemporada::Cargar".
#pragma once

#include "varnel_controles_export.h"

#include "ContextoDatos.h"
#include "UserControl.h"

class QLabel;

namespace Varnel_Controles {

class TextField;

class VARNEL_CONTROLES_EXPORT kdTemporada : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(QString Codigo READ Codigo WRITE setCodigo NOTIFY Change USER true)
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)
    Q_PROPERTY(QString Descripcion READ Descripcion NOTIFY Change)
    Q_PROPERTY(bool Existe READ Existe NOTIFY Change)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)

public:
    explicit kdTemporada(QWidget *parent = nullptr);
    ~kdTemporada() override;

    /// The company object; its code is read at each query.
    void setCEmpresa(cEmpresa *company) { m_context.setCEmpresa(company); }
    /// The library-wide connection: kept only if none was handed to the library before.
    void setConexion(Conexion *connection) { m_context.setConexion(connection); }

    /// The season code as it stands (trimmed). Setting it shows the season's description, or
    /// "TEMPORADA INEXISTENTE" for an unknown code (kept in the box), once a company was given.
    QString Codigo() const;
    void setCodigo(const QString &value);
    QString Text() const { return Codigo(); }
    void setText(const QString &value) { setCodigo(value); }
    /// The description of the season in the box, empty when none or unknown.
    QString Descripcion() const { return m_descripcion; }
    /// The last lookup found the season.
    bool Existe() const { return m_existe; }
    /// Looks the code up; False for an empty box (nothing is looked up), an unknown code or a
    /// failure (shown).
    Q_INVOKABLE bool Cargar();

    /// True by default.
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// True by default.
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);

    /// "SELECT Descripcion FROM Temporadas WHERE Cod_Empresa =1 AND Codigo ='PV26'".
    static QString statement(qint16 empresa, const QString &codigo);

    /// "Enabled", "KeyEnterChangeFocus", "KeyUpChangeFocus" (all True by default).
    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

Q_SIGNALS:
    /// The code changed (typed, validated, chosen or set).
    void Change();
    /// The box's keys after the picker's own handling (Up arrow, F3).
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    /// Upper-cased; the apostrophe arrives as 0 (refused); Enter after the validation.
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void enabledChanged(bool enabled) override;

private:
    void onKeyDown(qint16 &keyCode, qint16 &shift);
    void onKeyPress(qint16 &keyAscii);
    void onTyped();
    void onLostFocus();
    /// Validates the typed code; returns whether the focus may move on.
    bool validate();
    void showSeason(const QString &descripcion, const QString &label, bool existe);
    void openSearch();

    ContextoDatos m_context;
    TextField *txtCodigo;
    QLabel *lblDescripcion;
    QString m_descripcion;
    bool m_existe = false;
    bool m_modified = false;
    bool m_settingText = false;
    bool m_keyEnterChangeFocus = true;
    bool m_keyUpChangeFocus = true;
};

} // namespace Varnel_Controles
