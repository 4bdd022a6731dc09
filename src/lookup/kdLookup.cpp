#include "lookup/kdLookup.h"

#include "data/DbError.h"
#include "data/Recordset.h"
#include "input/modTeclas.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "platform/Twips.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>

namespace Varnel_Controles {

kdLookup::kdLookup(const Texts &texts, int codeWidthTwips, int minWidthTwips, QWidget *parent)
    : UserControl(parent)
    , txtCodigo(new TextField(this))
    , lblNombre(new QLabel(this))
    , m_texts(texts)
    , m_codeWidth(codeWidthTwips)
    , m_minWidth(minWidthTwips)
{
    txtCodigo->setObjectName(QStringLiteral("txtCodigo"));
    lblNombre->setObjectName(QStringLiteral("lblNombre"));
    lblNombre->setTextFormat(Qt::PlainText);
    lblNombre->setIndent(Twips::toPixels(60, this));
    txtCodigo->setMaxLength(texts.upperBound.size());
    setInnerField(txtCodigo);

    connect(txtCodigo, &TextField::KeyDown, this, &kdLookup::onKeyDown);
    connect(txtCodigo, &TextField::KeyPress, this, &kdLookup::onKeyPress);
    connect(txtCodigo, &TextField::KeyUp, this, &kdLookup::KeyUp);
    connect(txtCodigo, &TextField::Change, this, &kdLookup::onChange);
    connect(txtCodigo, &TextField::GotFocus, this, &kdLookup::onGotFocus);
    connect(txtCodigo, &TextField::LostFocus, this, &kdLookup::onLostFocus);
    connect(txtCodigo, &TextField::Click, this, &kdLookup::Click);
    connect(txtCodigo, &TextField::DblClick, this, &kdLookup::DblClick);
    connect(txtCodigo, &TextField::MouseDown, this, &kdLookup::MouseDown);
    connect(txtCodigo, &TextField::MouseMove, this, &kdLookup::MouseMove);
    connect(txtCodigo, &TextField::MouseUp, this, &kdLookup::MouseUp);
    layoutChildren();
}

// The inner field loses the focus while it is destroyed: its events must not reach a control
// that is already half gone.
kdLookup::~kdLookup()
{
    txtCodigo->disconnect(this);
}

bool kdLookup::Cargar()
{
    setExiste(false);
    setName(QString());
    const bool found = trapErrors(m_texts.errorClass + QStringLiteral("::Cargar"), [this] {
        if (Legacy::Val(txtCodigo->text()) == 0)
            return false;
        Recordset rs;
        rs.open(lookupStatement(m_context.empresa(), txtCodigo->text()), m_context.conexion());
        bool result = false;
        if (!rs.eof()) {
            showFound(rs);
            setExiste(true);
            result = true;
        } else if (m_vital) {
            txtCodigo->setText(QString());
        }
        rs.close();
        m_modified = false;
        return result;
    });
    setExiste(found);
    return found;
}

bool kdLookup::isOpenBound(qint32 code) const
{
    return code == 0 || code == Legacy::CLng(m_texts.upperBound.toDouble());
}

void kdLookup::Validar_Codigo(bool moverFoco)
{
    if (!resolveEntry(moverFoco)) {
        m_modified = false;
        if (moverFoco)
            reclaimFocus(); // the clerk stays in the box, whatever dialog the entry opened
        return;
    }
    setExiste(false);
    const qint32 n = Legacy::CLng(Legacy::Val(txtCodigo->text()));
    bool moveOn = true;
    if (!isOpenBound(n)) {
        if (Refrescar_Datos()) {
            setExiste(true);
        } else {
            if (m_vital) {
                txtCodigo->setText(QString());
                setName(QString());
                moveOn = false;
            }
            setName(m_texts.inexistente);
        }
    } else if (m_vital) {
        txtCodigo->setText(QString());
        setName(QString());
        moveOn = false;
    } else if (leavesBlank()) {
        setName(QString());
    } else if (m_inicial) {
        txtCodigo->setText(m_texts.lowerBound);
        setName(m_texts.inicial);
    } else {
        txtCodigo->setText(m_texts.upperBound);
        setName(m_texts.final);
    }
    m_modified = false;
    if (moveOn && moverFoco && m_keyEnterChangeFocus) {
        reclaimFocus(); // the Tab is this box's
        m_movingOn = true;
        modTeclas::MoveFocusNext();
    }
}

// A dialog or message box of the validation may have taken the activation with it (the window
// system gives it back later): the box takes the focus back now.
void kdLookup::reclaimFocus()
{
    if (QApplication::focusWidget() != txtCodigo && isVisible()) {
        QApplication::setActiveWindow(window());
        txtCodigo->setFocus();
    }
}

void kdLookup::openSearch()
{
    qint16 empresa = 0;
    if (!trapErrors(m_texts.errorClass + QStringLiteral("::Buscar"), [&] {
            empresa = m_context.empresa();
            m_context.conexion();
            return true;
        }))
        return;
    const Choice choice = search(empresa);
    if (choice.code != 0) {
        txtCodigo->setText(QString::number(choice.code));
        setName(choice.name);
    }
}

qint32 kdLookup::Buscar()
{
    txtCodigo->setText(QString());
    openSearch();
    return Codigo();
}

void kdLookup::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
        modTeclas::MoveFocusPrevious();
    else if (keyCode == KeyCodes::vbKeyF3)
        openSearch();
    Q_EMIT KeyDown(keyCode, shift);
}

