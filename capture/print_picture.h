#pragma once

// One picture on one page: orientation by the picture's shape, scaled uniformly to the printable area,
// anchored at its top left; no header, footer or margin of our own.

#include <QImage>

class QPagedPaintDevice;
class QPainter;

namespace tolvinpt::capture {

// Sets the page orientation (before anything of the page is measured), begins `painter` on `device` and
// draws the picture at the top left of the printable area as large as it fits. The caller ends the
// painter, which sends the page, or abandons the job. Throws HardCopyError (without a source) for an
// empty picture or a device that cannot start a page.
void PrintPictureToPage(QPagedPaintDevice& device, QPainter& painter, const QImage& picture);

} // namespace tolvinpt::capture
