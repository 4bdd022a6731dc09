// The house's button row of a form dialog: the buttons at the right, F9 accepting and F12
// cancelling wherever the focus is in the dialog.
#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <initializer_list>

namespace Varnel_Controles::DialogButtons {

/// A row with `buttons` pushed to the right, in the order given.
inline QHBoxLayout *row(std::initializer_list<QPushButton *> buttons)
{
    auto *layout = new QHBoxLayout;
    layout->addStretch();
    for (QPushButton *button : buttons)
        layout->addWidget(button);
    return layout;
}

/// F9 calls `accept`, F12 `cancel`, as the dialog's Accept and Cancel buttons do.
template<class Dialog, class Accept, class Cancel>
void acceptCancelKeys(Dialog *dialog, Accept accept, Cancel cancel)
{
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F9), dialog), &QShortcut::activated, dialog, accept);
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F12), dialog), &QShortcut::activated, dialog, cancel);
}

} // namespace Varnel_Controles::DialogButtons
