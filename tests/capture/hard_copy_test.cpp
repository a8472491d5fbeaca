// The entry form's "ﾊｰﾄﾞ ｺﾋﾟｰ": what is captured, where the page goes, and what the operator is told.
#include "capture/window_capture.h"
#include "tests/forms/form_fixture.h"

#include <tolvinpt/hard_copy.h>

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QTimer>

namespace tolvinpt::test {
namespace {

class HardCopy : public EntryTest
{
protected:
    void TearDown() override
    {
        SetHardCopySettings({});
        EntryTest::TearDown();
    }
    // Runs the command; the PDF files in `path` afterwards.
    QStringList print(const QString& path) const
    {
        form->menuItem(u"mnuDataPrint"_s)->trigger();
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << "the busy cursor is gone";
        return QDir(path).entryList(QDir::Files);
    }
    void expectToldWhere(const QString& file)
    {
        expectOneMessage(QString(u"ﾊｰﾄﾞ ｺﾋﾟｰを PDF ﾌｧｲﾙに保存しました\r\n\r\n"_s + file), u"ﾊｰﾄﾞ ｺﾋﾟｰ",
                         QMessageBox::Information);
    }

    QTemporaryDir folder;
};

// The page is the form as it stands, frame and title bar around it, in a PDF file named by the date,
// time and delivery key number: in the host's folder, or, without a printer, in the documents folder.
TEST_F(HardCopy, PicturesTheFormAsItStandsIntoAPdfFile)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "a printer is installed: the page would go to it";
    text(u"txtPaymentKeyNo"_s)->setText(u"D-0001"_s);
    text(u"txtHinmeiA"_s)->setText(u"BOLT M8 ﾎﾞﾙﾄ"_s);
    const auto restoreHome = qScopeGuard([home = qgetenv("HOME")] { qputenv("HOME", home); });
    qputenv("HOME", folder.path().toLocal8Bit());
    qunsetenv("XDG_CONFIG_HOME");
    for (const QString& to : {folder.filePath(u"pdf"_s), folder.filePath(u"Documents"_s)}) {
        SCOPED_TRACE(to.toStdString());
        const bool hostFolder = to.endsWith(u"pdf"_s);
        QDir().mkpath(folder.filePath(u"pdf"_s));
        SetHardCopySettings({hostFolder ? to : QString(), false});
        const QStringList files = print(to);
        ASSERT_EQ(files.size(), 1);
        EXPECT_TRUE(files[0].endsWith(u"-D-0001.pdf"_s)) << files[0].toStdString();
        expectToldWhere(QDir(to).filePath(files[0]));
    }

    const QImage picture = form->control<QLabel>(u"Picture1"_s)->pixmap().toImage();
    const QSize frame = picture.size() - form->size();
    const int border = frame.width() / 2;
    EXPECT_GT(frame.height() - border, 2 * border) << "a title bar above the form";
    for (const QString& name : {u"txtPaymentKeyNo"_s, u"txtHinmeiA"_s}) {
        QWidget* field = control(name);
        const QPoint at = field->mapTo(form.get(), QPoint()) + QPoint(border, frame.height() - border);
        EXPECT_EQ(picture.copy(QRect(at, field->size())).convertToFormat(QImage::Format_RGB32),
                  field->grab().toImage().convertToFormat(QImage::Format_RGB32))
            << name.toStdString();
    }
}

TEST_F(HardCopy, AFailureIsToldWithItsSourceAndLeavesNoFile)
{
    QFile notAFolder(folder.filePath(u"file"_s));
    ASSERT_TRUE(notAFolder.open(QIODevice::WriteOnly));
    SetHardCopySettings({notAFolder.fileName(), false});
    EXPECT_EQ(print(folder.path()), QStringList{u"file"_s});
    ASSERT_EQ(messages.shown.size(), 1);
    const QString title = messages.shown[0].title;
    EXPECT_TRUE(title.startsWith(u"ﾊｰﾄﾞ ｺﾋﾟｰ - "_s + notAFolder.fileName() + u'/')) << title.toStdString();
    expectOneMessage(u"Not a directory (20)", title);
}

// The preview shows the one page, lying like the form. Closed, it prints nothing; its print button
// (the print dialog accepted as it comes) writes the PDF file.
TEST_F(HardCopy, PreviewShowsTheOnePageAndPrintsFromThere)
{
    SetHardCopySettings({folder.path(), true});
    for (const bool printIt : {false, true}) {
        SCOPED_TRACE(printIt ? "printed" : "closed");
        QPrintPreviewWidget* page = nullptr;
        QTimer::singleShot(0, form.get(), [&] {
            auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(preview);
            page = preview->findChild<QPrintPreviewWidget*>();
            EXPECT_EQ(page->pageCount(), 1);
            EXPECT_EQ(page->orientation(), QPageLayout::Landscape);
            if (!printIt)
                return preview->reject();
            QTimer::singleShot(0, form.get(),
                               [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
            for (QAction* action : preview->findChildren<QAction*>())
                if (action->text() == u"Print"_s)
                    action->trigger();
        });
        const QStringList files = print(folder.path());
        EXPECT_TRUE(page);
        ASSERT_EQ(files.size(), printIt ? 1 : 0);
        if (printIt)
            expectToldWhere(folder.filePath(files[0]));
        EXPECT_TRUE(messages.shown.isEmpty());
    }
}

// At a device pixel ratio of 2 (this test run again with QT_SCALE_FACTOR=2, which writes its picture's
// size to a file) the same form has twice the pixels each way.
TEST_F(HardCopy, CapturesAtTheDevicePixelRatio)
{
    const QImage picture = capture::CaptureFormWindow(*form);
    QFile size(qEnvironmentVariable("TOLVINPT_CAPTURED_SIZE", folder.filePath(u"size"_s)));
    if (qEnvironmentVariableIsSet("TOLVINPT_CAPTURED_SIZE")) {
        ASSERT_TRUE(size.open(QIODevice::WriteOnly));
        size.write(QByteArray::number(picture.width()) + ' ' + QByteArray::number(picture.height()));
        return;
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"QT_SCALE_FACTOR"_s, u"2"_s);
    env.insert(u"TOLVINPT_CAPTURED_SIZE"_s, size.fileName());
    QProcess twice;
    twice.setProcessEnvironment(env);
    twice.start(QCoreApplication::applicationFilePath(),
                {u"--gtest_filter=HardCopy.CapturesAtTheDevicePixelRatio"_s});
    ASSERT_TRUE(twice.waitForFinished(60000) && twice.exitCode() == 0) << twice.readAll().toStdString();
    ASSERT_TRUE(size.open(QIODevice::ReadOnly));
    EXPECT_EQ(size.readAll(), QByteArray(QByteArray::number(picture.width() * 2) + ' ' +
                                         QByteArray::number(picture.height() * 2)));
}

} // namespace
} // namespace tolvinpt::test