void kdLookup::onKeyPress(qint16 &keyAscii)
{
    if (keyAscii == 13)
        Validar_Codigo(true);
    else if (keyAscii != 8 && !acceptsCharacter(keyAscii))
        keyAscii = 0;
    Q_EMIT KeyPress(keyAscii);
}

bool kdLookup::acceptsCharacter(qint16 keyAscii) const
{
    return Legacy::IsNumeric(QString(QChar(char16_t(keyAscii))));
}

void kdLookup::onChange()
{
    Q_EMIT Change();
    m_modified = true;
    setExiste(false);
}

void kdLookup::onGotFocus()
{
    m_movingOn = false;
    SelectText();
    if (Enabled())
        txtCodigo->setBackColor(LegacyColor::FocusBackColor);
}

void kdLookup::onLostFocus()
{
    if (Enabled())
        txtCodigo->setBackColor(LegacyColor::WindowBackground);
    // Leaving is the focus moving to another control of this window: a dialog, a message box,
    // a popup or another window taking it is not, the clerk comes back to the box. The move
    // Enter made after validating does not validate the same code again.
    const bool validated = m_movingOn && !m_modified;
    m_movingOn = false;
    if (txtCodigo->leftWithinWindow() && !validated)
        Validar_Codigo(false);
}

void kdLookup::keyPressEvent(QKeyEvent *event)
{
    // Enter was the validation's: it does not press the host form's default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

void kdLookup::SelectText() { txtCodigo->setSelection(0, int(txtCodigo->text().size())); }
void kdLookup::Refresh() { txtCodigo->repaint(); }

void kdLookup::setVital(bool value) { m_vital = value; notify("Vital"); }
void kdLookup::setInicial(bool value) { m_inicial = value; notify("Inicial"); }
void kdLookup::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }
void kdLookup::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }

qint32 kdLookup::Codigo() const { return Legacy::CLng(Legacy::Val(txtCodigo->text())); }

void kdLookup::setCodigo(qint32 value)
{
    txtCodigo->setText(value != 0 ? QString::number(value) : QString());
    notify("Text");
    setName(QString());
    m_modified = true;
    setExiste(false);
}

QString kdLookup::Text() const { return txtCodigo->text(); }

void kdLookup::setText(const QString &value)
{
    txtCodigo->setText(value);
    notify("Text");
    setName(QString());
    m_modified = true;
    setExiste(false);
}

