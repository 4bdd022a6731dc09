#include "input/TextBoxKeyFilter.h"
#include "input/kdTextBox.h"
#include "platform/LegacyColor.h"
#include "support/Widgets.h"

#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <utility>

using namespace Varnel_Controles;

namespace {

// A numeric code, a signed quantity with decimals and a name, in this tab order.
struct Form
{
    QWidget window;
    kdTextBox *code = new kdTextBox(&window);
    kdTextBox *quantity = new kdTextBox(&window);
    kdTextBox *name = new kdTextBox(&window);
    Form()
    {
        Testing::stack(window, {code, quantity, name});
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
    // The key filter on its own: what a typed character becomes.
    void keyFilter_data()
    {
        // mode: A alphanumeric, N numeric, 7 an unknown type; "," decimals, "-" negative, "l" no upper case
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("result"); // KeyAscii handed on
        QTest::addColumn<QString>("newText"); // "<none>" when the text is not replaced
        const QString none = QStringLiteral("<none>");
        QTest::newRow("backspace") << "N" << "12" << "" << 8 << 8 << none;
        QTest::newRow("ctrl v") << "N,-" << "" << "" << 22 << 0 << none;
        QTest::newRow("comma accepted") << "N," << "12" << "" << 44 << 44 << none;
        QTest::newRow("comma without decimals") << "N" << "12" << "" << 44 << 0 << none;
        QTest::newRow("second comma") << "N," << "12,5" << "" << 44 << 0 << none;
        QTest::newRow("point over whole selection") << "N," << "12,5" << "12,5" << 46 << 44 << none;
        QTest::newRow("minus refused") << "N" << "45" << "" << 45 << 0 << none;
        QTest::newRow("minus removes sign") << "N-" << "-45" << "" << 45 << 0 << "45";
        QTest::newRow("minus in empty field") << "N-" << "" << "" << 45 << 45 << none;
        QTest::newRow("minus over part selection") << "N-" << "45" << "4" << 45 << 0 << "-45";
        // The sign test trims, the cut does not: a leading blank goes instead of the sign.
        QTest::newRow("leading blank loses the blank") << "N-" << " -45" << "" << 45 << 0 << "-45";
        QTest::newRow("leading blank gets a sign") << "N-" << " 45" << "" << 45 << 0 << "- 45";
        QTest::newRow("a stays a") << "Al" << "" << "" << int('a') << int('a') << none;
        QTest::newRow("alpha apostrophe") << "A" << "" << "" << 39 << 0 << none;
        QTest::newRow("alpha minus passes") << "A-" << "45" << "" << 45 << 45 << none;
        QTest::newRow("unknown type is alphanumeric") << "7" << "" << "" << int('z') << int('Z') << none;
    }
    void keyFilter()
    {
        QFETCH(QString, mode);
        QFETCH(QString, text);
        QFETCH(QString, selected);
        QFETCH(int, key);
        const qint32 type = mode.startsWith(u'N') ? 1 : mode.startsWith(u'7') ? 7 : 0;
        const TextBoxKeyFilter::Settings settings{type, mode.contains(u','), mode.contains(u'-'), !mode.contains(u'l')};
        const auto out = TextBoxKeyFilter::filter(qint16(key), settings, {text, selected});
        QTEST(int(out.keyAscii), "result");
        QTEST(out.text.value_or(QStringLiteral("<none>")), "newText");
        QCOMPARE(out.moveFocusNext, key == 13);
    }

    void clerkWalksTheForm()
    {
        Form f;
        f.quantity->setBackColor(0x00FFFF);
        f.name->setChangeColorOnFocus(false);
        f.name->setBackColor(0x00FFFF);
        f.code->setEnabled(false);
        QVERIFY(Testing::showActive(f.window));
        QList<int> keysSeen;
        connect(f.quantity, &kdTextBox::KeyPress, this, [&](qint16 &k) { keysSeen << k; });
        f.quantity->setFocus();
        Testing::settle();
        QCOMPARE(Testing::paintedBackground(*f.quantity), QColor(192, 255, 255));
        QTest::keyClicks(field(f.quantity), QStringLiteral("12.5"));
        QCOMPARE(f.quantity->Text(), QStringLiteral("12,5"));
        QCOMPARE(f.quantity->Value(), 12.5);

        QTest::keyClick(field(f.quantity), Qt::Key_Return);
        QCOMPARE(keysSeen.last(), 13);
        QCOMPARE(QApplication::focusWidget(), field(f.quantity)); // the focus moves once the handlers return
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(f.name));
        QCOMPARE(Testing::paintedBackground(*f.quantity), LegacyColor::toQColor(LegacyColor::WindowBackground));
        QCOMPARE(f.name->BackColor(), 0x00FFFFu); // no focus colour when the flag is off
        Testing::typeText(field(f.name), QStringLiteral("peña"));
        QCOMPARE(f.name->Text(), QStringLiteral("PEÑA"));

        // Focus events reaching a disabled box do not repaint it.
        QFocusEvent in(QEvent::FocusIn, Qt::OtherFocusReason);
        QApplication::sendEvent(field(f.code), &in);
        QCOMPARE(Testing::paintedBackground(*f.code), QColor(224, 224, 224));
        f.code->setEnabled(true);
        QCOMPARE(f.code->BackColor(), LegacyColor::WindowBackground);
    }

