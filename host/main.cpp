#include <tolvinpt/fmInput.h>

#include <QApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QTextStream(stdout) << QStringLiteral(TOLVINPT_VERSION) << Qt::endl;
    return 0;
}
