// The entry form's "ﾊｰﾄﾞ ｺﾋﾟｰ": what is captured, where the page goes, and what the operator is told.
#include "capture/window_capture.h"
#include "tests/capture/pdf_pages.h"
#include "tests/forms/form_fixture.h"

#include <tolvinpt/hard_copy.h>

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QProcess>
#include <QTimer>

namespace tolvinpt::test {
namespace {

constexpr QStringView SavedText = u"ﾊｰﾄﾞ ｺﾋﾟｰを PDF ﾌｧｲﾙに保存しました\r\n\r\n";
constexpr QStringView SavedTitle = u"ﾊｰﾄﾞ ｺﾋﾟｰ";

class HardCopy : public EntryTest
{
protected:
    void TearDown() override
    {
        SetHardCopySettings({});
        EntryTest::TearDown();
    }
    void print() const { form->menuItem(u"mnuDataPrint"_s)->trigger(); }
    static QStringList pdfFiles(const QString& path)
    {
        return QDir(path).entryList({u"*.pdf"_s}, QDir::Files);
    }
    // The only message: the PDF file `file` was written.
    void expectToldWhere(const QString& file)
    {
        expectOneMessage(QString(SavedText + file), SavedTitle, QMessageBox::Information);
    }

    QTemporaryDir folder;
};

// HOME points at `home` while the object lives: the documents folder lies under it.
class HomeFolder
{
public:
    explicit HomeFolder(const QString& home) : m_saved(qgetenv("HOME"))
    {
        qputenv("HOME", home.toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
    }
    ~HomeFolder() { qputenv("HOME", m_saved); }

private:
    QByteArray m_saved;
};

// The page is the form as it stands, frame and title bar around it, in a PDF file named by the date,
// time and delivery key number: in the host's folder, or without any printer in the documents folder.
TEST_F(HardCopy, PicturesTheFormAsItStandsIntoAPdfFile)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "a printer is installed: the page would go to it";
    text(u"txtPaymentKeyNo"_s)->setText(u"D-0001"_s);
    text(u"txtHinmeiA"_s)->setText(u"BOLT M8 ﾎﾞﾙﾄ"_s);
    for (const bool hostFolder : {true, false}) {
        SCOPED_TRACE(hostFolder ? "the host's folder" : "no printer");
        const HomeFolder home(folder.path());
        const QString expectedFolder =
            hostFolder ? folder.filePath(u"pdf"_s) : folder.filePath(u"Documents"_s);
        QDir().mkpath(folder.filePath(u"pdf"_s));
        SetHardCopySettings({hostFolder ? expectedFolder : QString(), false});
        print();
        const QStringList files = pdfFiles(expectedFolder);
        ASSERT_EQ(files.size(), 1);
        EXPECT_TRUE(files[0].endsWith(u"-D-0001.pdf"_s)) << files[0].toStdString();
        expectToldWhere(QDir(expectedFolder).filePath(files[0]));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(renderedPages(QDir(expectedFolder).filePath(files[0])).size(), 1);
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

TEST_F(HardCopy, AFailureIsToldWithItsSourceAndTheCursorComesBack)
{
    QFile notAFolder(folder.filePath(u"file"_s));
    ASSERT_TRUE(notAFolder.open(QIODevice::WriteOnly));
    SetHardCopySettings({notAFolder.fileName(), false});
    print();
    ASSERT_EQ(messages.shown.size(), 1);
    const Message shown = messages.shown.takeFirst();
    EXPECT_TRUE(shown.title.startsWith(u"ﾊｰﾄﾞ ｺﾋﾟｰ - "_s + notAFolder.fileName() + u'/'))
        << shown.title.toStdString();
    messages.shown = {shown};
    expectOneMessage(u"Not a directory (20)", shown.title);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"file"_s});
}

// The preview shows the one page, lying like the form; closed, it prints nothing, and its print button
// writes the PDF file (the print dialog accepted as it comes).
TEST_F(HardCopy, PreviewShowsTheOnePageAndPrintsFromThere)
{
    SetHardCopySettings({folder.path(), true});
    for (const bool printIt : {false, true}) {
        SCOPED_TRACE(printIt ? "printed" : "closed");
        int pages = 0;
        QPageLayout::Orientation orientation = QPageLayout::Portrait;
        QTimer::singleShot(0, form.get(), [&] {
            auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(preview);
            auto* page = preview->findChild<QPrintPreviewWidget*>();
            pages = page->pageCount();
            orientation = page->orientation() == QPageLayout::Landscape ? QPageLayout::Landscape
                                                                        : QPageLayout::Portrait;
            if (!printIt) {
                preview->reject();
                return;
            }
            QTimer::singleShot(0, form.get(), [] {
                if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                    dialog->accept();
            });
            for (QAction* action : preview->findChildren<QAction*>())
                if (action->text() == u"Print"_s)
                    action->trigger();
        });
        print();
        EXPECT_EQ(pages, 1);
        EXPECT_EQ(orientation, QPageLayout::Landscape);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        const QStringList files = pdfFiles(folder.path());
        if (!printIt) {
            EXPECT_TRUE(files.isEmpty());
            EXPECT_TRUE(messages.shown.isEmpty());
            continue;
        }
        ASSERT_EQ(files.size(), 1);
        expectToldWhere(folder.filePath(files[0]));
    }
}

// At a device pixel ratio of 2 (a second run of this program with QT_SCALE_FACTOR=2, which writes its
// picture's size to a file) the same form has twice the pixels each way.
TEST_F(HardCopy, CapturesAtTheDevicePixelRatio)
{
    const QImage picture = capture::CaptureFormWindow(*form);
    if (const QString out = qEnvironmentVariable("TOLVINPT_CAPTURED_SIZE"); !out.isEmpty()) {
        QFile file(out);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::number(picture.width()) + ' ' + QByteArray::number(picture.height()));
        return;
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"QT_SCALE_FACTOR"_s, u"2"_s);
    env.insert(u"TOLVINPT_CAPTURED_SIZE"_s, folder.filePath(u"size"_s));
    QProcess twice;
    twice.setProcessEnvironment(env);
    twice.start(QCoreApplication::applicationFilePath(),
                {u"--gtest_filter=HardCopy.CapturesAtTheDevicePixelRatio"_s});
    ASSERT_TRUE(twice.waitForFinished(60000));
    ASSERT_EQ(twice.exitCode(), 0) << twice.readAllStandardOutput().toStdString();
    QFile size(folder.filePath(u"size"_s));
    ASSERT_TRUE(size.open(QIODevice::ReadOnly));
    const QList<QByteArray> read = size.readAll().split(' ');
    ASSERT_EQ(read.size(), 2);
    EXPECT_EQ(QSize(read[0].toInt(), read[1].toInt()), picture.size() * 2);
    EXPECT_EQ(picture.devicePixelRatio(), 1.0);
}

} // namespace
} // namespace tolvinpt::test
