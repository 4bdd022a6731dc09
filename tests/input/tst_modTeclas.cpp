#include "input/modTeclas.h"
#include "support/RecordingKeyInjector.h"
#include "support/Widgets.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Varnel_Controles;
using Call = Testing::RecordingKeyInjector::Call;

class tst_modTeclas : public QObject
{
    Q_OBJECT

private slots:
    void sequencesAreTheLegacyKeystrokes()
    {
        Testing::RecordingKeyInjector keys;
        modTeclas::MoveFocusNext();
        QCOMPARE(keys.calls, (QList<Call>{{9, 9, 1, 0}, {9, 9, 3, 0}}));
        keys.calls.clear();
        modTeclas::MoveFocusPrevious();
        QCOMPARE(keys.calls, (QList<Call>{{16, 16, 1, 0}, {9, 9, 1, 0}, {9, 9, 3, 0}, {16, 16, 3, 0}}));
    }

    void focusMovesAfterTheHandlerReturns()
    {
        QWidget form;
        auto *layout = new QVBoxLayout(&form);
        auto *a = new QLineEdit(&form);
        auto *b = new QLineEdit(&form);
        auto *c = new QLineEdit(&form);
        layout->addWidget(a);
        layout->addWidget(b);
        layout->addWidget(c);
        QVERIFY(Testing::showActive(form));
        b->setFocus();
        modTeclas::MoveFocusNext();
        QCOMPARE(QApplication::focusWidget(), b); // still here while the handler runs
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), c);
        modTeclas::MoveFocusPrevious();
        modTeclas::MoveFocusPrevious();
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), a);
    }
};

QTEST_MAIN(tst_modTeclas)
#include "tst_modTeclas.moc"
