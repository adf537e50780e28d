#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QWidget>

// A minimal Qt program for comparison: an empty window of the timer's size and colour. With any argument, the
// window also has as many menus as the timer window, each with a single item.
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
