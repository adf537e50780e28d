#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

// The least that a Qt program can be: a window of the timer's size and colour with nothing in it.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Empty");
    window.setPalette(QPalette(QColor(0x9F, 0x9F, 0x9F)));
    window.resize(441, 229);
    window.show();
    return QApplication::exec();
}
