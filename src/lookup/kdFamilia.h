// kdFamilia: the family picker. Three levels (family, subfamily, group), each a code box
// (`txtFamilia1..3`, digits only) and the family's description (`lblFamilia1..3`), with the
// company's title of each level (`lblTitulo1..3`) shown when MostrarTitulos is True. A level's
// families hang from the code chosen on the level above (level 1 from parent 0), in table
// Familias; the titles come from Familias_Titulos ("Familia", "Subfamilia", "Grupo" for a level
// the company gives none).
//
// A level is available only while the level above has a code; emptying or changing a level
// empties the levels below. Enter on a level validates it: a known family shows its description
// and the focus goes to the next level; 0 or an empty box empties the levels below and passes
// on; an unknown code empties the box, shows "FAMILIA INEXISTENTE" and keeps the focus. Enter
// reaches the host (KeyPress 13, then the focus moves on when KeyEnterChangeFocus is True) only
// when it leaves level 3 or a level whose next level is unavailable. Up arrow goes back a level,
// and from level 1 to the previous control when KeyUpChangeFocus is True. F3 on an available
// level opens frmBusqueda_Familias over that level's families; the choice fills the level.
// The focus leaving the picker from any level reaches it as a FocusOut (a form's
// QDataWidgetMapper commits Familia_1 then); a move between its levels does not.
// Database failures are shown in a critical message titled "kdFamilia::Cargar".
#pragma once

#include "varnel_controles_export.h"

#include "ContextoDatos.h"
#include "UserControl.h"

#include <array>

class QLabel;

namespace Varnel_Controles {

class TextField;

class VARNEL_CONTROLES_EXPORT kdFamilia : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(qint16 Familia_1 READ Familia_1 WRITE setFamilia_1 NOTIFY Change USER true)
    Q_PROPERTY(qint16 Familia_2 READ Familia_2 WRITE setFamilia_2 NOTIFY Change)
    Q_PROPERTY(qint16 Familia_3 READ Familia_3 WRITE setFamilia_3 NOTIFY Change)
    Q_PROPERTY(bool MostrarTitulos READ MostrarTitulos WRITE setMostrarTitulos)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)

public:
    explicit kdFamilia(QWidget *parent = nullptr);
    ~kdFamilia() override;

    /// The company object; its code is read at each query.
    void setCEmpresa(cEmpresa *company) { m_context.setCEmpresa(company); }
    /// The library-wide connection: kept only if none was handed to the library before.
    void setConexion(Conexion *connection) { m_context.setConexion(connection); }

    /// The code of each level, 0 when not chosen (a level whose level above is 0 is 0 too).
    /// Setting a level empties the levels below it and, once a company object was given, shows
    /// the family's description (or "FAMILIA INEXISTENTE"); setting 0 empties the level. Setting
    /// the family a level already shows, found, changes nothing (a mapper writing it back).
    qint16 Familia_1() const { return Familia(1); }
    void setFamilia_1(qint16 value) { setFamilia(1, value); }
    qint16 Familia_2() const { return Familia(2); }
    void setFamilia_2(qint16 value) { setFamilia(2, value); }
    qint16 Familia_3() const { return Familia(3); }
    void setFamilia_3(qint16 value) { setFamilia(3, value); }
    qint16 Familia(int nivel) const;
    void setFamilia(int nivel, qint16 value);
    /// The description of the family chosen on `nivel` (1-3), empty when none or unknown.
    Q_INVOKABLE QString Descripcion(int nivel) const;
    /// The company's title of `nivel` (1-3), as Cargar last read it.
    Q_INVOKABLE QString Titulo(int nivel) const;
    /// Reads the company's titles and the descriptions of the codes set; False when the
    /// database failed (the message was shown).
    Q_INVOKABLE bool Cargar();
    /// A level can be chosen: level 1 always, a lower level while the level above has a code.
    bool Disponible(int nivel) const;
    /// A fixed level keeps the code the program gave it: the clerk can neither type nor choose
    /// another (the levels below stay free).
    bool Fija(int nivel) const;
    void setFija(int nivel, bool fija);

    /// The title labels are shown (False by default).
    bool MostrarTitulos() const { return m_mostrarTitulos; }
    void setMostrarTitulos(bool value);
    /// Enter leaving the picker moves the focus to the next control (True by default).
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// Up arrow on level 1 moves the focus to the previous control (True by default).
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);

    /// The lookup of a level: "SELECT Descripcion FROM Familias WHERE Cod_Empresa =1 AND Nivel =2
    /// AND Cod_Padre =3 AND Codigo = 31".
    static QString statement(qint16 empresa, int nivel, qint16 padre, const QString &typed);
    /// "SELECT Nivel, Titulo FROM Familias_Titulos WHERE Cod_Empresa =1 ORDER BY Nivel".
    static QString titlesStatement(qint16 empresa);

    /// "Enabled", "KeyEnterChangeFocus", "KeyUpChangeFocus" (True by default) and "MostrarTitulos".
    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

Q_SIGNALS:
    /// Any level changed (typed, validated, chosen or set).
    void Change();
    /// The keys of the level boxes, after the picker's own handling: KeyPress carries digits
    /// and Backspace (other characters as 0, refused) and only the Enter that leaves the picker.
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void enabledChanged(bool enabled) override;

private:
    struct Level
    {
        QLabel *titulo;
        TextField *codigo;
        QLabel *descripcion;
        QString texto;           // the description found
        bool modified = false;   // typed since the last validation
        bool fija = false;
    };
    Level &level(int nivel) { return m_levels[size_t(nivel - 1)]; }
    const Level &level(int nivel) const { return m_levels[size_t(nivel - 1)]; }
    void onKeyDown(int nivel, qint16 &keyCode, qint16 &shift);
    void onKeyPress(int nivel, qint16 &keyAscii);
    void onTyped(int nivel);
    void onLostFocus(int nivel);
    /// Looks the level's code up; returns whether it is a known family (0 counts as known).
    bool validate(int nivel);
    bool lookUp(int nivel);
    void emptyBelow(int nivel);
    void updateAvailability();
    void openSearch(int nivel);
    void leave(qint16 &keyAscii);

    ContextoDatos m_context;
    std::array<Level, 3> m_levels;
    std::array<QString, 3> m_titulos;
    bool m_mostrarTitulos = false;
    bool m_keyEnterChangeFocus = true;
    bool m_keyUpChangeFocus = true;
    bool m_settingText = false; // the program writes a box: not typing
};

} // namespace Varnel_Controles
