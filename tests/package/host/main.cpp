// A host application that uses the installed library as any other host would.
#include <QApplication>
#include <QTextStream>
#include <input/kdTextBox.h>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    Varnel_Controles::kdTextBox box;
    box.setTypeOfValues(Varnel_Controles::Numeric);
    box.setText(QStringLiteral("1.234,5"));
    QTextStream(stdout) << "Value " << box.Value() << "\n";
    return box.Value() == 1234.5 ? 0 : 1;
}
