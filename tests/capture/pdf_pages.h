#pragma once

// A PDF file's pages as pictures, rendered by poppler at 72 dpi: one pixel is one point.

#include <QDir>
#include <QImage>
#include <QList>
#include <QProcess>
#include <QTemporaryDir>

namespace tolvinpt::test {

inline QList<QImage> renderedPages(const QString& pdf)
{
    QTemporaryDir out;
    QProcess::execute(QStringLiteral(PDFTOPPM),
                      {QStringLiteral("-r"), QStringLiteral("72"), QStringLiteral("-png"), pdf,
                       out.filePath(QStringLiteral("page"))});
    QList<QImage> pages;
    for (const QString& name :
         QDir(out.path()).entryList({QStringLiteral("page*.png")}, QDir::Files, QDir::Name))
        pages << QImage(out.filePath(name));
    return pages;
}

// The smallest rectangle that holds every dark pixel of `page`.
inline QRect darkArea(const QImage& page)
{
    QRect area;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (qGray(page.pixel(x, y)) < 128)
                area |= QRect(x, y, 1, 1);
    return area;
}

} // namespace tolvinpt::test
