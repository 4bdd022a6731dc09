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
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("shift");
        QTest::addColumn<int>("keyAscii");
        QTest::newRow("enter") << int(Qt::Key_Return) << 0 << "\r" << 13 << 0 << 13;
        QTest::newRow("keypad enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << "\r" << 13 << 0 << 13;
        QTest::newRow("up") << int(Qt::Key_Up) << 0 << "" << 38 << 0 << 0;
        QTest::newRow("shift up") << int(Qt::Key_Up) << int(Qt::ShiftModifier) << "" << 38 << 1 << 0;
        QTest::newRow("ctrl shift up") << int(Qt::Key_Up) << int(Qt::ShiftModifier | Qt::ControlModifier) << "" << 38 << 3 << 0;
        QTest::newRow("page down") << int(Qt::Key_PageDown) << 0 << "" << 34 << 0 << 0;
        QTest::newRow("F3") << int(Qt::Key_F3) << 0 << "" << 114 << 0 << 0;
        QTest::newRow("F12") << int(Qt::Key_F12) << 0 << "" << 123 << 0 << 0;
        QTest::newRow("lower a") << int(Qt::Key_A) << 0 << "a" << 65 << 0 << 97;
        QTest::newRow("ctrl c") << int(Qt::Key_C) << int(Qt::ControlModifier) << "c" << 67 << 2 << 3;
        QTest::newRow("alt x") << int(Qt::Key_X) << int(Qt::AltModifier) << "x" << 88 << 4 << 120;
        QTest::newRow("enye") << int(Qt::Key_Ntilde) << 0 << "ñ" << 192 << 0 << 241;
        QTest::newRow("delete types nothing") << int(Qt::Key_Delete) << 0 << "\x7f" << 46 << 0 << 0;
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << 0 << "\b" << 8 << 0 << 8;
        QTest::newRow("keypad 5") << int(Qt::Key_5) << int(Qt::KeypadModifier) << "5" << 101 << 0 << 53;
        QTest::newRow("apostrophe") << int(Qt::Key_Apostrophe) << 0 << "'" << 222 << 0 << 39;
    }
    void translatesQtEvents()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);
        QFETCH(int, keyCode);
        QFETCH(int, shift);
        QFETCH(int, keyAscii);
        const QKeyEvent e(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QCOMPARE(int(KeyCodes::keyCode(&e)), keyCode);
        QCOMPARE(int(KeyCodes::shiftState(&e)), shift);
        QCOMPARE(int(KeyCodes::keyAscii(&e)), keyAscii);
    }
};

QTEST_GUILESS_MAIN(tst_KeyCodes)
#include "tst_KeyCodes.moc"
