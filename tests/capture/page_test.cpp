// One picture on one page: orientation by its shape, uniform scaling to the printable area, anchored at
// its top left.
#include "capture/hard_copy.h"
#include "capture/hard_copy_error.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvinpt::test {
namespace {

using namespace Qt::StringLiterals;

// The pages of a PDF file rendered by poppler at 72 dpi, one pixel a point, as an operator would see them.
QList<QImage> renderedPages(const QString& pdf)
{
    QTemporaryDir out;
    QProcess::execute(QStringLiteral(PDFTOPPM), {u"-r"_s, u"72"_s, u"-png"_s, pdf, out.filePath(u"page"_s)});
    QList<QImage> pages;
    for (const QString& name : QDir(out.path()).entryList(QDir::Files, QDir::Name))
        pages << QImage(out.filePath(name));
    return pages;
}

// The smallest rectangle that holds every dark pixel.
QRect darkArea(const QImage& page)
{
    QRect area;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (qGray(page.pixel(x, y)) < 128)
                area |= QRect(x, y, 1, 1);
    return area;
}

enum class Fills { Width, Height, Both };

const struct Shape
{
    const char* name;
    QSize picture;
    bool landscape;
    Fills fills;
} Shapes[] = {
    {"wide", {400, 100}, true, Fills::Width},
    {"tall", {100, 400}, false, Fills::Height},
    {"square", {300, 300}, false, Fills::Width},
    {"the page's ratio (A4, 210 by 297)", {210, 297}, false, Fills::Both},
    {"one pixel", {1, 1}, false, Fills::Width},
};

// Each copy is one A4 page in the picture's orientation, drawn from the top left until it meets the
// printable width or height, in a file of its own; an empty picture fails and leaves no file.
TEST(PdfPage, HoldsOnePageFilledAsTheRuleSays)
{
    QTemporaryDir folder;
    capture::setHardCopyDestination({folder.path(), false});
    for (const Shape& s : Shapes) {
        SCOPED_TRACE(s.name);
        QImage picture(s.picture, QImage::Format_RGB32);
        picture.fill(Qt::black);
        const QList<QImage> pages =
            renderedPages(capture::PrintHardCopy(picture, u"title"_s, u"K/1"_s, nullptr));
        ASSERT_EQ(pages.size(), 1);
        const QSize page = pages[0].size();
        EXPECT_EQ(page, s.landscape ? QSize(842, 595) : QSize(595, 842));
        const QRect drawn = darkArea(pages[0]);
        EXPECT_EQ(drawn.topLeft(), QPoint(0, 0));
        EXPECT_EQ(drawn.width() == page.width(), s.fills != Fills::Height);
        EXPECT_EQ(drawn.height() == page.height(), s.fills != Fills::Width);
        EXPECT_NEAR(double(drawn.width()) / drawn.height(), double(s.picture.width()) / s.picture.height(),
                    0.01);
    }
    EXPECT_THROW(capture::PrintHardCopy(QImage(), u"title"_s, u"K"_s, nullptr), capture::HardCopyError);
    capture::setHardCopyDestination({});
    const QStringList written = QDir(folder.path()).entryList(QDir::Files);
    EXPECT_EQ(written.size(), qsizetype(std::size(Shapes)));
    for (const QString& name : written)
        EXPECT_TRUE(QRegularExpression(u"^\\d{8}-\\d{6}-K_1(-\\d+)?\\.pdf$"_s).match(name).hasMatch())
            << name.toStdString();
}

} // namespace
} // namespace tolvinpt::test
