#include "host/host_app.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const bool headless = tolvinpt::host::preparePlatform();
    QApplication app(argc, argv);
    return tolvinpt::host::runHost(app, headless);
}
