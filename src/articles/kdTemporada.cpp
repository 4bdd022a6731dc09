#include "articles/kdTemporada.h"

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
#include "search/frmBusqueda_Temporadas.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

namespace Varnel_Controles {

namespace {
const QString kErrorTitle = QStringLiteral("kdTemporada::Cargar");
const QString kInexistente = QStringLiteral("TEMPORADA INEXISTENTE");
constexpr int kLongitud = 10; // Temporadas.Codigo
} // namespace

kdTemporada::kdTemporada(QWidget *parent)
    : UserControl(parent)
    , txtCodigo(new TextField(this))
    , lblDescripcion(new QLabel(this))
{
    txtCodigo->setObjectName(QStringLiteral("txtCodigo"));
    lblDescripcion->setObjectName(QStringLiteral("lblDescripcion"));
    lblDescripcion->setTextFormat(Qt::PlainText);
    lblDescripcion->setIndent(Twips::toPixels(60, this));
    txtCodigo->setMaxLength(kLongitud);
    txtCodigo->setFixedWidth(Twips::toPixels(900, this));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(txtCodigo);
    layout->addWidget(lblDescripcion, 1);
    setInnerField(txtCodigo);
    connect(txtCodigo, &TextField::KeyDown, this, &kdTemporada::onKeyDown);
    connect(txtCodigo, &TextField::KeyPress, this, &kdTemporada::onKeyPress);
    connect(txtCodigo, &TextField::KeyUp, this, &kdTemporada::KeyUp);
    connect(txtCodigo, &TextField::Change, this, &kdTemporada::onTyped);
    connect(txtCodigo, &TextField::GotFocus, this, [this] {
        txtCodigo->setSelection(0, int(txtCodigo->text().size()));
        txtCodigo->setBackColor(LegacyColor::FocusBackColor);
    });
    connect(txtCodigo, &TextField::LostFocus, this, &kdTemporada::onLostFocus);
}

kdTemporada::~kdTemporada()
{
    txtCodigo->disconnect(this);
}

QString kdTemporada::statement(qint16 empresa, const QString &codigo)
{
    return QStringLiteral("SELECT Descripcion FROM Temporadas WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Codigo ='") + SqlText::texto(codigo) + u'\'';
}

QString kdTemporada::Codigo() const { return Legacy::Trim(txtCodigo->text()); }

void kdTemporada::setCodigo(const QString &value)
{
    m_settingText = true;
    txtCodigo->setText(Legacy::Trim(value));
    m_settingText = false;
    m_modified = false;
    showSeason(QString(), QString(), false);
    if (!Codigo().isEmpty() && m_context.hasCompany())
        Cargar();
    Q_EMIT Change();
}

bool kdTemporada::Cargar()
{
    showSeason(QString(), QString(), false);
    if (Codigo().isEmpty())
        return false;
    return trapErrors(kErrorTitle, [this] {
        Recordset rs;
        rs.open(statement(m_context.empresa(), Codigo()), m_context.conexion());
        const bool found = !rs.eof();
        const QString descripcion = found ? rs.text(QStringLiteral("Descripcion")) : QString();
        rs.close();
        showSeason(descripcion, found ? descripcion : kInexistente, found);
        return found;
    });
}

void kdTemporada::showSeason(const QString &descripcion, const QString &label, bool existe)
{
    m_descripcion = descripcion;
    m_existe = existe;
    lblDescripcion->setText(label);
    txtCodigo->setAccessibleDescription(label);
}

bool kdTemporada::validate()
{
    m_modified = false;
    if (Codigo().isEmpty()) {
        showSeason(QString(), QString(), false);
        return true;
    }
    if (Cargar())
        return true;
    if (lblDescripcion->text() == kInexistente) { // unknown, not a failure: the box is emptied
        m_settingText = true;
        txtCodigo->clear();
        m_settingText = false;
        Q_EMIT Change();
    }
    return false;
}

void kdTemporada::onTyped()
{
    if (m_settingText)
        return;
    m_modified = true;
    showSeason(QString(), QString(), false);
    Q_EMIT Change();
}

void kdTemporada::onLostFocus()
{
    txtCodigo->setBackColor(txtCodigo->isEnabled() ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    if (m_modified && txtCodigo->leftWithinWindow())
        validate();
}

void kdTemporada::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
        modTeclas::MoveFocusPrevious();
    else if (keyCode == KeyCodes::vbKeyF3)
        openSearch();
    Q_EMIT KeyDown(keyCode, shift);
}

void kdTemporada::onKeyPress(qint16 &keyAscii)
{
    if (keyAscii == 13) {
        if (!validate()) {
            keyAscii = 0; // unknown: the focus stays
            return;
        }
        Q_EMIT KeyPress(keyAscii);
        if (keyAscii == 13 && m_keyEnterChangeFocus)
            modTeclas::MoveFocusNext();
        keyAscii = 0;
        return;
    }
    if (keyAscii == 39)
        keyAscii = 0;
    else if (keyAscii > 0)
        keyAscii = qint16(Legacy::UCaseChar(QChar(char16_t(keyAscii))).unicode());
    Q_EMIT KeyPress(keyAscii);
}

void kdTemporada::openSearch()
{
    frmBusqueda_Temporadas dialog(this);
    if (!trapErrors(kErrorTitle, [&] {
            dialog.setEmpresa(m_context.empresa());
            dialog.Recuperar_Registros(QString()); // every season at once
            return true;
        }))
        return;
    UiSeam::current().ShowModal(dialog);
    if (dialog.Codigo().isEmpty())
        return;
    m_settingText = true;
    txtCodigo->setText(dialog.Codigo());
    m_settingText = false;
    m_modified = false;
    showSeason(dialog.Descripcion(), dialog.Descripcion(), true);
    Q_EMIT Change();
}

void kdTemporada::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdTemporada::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

void kdTemporada::keyPressEvent(QKeyEvent *event)
{
    // Enter was the picker's: it does not press the host form's default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

void kdTemporada::enabledChanged(bool enabled)
{
    txtCodigo->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
}

void kdTemporada::ReadProperties(const PropertyBag &bag)
{
    const bool enabled = readBool(bag, "Enabled", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    applyEnabled(enabled);
}

void kdTemporada::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
}

} // namespace Varnel_Controles
