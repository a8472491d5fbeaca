#include "forms/frmData/hard_copy.h"

#include "capture/busy_cursor.h"
#include "capture/hard_copy.h"
#include "capture/hard_copy_error.h"
#include "capture/window_capture.h"
#include "forms/frmData/frmData.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {
namespace {

constexpr QStringView FailedTitle = u"ﾊｰﾄﾞ ｺﾋﾟｰ - ";
constexpr QStringView SavedText = u"ﾊｰﾄﾞ ｺﾋﾟｰを PDF ﾌｧｲﾙに保存しました\r\n\r\n%1";
constexpr QStringView SavedTitle = u"ﾊｰﾄﾞ ｺﾋﾟｰ";

} // namespace

void connectHardCopy(frmData& form)
{
    QObject::connect(form.menuItem(u"mnuDataPrint"_s), &QAction::triggered, &form,
                     guarded([&form] { mnuDataPrint_Click(form); }));
}

void mnuDataPrint_Click(frmData& form)
{
    QString written;
    try {
        QImage picture;
        {
            const capture::BusyCursor busy;
            picture = capture::CaptureFormWindow(form);
        }
        // The picture stays with the form until the next hard copy, as the hidden box's tag says.
        form.control<QLabel>(u"Picture1"_s)->setPixmap(QPixmap::fromImage(picture));
        written = capture::PrintHardCopy(picture, form.windowTitle(),
                                         form.control<QLineEdit>(u"txtPaymentKeyNo"_s)->text(), &form);
    } catch (const capture::HardCopyError& e) {
        showExclamation(e.operatorText(), FailedTitle + e.source());
        return;
    }
    if (!written.isEmpty())
        showInformation(SavedText.arg(QDir::toNativeSeparators(written)), SavedTitle.toString());
}

} // namespace tolvinpt::frmdata
