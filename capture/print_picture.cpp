#include "capture/print_picture.h"

#include "capture/hard_copy_error.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

namespace tolvinpt::capture {
namespace {

// Portrait when the picture is at least as high as it is wide, landscape otherwise.
QPageLayout::Orientation pageOrientation(QSize picture)
{
    return picture.height() >= picture.width() ? QPageLayout::Portrait : QPageLayout::Landscape;
}

// The largest size of the picture's shape within `printable`: the full printable width when the picture
// is relatively at least as wide as the printable area, else the full printable height.
QSizeF drawnSize(QSize picture, QSizeF printable)
{
    const double pictureRatio = double(picture.width()) / picture.height();
    const double printerRatio = printable.width() / printable.height();
    if (pictureRatio >= printerRatio)
        return {printable.width(), printable.width() / pictureRatio};
    return {printable.height() * pictureRatio, printable.height()};
}

} // namespace

void PrintPictureToPage(QPagedPaintDevice& device, QPainter& painter, const QImage& picture)
{
    if (picture.isNull() || picture.width() == 0 || picture.height() == 0)
        throw divisionByZero();
    device.setPageOrientation(pageOrientation(picture.size()));
    if (!painter.begin(&device))
        throw printerError();
    // The painter's origin is the top left of the printable area, its unit the device pixel. A screen
    // picture is text and lines: kept lossless where the device would otherwise compress it as a photo.
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    const QSizeF drawn = drawnSize(picture.size(), QSizeF(device.width(), device.height()));
    painter.drawImage(QRectF(QPointF(0, 0), drawn), picture);
}

} // namespace tolvinpt::capture