QString kdLookup::Nombre() const { return lblNombre->text(); }
void kdLookup::setName(const QString &name)
{
    if (name == lblNombre->text())
        return;
    lblNombre->setText(name);
    txtCodigo->setAccessibleDescription(name);
    Q_EMIT NombreChanged();
}

void kdLookup::setExiste(bool value)
{
    if (value == m_existe)
        return;
    m_existe = value;
    Q_EMIT NombreChanged();
}
QFont kdLookup::Font() const { return txtCodigo->font(); }
void kdLookup::setCausesValidation(bool value) { m_causesValidation = value; notify("CausesValidation"); }
bool kdLookup::Locked() const { return txtCodigo->isReadOnly(); }
void kdLookup::setLocked(bool value) { txtCodigo->setReadOnly(value); notify("Locked"); }
QString kdLookup::ToolTipText() const { return txtCodigo->toolTip(); }
void kdLookup::setToolTipText(const QString &value) { txtCodigo->setToolTip(value); notify("ToolTipText"); }
qint16 kdLookup::MaxLength() const { return qint16(txtCodigo->MaxLength()); }

// The code box is grey while the control is disabled.
void kdLookup::enabledChanged(bool enabled)
{
    txtCodigo->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
}

void kdLookup::fontChanged()
{
    const bool large = txtCodigo->font().pointSizeF() > 9;
    setMinimumWidth(Twips::toPixels(m_minWidth + (large ? 500 : 0), this));
    layoutChildren();
}

void kdLookup::resizeEvent(QResizeEvent *event)
{
    layoutChildren();
    UserControl::resizeEvent(event);
}

// Twips: nothing under a height of 195; a wider code box (500 more) for fonts above 9 points;
// a control narrower than its minimum is widened to it.
void kdLookup::layoutChildren()
{
    if (Twips::fromPixels(height(), this) < 195)
        return;
    const bool large = txtCodigo->font().pointSizeF() > 9;
    const int code = Twips::toPixels(m_codeWidth + (large ? 500 : 0), this);
    const int minimum = Twips::toPixels(m_minWidth + (large ? 500 : 0), this);
    setMinimumWidth(minimum);
    if (width() < minimum) {
        resize(minimum, height());
        return;
    }
    txtCodigo->setGeometry(0, 0, code, height());
    lblNombre->setGeometry(code, 0, width() - code, height());
}

QSize kdLookup::sizeHint() const
{
    return QSize(Twips::toPixels(m_minWidth, this) + 260, txtCodigo->sizeHint().height());
}

void kdLookup::ReadProperties(const PropertyBag &bag)
{
    const bool enabled = readBool(bag, "Enabled", true);
    readFontKey(bag);
    m_causesValidation = readBool(bag, "CausesValidation", true);
    txtCodigo->setReadOnly(readBool(bag, "Locked", false));
    readKeysAfterLocked(bag);
    txtCodigo->setText(bag.ReadProperty(QStringLiteral("Text"), QString()).toString());
    txtCodigo->setToolTip(bag.ReadProperty(QStringLiteral("ToolTipText"), QString()).toString());
    m_vital = readBool(bag, "Vital", true);
    m_inicial = readBool(bag, "Inicial", true);
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    readExtraProperties(bag);
    applyEnabled(enabled);
}

void kdLookup::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    writeFont(bag, Font());
    bag.WriteProperty(QStringLiteral("CausesValidation"), m_causesValidation, true);
    bag.WriteProperty(QStringLiteral("Locked"), Locked(), false);
    writeKeysAfterLocked(bag);
    bag.WriteProperty(QStringLiteral("Text"), txtCodigo->text(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText"), ToolTipText(), QString());
    bag.WriteProperty(QStringLiteral("Vital"), m_vital, true);
    bag.WriteProperty(QStringLiteral("Inicial"), m_inicial, true);
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
    writeExtraProperties(bag);
}

} // namespace Varnel_Controles
