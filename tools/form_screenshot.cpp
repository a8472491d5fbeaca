// Writes a picture of the entry form (run under xvfb-run): form_screenshot OUT.png [browse] for new-record
// mode or browse mode; form_screenshot FOLDER hardcopy writes the hard copy of a demo record into FOLDER
// as a PDF file and prints the file's path (offscreen, with the drawn frame and title bar).
#include "capture/hard_copy.h"
#include "capture/hard_copy_error.h"
#include "capture/window_capture.h"
#include "component/host_registry.h"
#include "forms/frmData/frmData.h"
#include "tests/support/fake_host.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>

#include <cstdio>

namespace {

// A demo record as typed into the form.
void typeDemoRecord(tolvinpt::frmData& form)
{
    form.control<QComboBox>(QStringLiteral("cobCustomer"))->setCurrentIndex(0);
    const char* const values[][2] = {
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
}

// The page of the form's hard copy, as a PDF file in `folder`; its path, empty on failure.
QString hardCopy(tolvinpt::frmData& form, const QString& folder)
{
    tolvinpt::capture::setHardCopyDestination({folder, false});
    try {
        return tolvinpt::capture::PrintHardCopy(
            tolvinpt::capture::CaptureFormWindow(form), form.windowTitle(),
            form.control<QLineEdit>(QStringLiteral("txtPaymentKeyNo"))->text(), &form);
    } catch (const tolvinpt::capture::HardCopyError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.operatorText()));
        return {};
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QByteArray mode = argc == 3 ? QByteArray(argv[2]) : QByteArray();
    if (argc < 2 || argc > 3 || !(mode.isEmpty() || mode == "browse" || mode == "hardcopy")) {
        std::fprintf(stderr, "usage: form_screenshot OUT.png [browse] | form_screenshot FOLDER hardcopy\n");
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
    if (mode.isEmpty())
        form.gNewStart();
    if (mode == "hardcopy")
        typeDemoRecord(form);
    form.show();
    if (!QTest::qWaitForWindowExposed(&form))
        return 1;
    QTest::qWait(200);
    const QString out = QString::fromLocal8Bit(argv[1]);
    bool written = false;
    if (mode == "hardcopy") {
        const QString pdf = hardCopy(form, out);
        std::printf("%s\n", qPrintable(pdf));
        written = !pdf.isEmpty();
    } else {
        written = form.grab().save(out);
    }
    tolvinpt::RegisterHostObjects(nullptr);
    return written ? 0 : 1;
}
