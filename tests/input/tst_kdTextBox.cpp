#include "input/kdTextBox.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "support/Widgets.h"

#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {

struct Form
{
    QWidget window;
    kdTextBox *code, *quantity, *name;
    Form()
    {
        auto *layout = new QVBoxLayout(&window);
        code = new kdTextBox(&window);
        quantity = new kdTextBox(&window);
        name = new kdTextBox(&window);
        for (auto *box : {code, quantity, name})
            layout->addWidget(box);
        code->setTypeOfValues(Numeric);
        quantity->setTypeOfValues(Numeric);
        quantity->setAceptDecimals(true);
        quantity->setAceptNegative(true);
    }
};

QLineEdit *field(kdTextBox *box) { return box->findChild<QLineEdit *>(QStringLiteral("txtTexto")); }

} // namespace

class tst_kdTextBox : public QObject
{
    Q_OBJECT

private slots:
    void clerkWalksTheForm()
    {
        Form f;
        QVERIFY(Testing::showActive(f.window));
        QList<int> keysSeen;
        connect(f.quantity, &kdTextBox::KeyPress, this, [&](qint16 &k) { keysSeen << k; });
        f.quantity->setFocus();
        Testing::settle();
        QCOMPARE(Testing::paintedBackground(*f.quantity), QColor(192, 255, 255));
        QCOMPARE(f.quantity->BackColor(), 0xFFFFC0u);

        QTest::keyClicks(field(f.quantity), QStringLiteral("12.5"));
        QCOMPARE(f.quantity->Text(), QStringLiteral("12,5"));
        QCOMPARE(f.quantity->Value(), 12.5);

        QTest::keyClick(field(f.quantity), Qt::Key_Return);
        QCOMPARE(keysSeen.last(), 13);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(f.name));
        QCOMPARE(f.quantity->BackColor(), LegacyColor::WindowBackground);
        QCOMPARE(Testing::paintedBackground(*f.quantity), LegacyColor::toQColor(LegacyColor::WindowBackground));

