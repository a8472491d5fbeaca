// Writes a picture of the entry form: form_screenshot OUT.png [browse] (run under xvfb-run); new-record
// mode unless "browse" is given.
#include "component/host_registry.h"
#include "forms/frmData/frmData.h"
#include "tests/support/fake_host.h"

#include <QApplication>
#include <QComboBox>
#include <QPixmap>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const bool browse = argc == 3 && QByteArray(argv[2]) == "browse";
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: form_screenshot OUT.png [browse]\n");
        return 2;
    }
    tolvinpt::test::FakeHostData host;
    host.ownName = QStringLiteral("株式会社 東邦精機");
    host.ownCode = QStringLiteral("4912345000017");
    tolvinpt::test::registerFakeHost(host);
    auto company = tolvinpt::hostObjects().CreateCompanySettings();

    tolvinpt::frmData form(*company);
    form.control<QComboBox>(QStringLiteral("cobCustomer"))
        ->addItem(QStringLiteral("ﾃｽﾄ商事 株式会社") + QString(100, u' ') + u':' +
                  QStringLiteral("4900000000011"));
    if (!browse)
        form.gNewStart();
    form.show();
    if (!QTest::qWaitForWindowExposed(&form))
        return 1;
    QTest::qWait(200);
    const bool saved = form.grab().save(QString::fromLocal8Bit(argv[1]));
    tolvinpt::RegisterHostObjects(nullptr);
    return saved ? 0 : 1;
}
