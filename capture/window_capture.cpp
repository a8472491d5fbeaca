#include "capture/window_capture.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QWidget>
#include <QWindow>

namespace tolvinpt::capture {
namespace {

// The client area as the window paints it: without the popup that started the command (a menu closes
// only as the command begins, and the screen under it may not be repainted yet) or a window over it.
QImage clientPicture(QWidget& window)
{
    return window.grab().toImage();
}

// Only X11 lets a client read the screen, and only a window manager draws a frame there; Wayland gives
// no pixels of the compositor's decoration, offscreen has no screen.
bool frameOnScreen(const QWidget& window)
{
    const QWindow* handle = window.windowHandle();
    return QGuiApplication::platformName() == u"xcb" && handle && handle->isExposed() &&
           window.frameGeometry() != window.geometry();
}

// The frame and title bar as the window manager drew them, the client area as the window paints it.
QImage grabbedFrame(QWidget& window)
{
    const QRect frame = window.frameGeometry();
    QScreen* screen = window.screen();
    const QPoint onScreen = frame.topLeft() - screen->geometry().topLeft();
    QPixmap picture = screen->grabWindow(0, onScreen.x(), onScreen.y(), frame.width(), frame.height());
    if (picture.isNull())
        return {};
    QPainter painter(&picture);
    painter.drawImage(window.geometry().topLeft() - frame.topLeft(), clientPicture(window));
    painter.end();
    return picture.toImage();
}

// Where no frame can be read from the screen, the style draws one around the rendered window: an
// active title bar with the window's title in its font, and a window frame, as a desktop shows them.
QImage drawnFrame(QWidget& window)
{
    const QImage client = clientPicture(window);
    QStyle* style = window.style();
    QStyleOptionTitleBar title;
    title.initFrom(&window);
    title.fontMetrics = window.fontMetrics();
    title.text = window.windowTitle();
    title.icon = window.windowIcon();
    title.titleBarState = Qt::WindowActive;
    title.titleBarFlags =
        Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    title.state |= QStyle::State_Active;
    const int border = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int titleHeight = style->pixelMetric(QStyle::PM_TitleBarHeight, &title, &window);
    const QSize outer = window.size() + QSize(2 * border, 2 * border + titleHeight);

    const qreal ratio = client.devicePixelRatio();
    QImage picture((QSizeF(outer) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(window.palette().color(QPalette::Window));
    QPainter painter(&picture);
    painter.setFont(window.font());
    QStyleOptionFrame frame;
    frame.initFrom(&window);
    frame.rect = QRect(QPoint(0, 0), outer);
    frame.lineWidth = border;
    frame.state |= QStyle::State_Active;
    style->drawPrimitive(QStyle::PE_FrameWindow, &frame, &painter, &window);
    title.rect = QRect(border, border, window.width(), titleHeight);
    style->drawComplexControl(QStyle::CC_TitleBar, &title, &painter, &window);
    painter.drawImage(QPoint(border, border + titleHeight), client);
    return picture;
}

} // namespace

QImage CaptureFormWindow(QWidget& form)
{
    if (frameOnScreen(form)) {
        QImage picture = grabbedFrame(form);
        if (!picture.isNull())
            return picture;
    }
    return drawnFrame(form);
}

} // namespace tolvinpt::capture
