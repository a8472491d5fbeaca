// Writes pictures of the two dialogs of the entry form: dialog_screenshot DIR (quantity-editor.png and
// split-dialog.png in DIR; offscreen or under xvfb-run).
#include "forms/frmDivide/frmDivide.h"
#include "forms/frmQuantity/frmQuantity.h"
#include "forms/frmQuantity/package_grid.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>

#include <cstdio>

namespace {

bool save(QWidget& dialog, const QDir& dir, const QString& name)
{
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog))
        return false;
    QTest::qWait(200);
    return dialog.grab().save(dir.filePath(name));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: dialog_screenshot DIR\n");
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    using tolvinpt::Currency;

    // 10 broken down as 3 + 3 + 3 + 1, the cursor on the row after the packages.
    tolvinpt::PackageQuantities packages{};
    packages = {Currency::fromInteger(3), Currency::fromInteger(3), Currency::fromInteger(3),
                Currency::fromInteger(1)};
    tolvinpt::frmQuantity quantity(packages);
    quantity.control<QLineEdit>(QStringLiteral("txtDelivery"))->setText(QStringLiteral("10"));
    quantity.control<QLineEdit>(QStringLiteral("txtEquality"))->setText(QStringLiteral("3.000"));
    quantity.grid()->goToRow(4);

    tolvinpt::frmDivide divide;
    divide.fill({QStringLiteral("10"), QStringLiteral("D-2005-0310-01"), QStringLiteral("10")});
    divide.control<QLineEdit>(QStringLiteral("txtPayment(1)"))->setText(QStringLiteral("D-2005-0310-02"));
    divide.control<QLineEdit>(QStringLiteral("txtAmount(1)"))->setText(QStringLiteral("4"));

    const bool saved =
        save(quantity, dir, QStringLiteral("quantity-editor.png")) && save(divide, dir, QStringLiteral("split-dialog.png"));
    return saved ? 0 : 1;
}
