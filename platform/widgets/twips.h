#pragma once

// Form layouts are designed in twips (1/1440 inch); this is the one conversion to device-independent
// pixels, at the screen's logical DPI, that every form uses.

#include <QRect>

class QWidget;

namespace tolvinpt {

constexpr int TwipsPerInch = 1440;

class Twips
{
public:
    // Conversion at the given logical DPI (horizontal, vertical).
    constexpr Twips(qreal dpiX, qreal dpiY) : m_dpiX(dpiX), m_dpiY(dpiY) {}
    // Conversion for the screen that shows `widget` (the primary screen when null or not yet shown).
    static Twips forScreenOf(const QWidget* widget = nullptr);

    int x(int twips) const;
    int y(int twips) const;
    QSize size(int width, int height) const;
    // Left, top, width, height in twips; each edge is rounded so that adjacent rectangles stay adjacent.
    QRect rect(int left, int top, int width, int height) const;

private:
    qreal m_dpiX;
    qreal m_dpiY;
};

} // namespace tolvinpt
