#include "platform/widgets/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace tolvinpt {
namespace {

int toPixels(int twips, qreal dpi)
{
    return static_cast<int>(std::lround(twips * dpi / TwipsPerInch));
}

} // namespace

Twips Twips::forScreenOf(const QWidget* widget)
{
    const QScreen* screen = widget ? widget->screen() : nullptr;
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {96, 96};
    return {screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY()};
}

int Twips::x(int twips) const
{
    return toPixels(twips, m_dpiX);
}

int Twips::y(int twips) const
{
    return toPixels(twips, m_dpiY);
}

QSize Twips::size(int width, int height) const
{
    return {x(width), y(height)};
}

QRect Twips::rect(int left, int top, int width, int height) const
{
    const int l = x(left);
    const int t = y(top);
    return QRect(QPoint(l, t), QPoint(x(left + width) - 1, y(top + height) - 1));
}

} // namespace tolvinpt
