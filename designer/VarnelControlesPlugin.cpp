#include "VarnelControlesPlugin.h"

#include <Varnel_Controles/kdCliente.h>
#include <Varnel_Controles/kdDispositivo.h>
#include <Varnel_Controles/kdFamilia.h>
#include <Varnel_Controles/kdImpresoras.h>
#include <Varnel_Controles/kdMaskEdBox.h>
#include <Varnel_Controles/kdProveedor.h>
#include <Varnel_Controles/kdTextBox.h>

#include <QPainter>
#include <QPixmap>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <functional>

namespace {

// One control of the widget box: its class, header, size when dropped on a form, a short
// description, and the mark drawn on its icon.
struct Control
{
    QString className;   // without the namespace
    QString toolTip;
    QString mark;        // two or three characters on the icon
    QColor colour;
    int width, height;   // pixels, as placed
    std::function<QWidget *(QWidget *)> create;
};

class ControlPlugin : public QDesignerCustomWidgetInterface
{
public:
    explicit ControlPlugin(Control control) : m_control(std::move(control)) {}

    QString name() const override { return QStringLiteral("Varnel_Controles::") + m_control.className; }
    QString group() const override { return QStringLiteral("Varnel Controles"); }
    QString toolTip() const override { return m_control.toolTip; }
    QString whatsThis() const override { return m_control.toolTip; }
    QString includeFile() const override { return QStringLiteral("Varnel_Controles/%1.h").arg(m_control.className); }
    bool isContainer() const override { return false; }
    bool isInitialized() const override { return m_initialized; }
    void initialize(QDesignerFormEditorInterface *) override { m_initialized = true; }
    QWidget *createWidget(QWidget *parent) override { return m_control.create(parent); }

    QIcon icon() const override
    {
        QPixmap pixmap(22, 22);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(m_control.colour.darker(150));
        p.setBrush(m_control.colour);
        p.drawRoundedRect(QRectF(0.5, 3.5, 21, 15), 3, 3);
        QFont font = p.font();
        font.setPixelSize(9);
        font.setBold(true);
        p.setFont(font);
        p.setPen(Qt::black);
        p.drawText(QRect(0, 3, 22, 16), Qt::AlignCenter, m_control.mark);
        return QIcon(pixmap);
    }

    QString domXml() const override
    {
        const QString lower = m_control.className.left(1).toLower() + m_control.className.mid(1);
        return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
                              "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>%3</width>"
                              "<height>%4</height></rect></property></widget></ui>")
            .arg(name(), lower).arg(m_control.width).arg(m_control.height);
    }

private:
    Control m_control;
    bool m_initialized = false;
};

template <typename T>
std::function<QWidget *(QWidget *)> creator()
{
    return [](QWidget *parent) -> QWidget * { return new T(parent); };
}

} // namespace

VarnelControlesPlugin::VarnelControlesPlugin(QObject *parent)
    : QObject(parent)
{
    using namespace Varnel_Controles;
    const QList<Control> controls = {
        {QStringLiteral("kdTextBox"), QStringLiteral("Caja de texto: códigos, nombres y cantidades con coma decimal"),
         QStringLiteral("abc"), QColor(0xc0, 0xff, 0xff), 100, 21, creator<kdTextBox>()},
        {QStringLiteral("kdMaskEdBox"), QStringLiteral("Caja con máscara; fechas completadas con Intro"),
         QStringLiteral("##/"), QColor(0xc0, 0xff, 0xff), 90, 21, creator<kdMaskEdBox>()},
        {QStringLiteral("kdImpresoras"), QStringLiteral("Lista de las impresoras del equipo"),
         QStringLiteral("Imp"), QColor(0xe0, 0xe0, 0xe0), 200, 21, creator<kdImpresoras>()},
        {QStringLiteral("kdDispositivo"), QStringLiteral("Destino de un informe: pantalla, impresora, fichero o correo"),
         QStringLiteral("Dsp"), QColor(0xe0, 0xe0, 0xe0), 120, 21, creator<kdDispositivo>()},
        {QStringLiteral("kdProveedor"), QStringLiteral("Código de proveedor y su nombre; F3 busca"),
         QStringLiteral("Prv"), QColor(0xff, 0xe0, 0xa0), 300, 21, creator<kdProveedor>()},
        {QStringLiteral("kdCliente"), QStringLiteral("Código de cliente y su nombre; F3 busca"),
         QStringLiteral("Cli"), QColor(0xff, 0xe0, 0xa0), 300, 21, creator<kdCliente>()},
        {QStringLiteral("kdFamilia"), QStringLiteral("Familia en tres niveles y sus descripciones; F3 busca"),
         QStringLiteral("Fam"), QColor(0xff, 0xe0, 0xa0), 300, 69, creator<kdFamilia>()},
    };
    for (const Control &c : controls)
        m_widgets.append(new ControlPlugin(c));
}

VarnelControlesPlugin::~VarnelControlesPlugin()
{
    qDeleteAll(m_widgets);
}
