#pragma once

#include <QtWidgets/QMessageBox>

/// Shows a plain text over `owner`, with buttons for the answers, and waits. The answer, which is No by default
/// if that is one of them; NoButton if the program ends meanwhile.
int Ask(QWidget* owner, const QString& title, const QString& text, QMessageBox::StandardButtons answers);
