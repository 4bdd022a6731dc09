#include "platform/KeyCodes.h"

#include <QKeyEvent>
#include <QTest>

using namespace Varnel_Controles;

class tst_KeyCodes : public QObject
{
    Q_OBJECT

private slots:
    void translatesQtEvents_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<int>>("codes"); // KeyCode, Shift, KeyAscii
        QTest::newRow("keypad enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << "\r" << QList<int>{13, 0, 13};
        QTest::newRow("shift up") << int(Qt::Key_Up) << int(Qt::ShiftModifier) << "" << QList<int>{38, 1, 0};
        QTest::newRow("ctrl shift up") << int(Qt::Key_Up) << int(Qt::ShiftModifier | Qt::ControlModifier) << ""
                                       << QList<int>{38, 3, 0};
        QTest::newRow("F3") << int(Qt::Key_F3) << 0 << "" << QList<int>{114, 0, 0};
        QTest::newRow("lower a") << int(Qt::Key_A) << 0 << "a" << QList<int>{65, 0, 97};
        QTest::newRow("ctrl c") << int(Qt::Key_C) << int(Qt::ControlModifier) << "c" << QList<int>{67, 2, 3};
        QTest::newRow("alt x") << int(Qt::Key_X) << int(Qt::AltModifier) << "x" << QList<int>{88, 4, 120};
        QTest::newRow("enye") << int(Qt::Key_Ntilde) << 0 << "ñ" << QList<int>{192, 0, 241};
        QTest::newRow("delete types nothing") << int(Qt::Key_Delete) << 0 << "\x7f" << QList<int>{46, 0, 0};
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << 0 << "\b" << QList<int>{8, 0, 8};
        QTest::newRow("keypad 5") << int(Qt::Key_5) << int(Qt::KeypadModifier) << "5" << QList<int>{101, 0, 53};
        QTest::newRow("apostrophe") << int(Qt::Key_Apostrophe) << 0 << "'" << QList<int>{222, 0, 39};
    }
    void translatesQtEvents()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);
        QFETCH(QList<int>, codes);
        const QKeyEvent e(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QCOMPARE((QList<int>{KeyCodes::keyCode(&e), KeyCodes::shiftState(&e), KeyCodes::keyAscii(&e)}), codes);
    }
};

QTEST_GUILESS_MAIN(tst_KeyCodes)
#include "tst_KeyCodes.moc"
