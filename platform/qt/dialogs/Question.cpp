#include "platform/qt/dialogs/Question.h"

int Ask(QWidget* owner, const QString& title, const QString& text, QMessageBox::StandardButtons answers) {
    QMessageBox box(QMessageBox::NoIcon, title, text, answers, owner);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec();
}