        Testing::typeText(field(f.name), QStringLiteral("peña"));
        QCOMPARE(f.name->Text(), QStringLiteral("PEÑA"));
        QTest::keyClick(field(f.name), Qt::Key_Up);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(f.quantity));
        QCOMPARE(field(f.quantity)->selectedText(), QStringLiteral("12,5")); // selected on arrival

        f.code->setEnabled(false);
        QCOMPARE(f.code->Enabled(), false);
        QCOMPARE(Testing::paintedBackground(*f.code), QColor(224, 224, 224));
    }

    void typedKeysThroughTheField_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("result");
        QTest::newRow("sign toggles from the middle") << "45" << 1 << "-" << "-45";
        QTest::newRow("sign toggles back") << "-45" << 2 << "-" << "45";
        QTest::newRow("empty box takes a minus") << "" << 0 << "-" << "-";
        QTest::newRow("letters and blanks refused") << "1" << 1 << "a b+/" << "1";
        QTest::newRow("apostrophe refused") << "1" << 1 << "'" << "1";
        QTest::newRow("second comma refused") << "1,5" << 3 << ",.2" << "1,52";
    }
    void typedKeysThroughTheField()
    {
        QFETCH(QString, start);
        QFETCH(int, caret);
        QFETCH(QString, typed);
        QFETCH(QString, result);
        kdTextBox box;
        box.setTypeOfValues(Numeric);
        box.setAceptDecimals(true);
        box.setAceptNegative(true);
        box.setText(start);
        field(&box)->setCursorPosition(caret);
        QTest::keyClicks(field(&box), typed);
        QCOMPARE(field(&box)->text(), result);
        if (typed == QLatin1String("-") && !start.isEmpty())
            QCOMPARE(field(&box)->cursorPosition(), int(result.size()));
    }

    void clipboardKeysDoNothingInANumericBox()
    {
        kdTextBox box;
        box.setTypeOfValues(Numeric);
        box.setText(QStringLiteral("123"));
        box.SelectText();
        QTest::keyClick(field(&box), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(box.Text(), QStringLiteral("123"));
    }

    void escapeInADialogCancelsIt_data()
    {
        QTest::addColumn<qint32>("type");
        QTest::addColumn<int>("keyAscii"); // what the host's KeyPress sees
        QTest::newRow("alphanumeric") << qint32(Alfanumeric) << 27;
        QTest::newRow("numeric") << qint32(Numeric) << 0;
    }
    void escapeInADialogCancelsIt()
    {
        QFETCH(qint32, type);
        QFETCH(int, keyAscii);
        QDialog dialog;
        auto *box = new kdTextBox(&dialog);
        box->setTypeOfValues(type);
        QList<int> seen;
        connect(box, &kdTextBox::KeyPress, this, [&](qint16 &k) { seen << k; });
        QSignalSpy rejected(&dialog, &QDialog::rejected);
        QVERIFY(Testing::showActive(dialog));
        box->setFocus();
        QTest::keyClick(field(box), Qt::Key_Escape);
        QCOMPARE(seen, QList<int>{keyAscii});
        QCOMPARE(rejected.size(), 1);
    }

    void pastingStopsAtTheTypingLimit()
    {
        kdTextBox box;
        box.setMaxLength(4);
        box.setText(QStringLiteral("1"));
        field(&box)->end(false);
        QApplication::clipboard()->setText(QStringLiteral("23456"));
        QTest::keyClick(field(&box), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.Text(), QStringLiteral("1234"));
    }

    void hostSlotDecidesWhatTheFieldReceives()
    {
        kdTextBox box;
        connect(&box, &kdTextBox::KeyPress, this, [](qint16 &k) {
            if (k == 'A') k = 'Z';
            else if (k == 'B') k = 0;
        });
        QTest::keyClicks(field(&box), QStringLiteral("abc"));
        QCOMPARE(box.Text(), QStringLiteral("ZC"));

        // A refused key arrives as 0, and the host may still let a character through.
        kdTextBox numeric;
        numeric.setTypeOfValues(Numeric);
        QList<int> seen;
        connect(&numeric, &kdTextBox::KeyPress, this, [&](qint16 &k) { seen << k; if (k == 0) k = '9'; });
        QTest::keyClick(field(&numeric), Qt::Key_X);
        QCOMPARE(seen, QList<int>{0});
        QCOMPARE(numeric.Text(), QStringLiteral("9"));
    }

    void hostSlotCanCancelAKeyDown()
    {
        kdTextBox box;
        QList<int> keyUps;
        connect(&box, &kdTextBox::KeyDown, this, [](qint16 &code, qint16 &) { if (code == 46) code = 0; });
        connect(&box, &kdTextBox::KeyUp, this, [&](qint16 &code, qint16 &) { keyUps << code; });
        box.setText(QStringLiteral("AB"));
        field(&box)->setCursorPosition(0);
        QTest::keyClick(field(&box), Qt::Key_Delete);
        QCOMPARE(box.Text(), QStringLiteral("AB"));
        QCOMPARE(keyUps, QList<int>{46});
    }

    void focusArrival_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("selectionOnFocus");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<int>("changes");
        QTest::newRow("zero emptied") << "0" << true << "" << "" << 1;
        QTest::newRow("zero with decimals emptied") << "0,00" << true << "" << "" << 1;
        QTest::newRow("minus zero emptied") << "-0" << true << "" << "" << 1;
        QTest::newRow("number selected") << "5" << true << "5" << "5" << 0;
        QTest::newRow("letters selected") << "ABC" << true << "ABC" << "ABC" << 0;
        QTest::newRow("zero kept without the flag") << "0" << false << "0" << "" << 0;
    }
    void focusArrival()
    {
        QFETCH(QString, text);
        QFETCH(bool, selectionOnFocus);
        QFETCH(QString, after);
        QFETCH(QString, selected);
        QFETCH(int, changes);
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *other = new QLineEdit(&window);
        auto *box = new kdTextBox(&window);
        layout->addWidget(other);
        layout->addWidget(box);
        box->setText(text);
        box->setSelectionOnFocus(selectionOnFocus);
        QVERIFY(Testing::showActive(window));
        other->setFocus();
        QSignalSpy change(box, &kdTextBox::Change);
        field(box)->setFocus(Qt::OtherFocusReason);
        QCOMPARE(box->Text(), after);
        QCOMPARE(field(box)->selectedText(), selected);
        QCOMPARE(change.count(), changes);
    }

    void focusColours()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *other = new QLineEdit(&window);
        auto *yellow = new kdTextBox(&window);
        auto *keeps = new kdTextBox(&window);
        auto *disabled = new kdTextBox(&window);
        for (QWidget *w : {static_cast<QWidget *>(other), static_cast<QWidget *>(yellow),
                           static_cast<QWidget *>(keeps), static_cast<QWidget *>(disabled)})
            layout->addWidget(w);
        yellow->setBackColor(0x00FFFF);
        keeps->setChangeColorOnFocus(false);
        keeps->setBackColor(0x00FFFF);
        disabled->setEnabled(false);
        QVERIFY(Testing::showActive(window));

        field(yellow)->setFocus();
        QCOMPARE(yellow->BackColor(), LegacyColor::FocusBackColor);
        other->setFocus();
        QCOMPARE(yellow->BackColor(), LegacyColor::WindowBackground); // the host's yellow is gone

        field(keeps)->setFocus();
        other->setFocus();
        QCOMPARE(keeps->BackColor(), 0x00FFFFu);

        // Focus events reaching a disabled box do not repaint it.
        QFocusEvent in(QEvent::FocusIn, Qt::OtherFocusReason);
        QApplication::sendEvent(field(disabled), &in);
        QCOMPARE(disabled->BackColor(), LegacyColor::DisabledBackColor);

        disabled->setEnabled(true);
        QCOMPARE(disabled->BackColor(), LegacyColor::WindowBackground);
    }

    void upArrowMovesBackWithAnyShiftState_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::newRow("alone") << int(Qt::NoModifier);
        QTest::newRow("shift") << int(Qt::ShiftModifier);
        QTest::newRow("ctrl") << int(Qt::ControlModifier);
    }
    void upArrowMovesBackWithAnyShiftState()
    {
        QFETCH(int, modifiers);
        Form f;
        QVERIFY(Testing::showActive(f.window));
        QList<int> codes;
        connect(f.quantity, &kdTextBox::KeyDown, this, [&](qint16 &k, qint16 &) { codes << k; });
        f.quantity->setFocus();
        QTest::keyClick(field(f.quantity), Qt::Key_Up, Qt::KeyboardModifiers(modifiers));
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(f.code));
        QVERIFY(codes.contains(38)); // after the modifier's own key-down
    }

    void flagsOffKeepTheFocus()
    {
        Form f;
        f.quantity->setKeyEnterChangeFocus(false);
        f.quantity->setKeyUpChangeFocus(false);
        QVERIFY(Testing::showActive(f.window));
        f.quantity->setFocus();
        QTest::keyClick(field(f.quantity), Qt::Key_Return);
        QTest::keyClick(field(f.quantity), Qt::Key_Up);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(f.quantity));
    }

    void textAndValueRules()
    {
        kdTextBox box;
        box.setText(QStringLiteral("  ABC  "));
        QCOMPARE(field(&box)->text(), QStringLiteral("ABC"));
        field(&box)->setText(QStringLiteral(" X "));
        QCOMPARE(box.Text(), QStringLiteral("X"));
        QCOMPARE(box.Value(), 0.0);
        box.setTypeOfValues(Numeric);
        box.setText(QStringLiteral("O'BRIEN 1.2"));          // assignment is never filtered
        QCOMPARE(box.Text(), QStringLiteral("O'BRIEN 1.2"));
        QCOMPARE(box.Value(), 0.0);
        box.setText(QStringLiteral("1.234,5"));
        QCOMPARE(box.Value(), 1234.5);
        box.setText(QString());
        QCOMPARE(box.Value(), 0.0);
    }

    void everyPersistedPropertyNotifiesItsKey_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("BackColor") << "BackColor" << QVariant::fromValue<quint32>(0xFF);
        QTest::newRow("ForeColor") << "ForeColor" << QVariant::fromValue<quint32>(0xFF0000);
        QTest::newRow("Appearance") << "Appearance" << QVariant::fromValue<qint16>(0);
        QTest::newRow("BorderStyle") << "BorderStyle" << QVariant::fromValue<qint16>(0);
        QTest::newRow("Alignment") << "Alignment" << QVariant::fromValue<qint16>(1);
        QTest::newRow("CausesValidation") << "CausesValidation" << QVariant(false);
        QTest::newRow("Locked") << "Locked" << QVariant(true);
        QTest::newRow("MaxLength") << "MaxLength" << QVariant(qint32(5));
        QTest::newRow("PasswordChar") << "PasswordChar" << QVariant(QStringLiteral("*"));
        QTest::newRow("RightToLeft") << "RightToLeft" << QVariant(true);
        QTest::newRow("ToolTipText") << "ToolTipText" << QVariant(QStringLiteral("Código"));
        QTest::newRow("Text") << "Text" << QVariant(QStringLiteral("A"));
        QTest::newRow("AceptDecimals") << "AceptDecimals" << QVariant(true);
        QTest::newRow("TypeOfValues") << "TypeOfValues" << QVariant(qint32(1));
        QTest::newRow("AceptNegative") << "AceptNegative" << QVariant(true);
        QTest::newRow("SelectionOnFocus") << "SelectionOnFocus" << QVariant(false);
        QTest::newRow("ChangeColorOnFocus") << "ChangeColorOnFocus" << QVariant(false);
        QTest::newRow("ConvertToUpper") << "ConvertToUpper" << QVariant(false);
        QTest::newRow("InitValue") << "InitValue" << QVariant(QStringLiteral(" 0 "));
        QTest::newRow("KeyUpChangeFocus") << "KeyUpChangeFocus" << QVariant(false);
        QTest::newRow("KeyEnterChangeFocus") << "KeyEnterChangeFocus" << QVariant(false);
        QTest::newRow("Enabled") << "Enabled" << QVariant(false);
    }
    void everyPersistedPropertyNotifiesItsKey()
    {
        QFETCH(QString, property);
        QFETCH(QVariant, value);
        kdTextBox box;
        QSignalSpy spy(&box, &kdTextBox::PropertyChanged);
        QVERIFY(box.setProperty(qPrintable(property), value));
        QCOMPARE(box.property(qPrintable(property)), value);
        QVERIFY(!spy.isEmpty());
        QCOMPARE(spy.last().at(0).toString(), property);

        // …and it survives a save and a load into a fresh box.
        PropertyBag bag;
        box.WriteProperties(bag);
        QVERIFY(bag.contains(property));
        kdTextBox back;
        back.ReadProperties(PropertyBag::fromText(bag.toText()));
        if (property != QLatin1String("BackColor")) // replaced by the enabled colour at load
            QCOMPARE(back.property(qPrintable(property)), value);
    }

    void newInstanceSavesOnlyTheTrueOfTheIntegerDefaults()
    {
        kdTextBox box;
        PropertyBag bag;
        box.WriteProperties(bag);
        QCOMPARE(bag.keys(), (QStringList{"SelectionOnFocus", "ChangeColorOnFocus", "ConvertToUpper"}));
        QVERIFY(bag.toText().contains(QLatin1String("SelectionOnFocus=   -1  'True")));

        box.setSelectionOnFocus(false);
        box.setAceptDecimals(false);
        bag = PropertyBag();
        box.WriteProperties(bag);
        QVERIFY(bag.toText().contains(QLatin1String("SelectionOnFocus=   0   'False")));
        QVERIFY(!bag.contains("AceptDecimals"));

        kdTextBox loaded; // a missing key is read as its default
        loaded.setSelectionOnFocus(false);
        loaded.ReadProperties(PropertyBag());
        QVERIFY(loaded.SelectionOnFocus());
    }

    void legacyFormBlockLoads()
    {
        QWidget host;
        auto *box = new kdTextBox(&host);
        box->ReadProperties(PropertyBag::fromText(QStringLiteral(
            "Begin Varnel_Controles.kdTextBox txtImporte\n"
            "   Height          =   315\n"
            "   TabIndex        =   4\n"
            "   BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851}\n"
            "      Name            =   \"DejaVu Sans\"\n"
            "      Size            =   12\n"
            "      Charset         =   0\n"
            "      Weight          =   700\n"
            "      Underline       =   0   'False\n"
            "      Italic          =   0   'False\n"
            "      Strikethrough   =   0   'False\n"
            "   EndProperty\n"
            "   BackColor       =   &H000000FF&\n"
            "   Alignment       =   1\n"
            "   MaxLength       =   10\n"
            "   Text            =   \"0\"\n"
            "   AceptDecimals   =   -1  'True\n"
            "   TypeOfValues    =   1\n"
            "   SelectionOnFocus=   0   'False\n"
            "   InitValue       =   \"1\"\n"
            "   KeyUpChangeFocus=   0   'False\n"
            "   Extra           =   \"ignored\"\n"
            "End\n")));
        QCOMPARE(box->Font().family(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(box->Font().pointSizeF(), 12.0);
        QCOMPARE(box->Font().bold(), true);
        QCOMPARE(box->BackColor(), LegacyColor::WindowBackground); // the saved red is replaced
        QCOMPARE(box->Alignment(), qint16(RightJustify));
        QCOMPARE(box->MaxLength(), 10);
        QCOMPARE(box->Text(), QStringLiteral("0"));
        QVERIFY(box->AceptDecimals());
        QCOMPARE(box->TypeOfValues(), qint32(Numeric));
        QVERIFY(!box->SelectionOnFocus());
        QCOMPARE(box->InitValue(), QStringLiteral("1"));
        QVERIFY(!box->KeyUpChangeFocus());
        QVERIFY(box->KeyEnterChangeFocus());
        QVERIFY(box->ConvertToUpper());

        box->ReadProperties(PropertyBag::fromText(QStringLiteral("BackColor = &H000000FF&\nEnabled = 0 'False\n")));
        QCOMPARE(box->BackColor(), LegacyColor::DisabledBackColor);
        QVERIFY(!box->isEnabled());
    }
};

QTEST_MAIN(tst_kdTextBox)
#include "tst_kdTextBox.moc"
