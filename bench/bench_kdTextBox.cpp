// The cost of typing into a numeric kdTextBox (key filter, events, upper case) against a
// plain QLineEdit receiving the same keystrokes.
#include "BenchUtil.h"

#include <Varnel_Controles/kdTextBox.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Varnel_Controles;

namespace {

const QString kTyped = QStringLiteral("1234.56-78,9");

void type(QWidget *target, int repeats)
{
    for (int r = 0; r < repeats; ++r) {
        for (QChar c : kTyped) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
            QApplication::sendEvent(target, &press);
            QApplication::sendEvent(target, &release);
        }
        static_cast<QLineEdit *>(target)->clear();
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    kdTextBox box;
    box.setTypeOfValues(Numeric);
    box.setAceptDecimals(true);
    box.setAceptNegative(true);
    QLineEdit plain;
    QLineEdit *field = box.findChild<QLineEdit *>(QStringLiteral("txtTexto"));
    const int repeats = 2000;
    const int keys = repeats * int(kTyped.size());
    type(field, 100);
    type(&plain, 100);
    const qint64 subject = bench::best(5, [&] { type(field, repeats); });
    const qint64 baseline = bench::best(5, [&] { type(&plain, repeats); });
    bench::report(QStringLiteral("kdTextBox numeric, per keystroke"), subject,
                  QStringLiteral("QLineEdit"), baseline, keys);
    return 0;
}
