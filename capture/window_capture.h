#pragma once

// A window's picture as the operator sees it: frame and title bar included, at the screen's device
// pixel ratio (the picture's devicePixelRatio says which), so that the page is sharp on a 2x screen.

#include <QImage>

class QWidget;

namespace tolvinpt::capture {

// The whole window of `form`, a shown top-level widget: the screen's pixels of its frame where the
// window system lets us read them (X11 with a window manager), else a frame drawn by the style around
// it; the client area always as the form paints it.
QImage CaptureFormWindow(QWidget& form);

} // namespace tolvinpt::capture
