// The Designer plugin, loaded as Designer loads it: every control of the library in the
// library's group, with an icon, a header under the include prefix, and a widget it can place.
#include <QApplication>
#include <QDomDocument>
#include <QPluginLoader>
#include <QTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlIsInTheWidgetBox()
    {
        QPluginLoader loader(QStringLiteral(KD_DESIGNER_PLUGIN));
        QObject *plugin = loader.instance();
        QVERIFY2(plugin, qPrintable(loader.errorString()));
        auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(plugin);
        QVERIFY(collection);

        QStringList names;
        for (QDesignerCustomWidgetInterface *control : collection->customWidgets()) {
            names << control->name();
            QCOMPARE(control->group(), QStringLiteral("Varnel Controles"));
            QVERIFY(!control->icon().isNull());
            QVERIFY(!control->toolTip().isEmpty());
            const QString className = control->name().section(QStringLiteral("::"), 1);
            QCOMPARE(control->includeFile(), QStringLiteral("Varnel_Controles/%1.h").arg(className));
            QDomDocument dom;
            QVERIFY(dom.setContent(control->domXml()));
            QCOMPARE(dom.documentElement().firstChildElement(QStringLiteral("widget")).attribute(QStringLiteral("class")),
                     control->name());
            std::unique_ptr<QWidget> widget(control->createWidget(nullptr));
            QVERIFY(widget);
            QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), control->name());
        }
        QCOMPARE(names, (QStringList{"Varnel_Controles::kdTextBox", "Varnel_Controles::kdMaskEdBox",
                                     "Varnel_Controles::kdImpresoras", "Varnel_Controles::kdDispositivo",
                                     "Varnel_Controles::kdProveedor", "Varnel_Controles::kdCliente",
                                     "Varnel_Controles::kdFamilia"}));
    }
};

QTEST_MAIN(tst_DesignerPlugin)
#include "tst_DesignerPlugin.moc"
