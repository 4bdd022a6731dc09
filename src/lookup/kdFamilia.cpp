#include "lookup/kdFamilia.h"

#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "input/modTeclas.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "platform/Twips.h"
#include "platform/UiSeam.h"
#include "search/frmBusqueda_Familias.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

namespace Varnel_Controles {

namespace {

const QString kErrorTitle = QStringLiteral("kdFamilia::Cargar");
const QString kInexistente = QStringLiteral("FAMILIA INEXISTENTE");

QString defaultTitle(int nivel)
{
    static const QString titles[] = {QStringLiteral("Familia"), QStringLiteral("Subfamilia"), QStringLiteral("Grupo")};
    return titles[nivel - 1];
}

} // namespace

kdFamilia::kdFamilia(QWidget *parent)
    : UserControl(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    for (int n = 1; n <= 3; ++n) {
        Level &l = level(n);
        m_titulos[size_t(n - 1)] = defaultTitle(n);
        l.titulo = new QLabel(defaultTitle(n), this);
        l.codigo = new TextField(this);
        l.descripcion = new QLabel(this);
        l.titulo->setObjectName(QStringLiteral("lblTitulo%1").arg(n));
        l.codigo->setObjectName(QStringLiteral("txtFamilia%1").arg(n));
        l.descripcion->setObjectName(QStringLiteral("lblFamilia%1").arg(n));
        l.titulo->setVisible(false);
        l.titulo->setBuddy(l.codigo);
        l.descripcion->setTextFormat(Qt::PlainText);
        l.descripcion->setIndent(Twips::toPixels(60, this));
        l.codigo->setMaxLength(5);
        l.codigo->setFixedWidth(Twips::toPixels(660, this));
        grid->addWidget(l.titulo, n - 1, 0);
        grid->addWidget(l.codigo, n - 1, 1);
        grid->addWidget(l.descripcion, n - 1, 2);
        if (n > 1)
            l.codigo->setAccessibleName(defaultTitle(n));
        connect(l.codigo, &TextField::KeyDown, this, [this, n](qint16 &k, qint16 &s) { onKeyDown(n, k, s); });
        connect(l.codigo, &TextField::KeyPress, this, [this, n](qint16 &k) { onKeyPress(n, k); });
        connect(l.codigo, &TextField::KeyUp, this, &kdFamilia::KeyUp);
        connect(l.codigo, &TextField::Change, this, [this, n] { onTyped(n); });
        connect(l.codigo, &TextField::GotFocus, this, [this, n] {
            level(n).codigo->setSelection(0, int(level(n).codigo->text().size()));
            level(n).codigo->setBackColor(LegacyColor::FocusBackColor);
        });
        connect(l.codigo, &TextField::LostFocus, this, [this, n] { onLostFocus(n); });
    }
    grid->setColumnStretch(2, 1);
    setInnerField(level(1).codigo);
    addInnerField(level(2).codigo); // the focus leaving any level for outside the picker leaves it
    addInnerField(level(3).codigo);
    updateAvailability();
}

// The boxes lose the focus while they are destroyed: their events must not reach a control
// that is already half gone.
kdFamilia::~kdFamilia()
{
    for (Level &l : m_levels)
        l.codigo->disconnect(this);
}

QString kdFamilia::statement(qint16 empresa, int nivel, qint16 padre, const QString &typed)
{
    return QStringLiteral("SELECT Descripcion FROM Familias WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Nivel =") + QString::number(nivel) + QStringLiteral(" AND Cod_Padre =")
        + QString::number(padre) + QStringLiteral(" AND Codigo =") + SqlText::codigo(typed);
}

QString kdFamilia::titlesStatement(qint16 empresa)
{
    return QStringLiteral("SELECT Nivel, Titulo FROM Familias_Titulos WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" ORDER BY Nivel");
}

qint16 kdFamilia::Familia(int nivel) const
{
    if (nivel < 1 || nivel > 3 || (nivel > 1 && Familia(nivel - 1) == 0))
        return 0;
    return Legacy::CInt(Legacy::Val(level(nivel).codigo->text()));
}

bool kdFamilia::Disponible(int nivel) const
{
    return nivel == 1 || (nivel >= 2 && nivel <= 3 && Familia(nivel - 1) != 0);
}

bool kdFamilia::Fija(int nivel) const { return nivel >= 1 && nivel <= 3 && level(nivel).fija; }

void kdFamilia::setFija(int nivel, bool fija)
{
    if (nivel < 1 || nivel > 3)
        return;
    level(nivel).fija = fija;
    level(nivel).codigo->setReadOnly(fija);
}

void kdFamilia::setFamilia(int nivel, qint16 value)
{
    if (nivel < 1 || nivel > 3)
        return;
    if (!Disponible(nivel))
        value = 0; // a level below an empty one is ignored
    Level &l = level(nivel);
    // The family the level already holds, found: nothing changes (a form's mapper writes back
    // the value it has just read, and the levels below must stay).
    if (value != 0 && value == Familia(nivel) && !l.modified && !l.texto.isEmpty())
        return;
    m_settingText = true;
    l.codigo->setText(value != 0 ? QString::number(value) : QString());
    m_settingText = false;
    l.texto.clear();
    l.descripcion->clear();
    l.modified = false;
    emptyBelow(nivel);
    if (value != 0 && m_context.hasCompany())
        lookUp(nivel);
    updateAvailability();
    Q_EMIT Change();
}

QString kdFamilia::Descripcion(int nivel) const
{
    return nivel >= 1 && nivel <= 3 && Familia(nivel) != 0 ? level(nivel).texto : QString();
}

QString kdFamilia::Titulo(int nivel) const
{
    return nivel >= 1 && nivel <= 3 ? m_titulos[size_t(nivel - 1)] : QString();
}

bool kdFamilia::Cargar()
{
    return trapErrors(kErrorTitle, [this] {
        std::array<QString, 3> titles{defaultTitle(1), defaultTitle(2), defaultTitle(3)};
        Recordset rs;
        rs.open(titlesStatement(m_context.empresa()), m_context.conexion());
        for (; !rs.eof(); rs.moveNext()) {
            const int nivel = rs.field(QStringLiteral("Nivel")).toInt();
            if (nivel >= 1 && nivel <= 3)
                titles[size_t(nivel - 1)] = rs.text(QStringLiteral("Titulo"));
        }
        rs.close();
        m_titulos = titles;
        for (int n = 1; n <= 3; ++n) {
            level(n).titulo->setText(titles[size_t(n - 1)]);
            if (n > 1)
                level(n).codigo->setAccessibleName(titles[size_t(n - 1)]);
        }
        bool found = true;
        for (int n = 1; n <= 3; ++n)
            if (Familia(n) != 0)
                found = lookUp(n) && found;
        return found;
    });
}

// The family of the level's code under the level above: its description, or the fixed text.
bool kdFamilia::lookUp(int nivel)
{
    Level &l = level(nivel);
    l.texto.clear();
    l.descripcion->clear();
    return trapErrors(kErrorTitle, [&] {
        const qint16 padre = nivel == 1 ? 0 : Familia(nivel - 1);
        Recordset rs;
        rs.open(statement(m_context.empresa(), nivel, padre, l.codigo->text()), m_context.conexion());
        const bool found = !rs.eof();
        if (found)
            l.texto = rs.text(QStringLiteral("Descripcion"));
        rs.close();
        l.descripcion->setText(found ? l.texto : kInexistente);
        l.codigo->setAccessibleDescription(l.descripcion->text());
        return found;
    });
}

bool kdFamilia::validate(int nivel)
{
    Level &l = level(nivel);
    l.modified = false;
    if (l.fija) { // the program's code stands
        if (Familia(nivel) != 0)
            lookUp(nivel);
        return true;
    }
    if (Legacy::CInt(Legacy::Val(l.codigo->text())) == 0) {
        m_settingText = true;
        l.codigo->clear();
        m_settingText = false;
        l.texto.clear();
        l.descripcion->clear();
        emptyBelow(nivel);
        updateAvailability();
        Q_EMIT Change();
        return true;
    }
    if (lookUp(nivel))
        return true;
    if (l.descripcion->text() == kInexistente) { // unknown (not a failure): the box is emptied
        m_settingText = true;
        l.codigo->clear();
        m_settingText = false;
        emptyBelow(nivel);
        updateAvailability();
        Q_EMIT Change();
    }
    return false;
}

void kdFamilia::emptyBelow(int nivel)
{
    m_settingText = true;
    for (int n = nivel + 1; n <= 3; ++n) {
        level(n).codigo->clear();
        level(n).texto.clear();
        level(n).descripcion->clear();
        level(n).modified = false;
    }
    m_settingText = false;
}

void kdFamilia::updateAvailability()
{
    for (int n = 2; n <= 3; ++n) {
        TextField *box = level(n).codigo;
        const bool available = Disponible(n);
        box->setEnabled(available);
        if (!box->hasFocus())
            box->setBackColor(available ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    }
}

void kdFamilia::onTyped(int nivel)
{
    if (m_settingText)
        return;
    Level &l = level(nivel);
    l.modified = true;
    l.texto.clear();
    l.descripcion->clear();
    emptyBelow(nivel);
    updateAvailability();
    Q_EMIT Change();
}

void kdFamilia::onLostFocus(int nivel)
{
    Level &l = level(nivel);
    l.codigo->setBackColor(l.codigo->isEnabled() ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    if (l.modified && l.codigo->leftWithinWindow())
        validate(nivel);
}

void kdFamilia::onKeyDown(int nivel, qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp) {
        if (nivel > 1)
            level(nivel - 1).codigo->setFocus();
        else if (m_keyUpChangeFocus)
            modTeclas::MoveFocusPrevious();
    } else if (keyCode == KeyCodes::vbKeyF3) {
        openSearch(nivel);
    }
    Q_EMIT KeyDown(keyCode, shift);
}

void kdFamilia::onKeyPress(int nivel, qint16 &keyAscii)
{
    if (keyAscii == 13) {
        if (!validate(nivel)) {
            keyAscii = 0;
            return; // unknown: the focus stays
        }
        if (nivel < 3 && Disponible(nivel + 1)) {
            keyAscii = 0;
            level(nivel + 1).codigo->setFocus();
            return;
        }
        leave(keyAscii);
        return;
    }
    if (keyAscii != 8 && !(keyAscii >= '0' && keyAscii <= '9'))
        keyAscii = 0;
    Q_EMIT KeyPress(keyAscii);
}

// Enter leaves the picker: the host's KeyPress first; the focus moves on unless it cancelled it.
void kdFamilia::leave(qint16 &keyAscii)
{
    Q_EMIT KeyPress(keyAscii);
    if (keyAscii == 13 && m_keyEnterChangeFocus)
        modTeclas::MoveFocusNext();
    keyAscii = 0;
}

void kdFamilia::openSearch(int nivel)
{
    if (!Disponible(nivel) || Fija(nivel))
        return;
    frmBusqueda_Familias dialog(this);
    if (!trapErrors(kErrorTitle, [&] {
            dialog.setEmpresa(m_context.empresa());
            dialog.setNivel(nivel);
            dialog.setPadre(nivel == 1 ? 0 : Familia(nivel - 1));
            dialog.Recuperar_Registros(QString()); // the level's families at once
            return true;
        }))
        return;
    UiSeam::current().ShowModal(dialog);
    if (dialog.Codigo() == 0)
        return;
    Level &l = level(nivel);
    const bool changed = Familia(nivel) != dialog.Codigo();
    m_settingText = true;
    l.codigo->setText(QString::number(dialog.Codigo()));
    m_settingText = false;
    l.modified = false;
    l.texto = dialog.Descripcion();
    l.descripcion->setText(l.texto);
    if (changed)
        emptyBelow(nivel);
    updateAvailability();
    Q_EMIT Change();
}

void kdFamilia::setMostrarTitulos(bool value)
{
    m_mostrarTitulos = value;
    for (Level &l : m_levels)
        l.titulo->setVisible(value);
    notify("MostrarTitulos");
}

void kdFamilia::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdFamilia::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

void kdFamilia::keyPressEvent(QKeyEvent *event)
{
    // Enter was the picker's: it does not press the host form's default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

// The boxes are grey while the picker is disabled, and the unavailable levels while enabled.
void kdFamilia::enabledChanged(bool enabled)
{
    for (Level &l : m_levels)
        l.codigo->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    if (enabled)
        updateAvailability();
}

void kdFamilia::ReadProperties(const PropertyBag &bag)
{
    const bool enabled = readBool(bag, "Enabled", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    setMostrarTitulos(readBool(bag, "MostrarTitulos", false));
    applyEnabled(enabled);
}

void kdFamilia::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
    bag.WriteProperty(QStringLiteral("MostrarTitulos"), m_mostrarTitulos, false);
}

} // namespace Varnel_Controles
