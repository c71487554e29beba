// The least that a tray program can be: what our start and our memory are compared with.

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::darkGreen);
    QSystemTrayIcon icon { QIcon(pixmap) };
    icon.show();
    QTimer::singleShot(0, [] {
        std::puts("ready");
        std::fflush(stdout);
    });
    return QApplication::exec();
}
