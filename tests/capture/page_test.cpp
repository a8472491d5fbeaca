// One picture on one page: orientation, uniform scaling, the top-left anchor, the PDF files and their
// failures.
#include "capture/hard_copy.h"
#include "capture/hard_copy_error.h"
#include "capture/print_picture.h"
#include "tests/capture/pdf_pages.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvinpt::test {
namespace {

using namespace Qt::StringLiterals;
using capture::HardCopyError;

enum class Fills { Width, Height, Both };

// Printable areas with the A4 sheet's ratio, 297 by 210, upright and lying.
constexpr QSizeF Upright(2100, 2970);
constexpr QSizeF Lying(2970, 2100);

struct Shape
{
    const char* name;
    QSize picture;
    QPageLayout::Orientation orientation;
    Fills fills;
    QSizeF printable; // in that orientation
    QSizeF drawn;
};
const Shape Shapes[] = {
    {"wide", {400, 100}, QPageLayout::Landscape, Fills::Width, Lying, {2970, 742.5}},
    {"tall", {100, 400}, QPageLayout::Portrait, Fills::Height, Upright, {742.5, 2970}},
    {"square", {300, 300}, QPageLayout::Portrait, Fills::Width, Upright, {2100, 2100}},
    {"the page's ratio", {210, 297}, QPageLayout::Portrait, Fills::Both, Upright, {2100, 2970}},
    {"one pixel", {1, 1}, QPageLayout::Portrait, Fills::Width, Upright, {2100, 2100}},
};

QImage dark(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::black);
    return picture;
}

class Pages : public testing::Test
{
protected:
    void SetUp() override { capture::setHardCopyDestination({folder.path(), false}); }
    void TearDown() override { capture::setHardCopyDestination({}); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }

    QTemporaryDir folder;
};

TEST(PageRule, OrientationByShapeAndUniformScaling)
{
    for (const Shape& s : Shapes) {
        SCOPED_TRACE(s.name);
        EXPECT_EQ(capture::pageOrientation(s.picture), s.orientation);
        EXPECT_EQ(capture::drawnSize(s.picture, s.printable), s.drawn);
    }
}

// Each copy is one A4 page in the picture's orientation, drawn from the top left until it meets the
// printable width or height; copies of one record never share a file.
TEST_F(Pages, PdfHoldsOnePageFilledAsTheRuleSays)
{
    for (const Shape& s : Shapes) {
        SCOPED_TRACE(s.name);
        const QString pdf = capture::PrintHardCopy(dark(s.picture), u"title"_s, u"K/1"_s, nullptr);
        const QList<QImage> pages = renderedPages(pdf);
        ASSERT_EQ(pages.size(), 1);
        const QSize page = pages[0].size();
        EXPECT_EQ(page, s.orientation == QPageLayout::Portrait ? QSize(595, 842) : QSize(842, 595));
        const QRect drawn = darkArea(pages[0]);
        EXPECT_EQ(drawn.topLeft(), QPoint(0, 0));
        if (s.fills != Fills::Height) {
            EXPECT_EQ(drawn.width(), page.width());
        }
        if (s.fills != Fills::Width) {
            EXPECT_EQ(drawn.height(), page.height());
        }
        EXPECT_NEAR(double(drawn.width()) / drawn.height(), double(s.picture.width()) / s.picture.height(),
                    0.01);
    }
    const QStringList written = files();
    EXPECT_EQ(written.size(), qsizetype(std::size(Shapes)));
    for (const QString& name : written)
        EXPECT_TRUE(QRegularExpression(u"^\\d{8}-\\d{6}-K_1(-\\d+)?\\.pdf$"_s).match(name).hasMatch())
            << name.toStdString();
}

TEST_F(Pages, AFailedCopyLeavesNoFile)
{
    QFile notAFolder(folder.filePath(u"file"_s));
    ASSERT_TRUE(notAFolder.open(QIODevice::WriteOnly));
    struct Failure
    {
        QString folder;
        QImage picture;
        QString description;
        long number;
    } failures[] = {
        {notAFolder.fileName(), dark({10, 10}), u"Not a directory"_s, 20},
        {folder.path(), QImage(), u"Division by zero"_s, 11},
    };
    for (const Failure& f : failures) {
        SCOPED_TRACE(f.description.toStdString());
        capture::setHardCopyDestination({f.folder, false});
        try {
            capture::PrintHardCopy(f.picture, u"title"_s, u"K"_s, nullptr);
            ADD_FAILURE() << "no error";
        } catch (const HardCopyError& e) {
            EXPECT_EQ(e.operatorText(), f.description + u" ("_s + QString::number(f.number) + u')');
            EXPECT_TRUE(e.source().startsWith(f.folder + u'/')) << e.source().toStdString();
        }
        EXPECT_EQ(files(), QStringList{u"file"_s});
    }
}

} // namespace
} // namespace tolvinpt::test
