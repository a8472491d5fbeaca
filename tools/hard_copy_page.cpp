// Writes the hard copy of a demo record in the entry form as a PDF file: hard_copy_page FOLDER prints the
// file's path. Offscreen, the frame and title bar are the drawn ones. scripts/screenshots.sh renders
// the page into docs/screenshots.
#include "capture/hard_copy.h"
#include "capture/window_capture.h"
#include "component/host_registry.h"
#include "forms/frmData/frmData.h"
#include "tests/support/fake_host.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: hard_copy_page FOLDER\n");
        return 2;
    }
    tolvinpt::test::FakeHostData host;
    host.ownName = QStringLiteral("株式会社 東邦精機");
    host.ownCode = QStringLiteral("4912345000017");
    tolvinpt::test::registerFakeHost(host);
    auto company = tolvinpt::hostObjects().CreateCompanySettings();

    tolvinpt::frmData form(*company);
    auto* customer = form.control<QComboBox>(QStringLiteral("cobCustomer"));
    customer->addItem(QStringLiteral("ﾃｽﾄ商事 株式会社") + QString(100, u' ') + u':' +
                      QStringLiteral("4900000000011"));
    customer->setCurrentIndex(0);
    const std::pair<const char*, const char*> values[] = {
        {"txtOrderNo", "PO-2005-031001"},
        {"txtPaymentKeyNo", "D-2005-0310-01"},
        {"txtTantoA", "ﾔﾏﾀﾞ"},
        {"txtTantoK", "山田"},
        {"txtPlaceC", "A01"},
        {"txtPlaceA", "ﾎﾝｼｬ ｺｳｼﾞｮｳ"},
        {"txtPlaceK", "本社工場"},
        {"txtHCode", "HB-1020-3"},
        {"txtMyHCode", "TS-88120"},
        {"txtHinmeiA", "ﾎﾞﾙﾄ M8X30"},
        {"txtHinmeiK", "六角ボルト Ｍ８×３０"},
        {"txtDate(0)", "20050315"},
        {"txtDate(1)", "20050310"},
        {"txtDate(2)", "20050311"},
        {"txtAmountOrder", "1200"},
        {"txtAmountIndicate", "1200"},
        {"txtAmountDelivery", "1200"},
        {"txtUnit", "PC"},
        {"txtUnitPrice", "12.5"},
        {"txtMyRemarksA", "ｿｸﾀﾂ"},
        {"txtMyRemarksK", "至急"},
    };
    for (const auto& [name, value] : values)
        form.control<QLineEdit>(QString::fromUtf8(name))->setText(QString::fromUtf8(value));
    form.show();
    if (!QTest::qWaitForWindowExposed(&form))
        return 1;
    QTest::qWait(200);
    tolvinpt::capture::setHardCopyDestination({QString::fromLocal8Bit(argv[1]), false});
    const QString pdf =
        tolvinpt::capture::PrintHardCopy(tolvinpt::capture::CaptureFormWindow(form), form.windowTitle(),
                                         QStringLiteral("D-2005-0310-01"), &form);
    std::printf("%s\n", qPrintable(pdf));
    tolvinpt::RegisterHostObjects(nullptr);
    return 0;
}