    void focusKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("flagsOn");  // KeyEnterChangeFocus and KeyUpChangeFocus
        QTest::addColumn<int>("focused");   // 0 code, 1 quantity (where the key is typed), 2 name
        QTest::newRow("up moves back") << int(Qt::Key_Up) << int(Qt::NoModifier) << true << 0;
        QTest::newRow("shift up moves back") << int(Qt::Key_Up) << int(Qt::ShiftModifier) << true << 0;
        QTest::newRow("enter, flag off") << int(Qt::Key_Return) << int(Qt::NoModifier) << false << 1;
        QTest::newRow("up, flag off") << int(Qt::Key_Up) << int(Qt::NoModifier) << false << 1;
    }
    void focusKeys()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, flagsOn);
        QFETCH(int, focused);
        Form f;
        f.quantity->setKeyEnterChangeFocus(flagsOn);
        f.quantity->setKeyUpChangeFocus(flagsOn);
        QVERIFY(Testing::showActive(f.window));
        QList<int> codes;
        connect(f.quantity, &kdTextBox::KeyDown, this, [&](qint16 &k, qint16 &) { codes << k; });
        f.quantity->setFocus();
        QTest::keyClick(field(f.quantity), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), field(QList<kdTextBox *>{f.code, f.quantity, f.name}[focused]));
        QVERIFY(codes.contains(key == Qt::Key_Up ? 38 : 13)); // the host hears the key after any modifier
    }

    void textRules()
    {
        kdTextBox box;
        box.setText(QStringLiteral("  ABC  "));
        QCOMPARE(field(&box)->text(), QStringLiteral("ABC"));
        field(&box)->setText(QStringLiteral(" X "));
        QCOMPARE(box.Text(), QStringLiteral("X"));
        box.setTypeOfValues(Numeric);
        box.setText(QStringLiteral("O'BRIEN 1.2")); // assignment is never filtered
        QCOMPARE(box.Text(), QStringLiteral("O'BRIEN 1.2"));
        QCOMPARE(box.Value(), 0.0);

        box.setAceptNegative(true);
        box.setText(QStringLiteral("45"));
        field(&box)->setCursorPosition(1);
        QTest::keyClick(field(&box), '-');
        QCOMPARE(box.Text(), QStringLiteral("-45"));
        QCOMPARE(field(&box)->cursorPosition(), 3); // the sign toggles with the caret at the end
        box.SelectText();
        QTest::keyClick(field(&box), Qt::Key_X, Qt::ControlModifier); // no cut in a numeric box
        QCOMPARE(box.Text(), QStringLiteral("-45"));
    }

    void escapeInADialogCancelsIt()
    {
        QDialog dialog;
        auto *alphanumeric = new kdTextBox(&dialog);
        auto *numeric = new kdTextBox(&dialog);
        numeric->setTypeOfValues(Numeric);
        QList<int> seen;
        QSignalSpy rejected(&dialog, &QDialog::rejected);
        for (kdTextBox *box : {alphanumeric, numeric}) {
            connect(box, &kdTextBox::KeyPress, this, [&](qint16 &k) { seen << k; });
            QVERIFY(Testing::showActive(dialog));
            box->setFocus();
            QTest::keyClick(field(box), Qt::Key_Escape);
        }
        QCOMPARE(seen, (QList<int>{27, 0})); // a numeric box hands the host 0
        QCOMPARE(rejected.size(), 2);
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

    void hostSlotsDecideWhatTheFieldReceives()
    {
        kdTextBox box;
        connect(&box, &kdTextBox::KeyPress, this, [](qint16 &k) { k = k == 'A' ? 'Z' : k == 'B' ? 0 : k; });
        QTest::keyClicks(field(&box), QStringLiteral("abc"));
        QCOMPARE(box.Text(), QStringLiteral("ZC"));

        // A KeyDown set to 0 cancels the editing key; KeyUp still comes.
        QList<int> keyUps;
        connect(&box, &kdTextBox::KeyDown, this, [](qint16 &code, qint16 &) { code = code == 46 ? 0 : code; });
        connect(&box, &kdTextBox::KeyUp, this, [&](qint16 &code, qint16 &) { keyUps << code; });
        field(&box)->setCursorPosition(0);
        QTest::keyClick(field(&box), Qt::Key_Delete);
        QCOMPARE(box.Text(), QStringLiteral("ZC"));
        QCOMPARE(keyUps, QList<int>{46});

        // A refused key arrives as 0, and the host may still let a character through.
        kdTextBox numeric;
        numeric.setTypeOfValues(Numeric);
        QList<int> seen;
        connect(&numeric, &kdTextBox::KeyPress, this, [&](qint16 &k) { seen << std::exchange(k, qint16('9')); });
        QTest::keyClick(field(&numeric), Qt::Key_X);
        QCOMPARE(seen, QList<int>{0});
        QCOMPARE(numeric.Text(), QStringLiteral("9"));
    }

    void focusArrival_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("selectionOnFocus");
        QTest::addColumn<QString>("after"); // selected when the flag is on
        QTest::newRow("minus zero emptied") << "-0" << true << "";
        QTest::newRow("number selected") << "5" << true << "5";
        QTest::newRow("zero kept without the flag") << "0" << false << "0";
    }
    void focusArrival()
    {
        QFETCH(QString, text);
        QFETCH(bool, selectionOnFocus);
        QFETCH(QString, after);
        Form f;
        f.name->setText(text);
        f.name->setSelectionOnFocus(selectionOnFocus);
        QVERIFY(Testing::showActive(f.window));
        f.code->setFocus();
        QSignalSpy change(f.name, &kdTextBox::Change);
        field(f.name)->setFocus(Qt::OtherFocusReason);
        QCOMPARE(f.name->Text(), after);
        QCOMPARE(field(f.name)->selectedText(), selectionOnFocus ? after : QString());
        QCOMPARE(change.count(), after == text ? 0 : 1);
    }

    void everyPersistedPropertyNotifiesItsKeyAndLoadsBack()
    {
        const QList<QPair<const char *, QVariant>> values{
            {"ForeColor", QVariant::fromValue<quint32>(0xFF0000)},
            {"Appearance", QVariant::fromValue<qint16>(0)},
            {"BorderStyle", QVariant::fromValue<qint16>(0)},
            {"Alignment", QVariant::fromValue<qint16>(1)},
            {"CausesValidation", false},
            {"Locked", true},
            {"MaxLength", qint32(5)},
            {"PasswordChar", QStringLiteral("*")},
            {"RightToLeft", true},
            {"ToolTipText", QStringLiteral("Código")},
            {"Text", QStringLiteral("A")},
            {"AceptDecimals", true},
            {"TypeOfValues", qint32(1)},
            {"AceptNegative", true},
            {"SelectionOnFocus", false},
            {"ChangeColorOnFocus", false},
            {"ConvertToUpper", false},
            {"InitValue", QStringLiteral(" 0 ")},
            {"KeyUpChangeFocus", false},
            {"KeyEnterChangeFocus", false},
            {"Enabled", false},
            {"BackColor", QVariant::fromValue<quint32>(0xFF)}, // saved, but the load puts the disabled colour
        };
        kdTextBox box;
        QSignalSpy notified(&box, &kdTextBox::PropertyChanged);
        for (const auto &[name, value] : values) {
            QVERIFY2(box.setProperty(name, value) && !notified.isEmpty(), name);
            QCOMPARE(notified.takeLast().at(0).toString(), QString::fromLatin1(name));
        }
        PropertyBag bag;
        box.WriteProperties(bag);
        QVERIFY(bag.contains(QStringLiteral("BackColor")));
        kdTextBox back;
        back.ReadProperties(PropertyBag::fromText(bag.toText()));
        for (const auto &[name, value] : values.first(values.size() - 1))
            QVERIFY2(back.property(name) == value, name);
        QCOMPARE(back.BackColor(), LegacyColor::DisabledBackColor);
    }

    // A block as the legacy form files hold it: indented, CRLF, blocks of other properties.
    void legacyFormBlockLoads()
    {
        kdTextBox box;
        box.setSelectionOnFocus(false); // a missing key is read as its default
        box.ReadProperties(PropertyBag::fromText(QStringLiteral(
            "   Begin Varnel_Controles.kdTextBox txtImporte \r\n"
            "      _ExtentX        =   2143\r\n"
            "      BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} \r\n"
            "         Name            =   \"DejaVu Sans\"\r\n"
            "         Size            =   12\r\n"
            "         Weight          =   700\r\n"
            "      EndProperty\r\n"
            "      BeginProperty DataFormat {6D835690-900B-11D0-9484-00A0C91110ED} \r\n"
            "         Type            =   1\r\n"
            "      EndProperty\r\n"
            "      BackColor       =   &H000000FF&\r\n"
            "      AceptDecimals   =   -1  'True\r\n"
            "   End\r\n")));
        QCOMPARE(box.Font().family(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(box.Font().pointSizeF(), 12.0);
        QVERIFY(box.Font().bold());
        QCOMPARE(box.BackColor(), LegacyColor::WindowBackground); // the saved red is replaced
        QVERIFY(box.AceptDecimals());
        QVERIFY(box.SelectionOnFocus());
    }

    // A value outside what the property takes names its line, and nothing of the block loads.
    void valuesOutsideTheirRangeAreRefused_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("alignment") << "Alignment = 7";
        QTest::newRow("border style beyond 16 bits") << "BorderStyle = 70000";
        QTest::newRow("appearance") << "Appearance = 9";
        QTest::newRow("negative length") << "MaxLength = -3";
    }
    void valuesOutsideTheirRangeAreRefused()
    {
        QFETCH(QString, line);
        kdTextBox box;
        box.setText(QStringLiteral("SIN CAMBIOS"));
        try {
            box.ReadProperties(PropertyBag::fromText(QStringLiteral("Text = \"OTRO\"\n") + line + u'\n'));
            QFAIL("the block was accepted");
        } catch (const PropertyBagError &e) {
            QCOMPARE(e.line(), 2);
        }
        QCOMPARE(box.Text(), QStringLiteral("SIN CAMBIOS"));
    }
};

QTEST_MAIN(tst_kdTextBox)
#include "tst_kdTextBox.moc"
