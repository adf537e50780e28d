#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QWidget>

// The least that a Qt program can be: a window of the timer's size and colour with nothing in it. With any
// argument it has as many menus as the timer's, which is the least that a program with menus can be.
int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Empty");
    window.setPalette(QPalette(QColor(0x9F, 0x9F, 0x9F)));
    window.resize(441, 229);
    if (QApplication::arguments().size() > 1) {
        auto* menus = new QMenuBar(&window);
        for (const char* name : {"File", "Edit", "Timer", "View", "Help"})
            menus->addMenu(QString::fromLatin1(name))->addAction(QStringLiteral("Item"));
        menus->resize(window.width(), menus->sizeHint().height());
    }
    window.show();
    return QApplication::exec();
}
