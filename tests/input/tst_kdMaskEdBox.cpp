#include "input/kdMaskEdBox.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "support/Widgets.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

using namespace Varnel_Controles;

namespace {

struct Form
{
    QWidget window;
    kdMaskEdBox *date = new kdMaskEdBox(&window);
    QLineEdit *after = new QLineEdit(&window);
    Form() { Testing::stack(window, {date, after}); }
    QLineEdit *field() const { return date->findChild<QLineEdit *>(QStringLiteral("txtTexto")); }
};

} // namespace

class tst_kdMaskEdBox : public QObject
{
    Q_OBJECT

private slots:
    void dateCompletionOnEnter_data()
    {
        QTest::addColumn<bool>("functionDate");
        QTest::addColumn<QString>("defaultDate");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text"); // the focus moves on unless the box was emptied
        const QString today = QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
        QTest::newRow("empty, default no date: today") << true << "MAÑANA" << "" << today;
        QTest::newRow("short date written out") << true << "" << "1/2/08" << "01/02/2008";
        const QString year = QString::number(QDate::currentDate().year());
        QTest::newRow("day and month: this year") << true << "" << "1503" << "15/03/" + year;
        QTest::newRow("day/month: this year") << true << "" << "1/2" << "01/02/" + year;
        QTest::newRow("default written year first") << true << "2026-11-01" << "" << "01/11/2026";
        QTest::newRow("default with a time") << true << "01/11/2026 10:30:00" << "" << "01/11/2026";
        QTest::newRow("no such day: emptied, focus kept") << true << "" << "31022008" << "";
        QTest::newRow("date mode off: untouched") << false << "" << "1/2/08" << "1 /2 /08  ";
    }
    void dateCompletionOnEnter()
    {
        QFETCH(bool, functionDate);
        QFETCH(QString, defaultDate);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        Form f;
        f.date->setFunctionDate(functionDate);
        f.date->setDefault(defaultDate);
        QVERIFY(Testing::showActive(f.window));
        f.date->setFocus();
        QTest::keyClicks(f.field(), typed);
        QString seenByHost = QStringLiteral("no KeyPress");
        connect(f.date, &kdMaskEdBox::KeyPress, this, [&](qint16 &) { seenByHost = f.date->Text(); });
        QTest::keyClick(f.field(), Qt::Key_Return);
        QCOMPARE(f.date->Text(), text);
        QCOMPARE(seenByHost, text); // the host's KeyPress comes after the completion
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), text.isEmpty() ? f.field() : static_cast<QWidget *>(f.after));
    }

    void maskRefusesWhatItCannotHold()
    {
        Form f;
        QList<qint16> positions;
        connect(f.date, &kdMaskEdBox::ValidationError, this, [&](QString &, qint16 &p) { positions << p; });
        QTest::keyClicks(f.field(), QStringLiteral("1x"));
        QCOMPARE(f.date->FormattedText(), QStringLiteral("1 /  /    "));
        QCOMPARE(positions, QList<qint16>{1});
        f.date->setText(QStringLiteral("AB/01/2020")); // assigned: refused as a whole
        QCOMPARE(positions.last(), qint16(0));
        QCOMPARE(f.date->FormattedText(), QStringLiteral("1 /  /    "));
        QTest::keyClick(f.field(), Qt::Key_Backspace);
        QCOMPARE(f.date->Text(), QString());
    }

    void contextMenuEditsThroughTheMask()
    {
        Form f;
        QVERIFY(Testing::showActive(f.window));
        auto *field = f.date->findChild<TextField *>(QStringLiteral("txtTexto"));
        field->setFocus();
        // As a clerk uses it: the menu pops up and closes (the focus comes back to the field),
        // then its action runs on what was selected.
        const auto trigger = [field](const QString &text) {
            std::unique_ptr<QMenu> menu(field->createContextMenu());
            menu->popup(field->mapToGlobal(QPoint(2, 2)));
            menu->close();
            for (QAction *a : menu->actions())
                if (a->text() == text && a->isEnabled())
                    return a->trigger(), true;
            return false;
        };
        f.date->setText(QStringLiteral("05/06/2024"));
        field->selectAll();
        QVERIFY(trigger(QStringLiteral("Cor&tar")));
        QCOMPARE(f.date->Text(), QString());
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("05/06/2024"));
        QVERIFY(trigger(QStringLiteral("&Pegar")));
        QCOMPARE(f.date->Text(), QStringLiteral("05/06/2024"));
        field->setSelection(3, 2);
        QVERIFY(trigger(QStringLiteral("&Eliminar")));
        QCOMPARE(f.date->Text(), QStringLiteral("05/  /2024"));
    }

    void focusArrival()
    {
        Form f;
        QVERIFY(Testing::showActive(f.window));
        f.after->setFocus();
        f.date->setText(QStringLiteral("31/02/2008"));
        f.date->setFocus();
        QCOMPARE(f.field()->selectedText(), QStringLiteral("31/02/2008"));
        f.after->setFocus();
        QCOMPARE(f.date->Text(), QStringLiteral("31/02/2008")); // no date check when leaving

        f.date->setText(QString());
        f.date->setFocus();
        QCOMPARE(f.field()->selectedText(), QString());
        QCOMPARE(f.field()->cursorPosition(), 0);
    }

    void newInstanceAndLoadDefaultsDiffer()
    {
        kdMaskEdBox box; // a new instance: a date mask with a blank prompt, no date completion
        QVERIFY(!box.FunctionDate());
        box.setText(QStringLiteral("09/03/2024"));
        box.setFormat(QStringLiteral("dd/mm/yy"));
        box.setAutoTab(true);
        box.setClipMode(1);
        box.setSelectionOnFocus(false);
        box.setWhatsThisHelpID(7);
        box.setToolTipText(QStringLiteral("Fecha"));
        box.setBackColor(0xFF);
        PropertyBag bag;
        box.WriteProperties(bag);
        const QString text = bag.toText();
        QVERIFY2(text.contains(QLatin1String("ChangeColorOnFocus=   -1  'True")), qPrintable(text)); // True against 1
        QVERIFY(text.contains(QLatin1String("FunctionDate    =   0   'False")));
        kdMaskEdBox back;
        back.ReadProperties(PropertyBag::fromText(text));
        for (const char *p : {"Mask", "Text", "Format", "AutoTab", "ClipMode", "SelectionOnFocus", "WhatsThisHelpID",
                              "ToolTipText", "PromptChar", "PromptInclude", "FunctionDate"})
            QVERIFY2(back.property(p) == box.property(p), p);
        QCOMPARE(back.BackColor(), LegacyColor::WindowBackground); // replaced at load

        kdMaskEdBox loaded; // what a form file leaves out loads with other defaults
        loaded.ReadProperties(PropertyBag());
        QCOMPARE(loaded.Mask(), QString());
        QCOMPARE(loaded.PromptChar(), QStringLiteral("_"));
        QVERIFY(loaded.PromptInclude());
        QVERIFY(loaded.FunctionDate());
        QCOMPARE(loaded.MaxLength(), qint16(64));
    }
};

QTEST_MAIN(tst_kdMaskEdBox)
#include "tst_kdMaskEdBox.moc"
