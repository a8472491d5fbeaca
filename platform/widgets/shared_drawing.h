#pragma once

// Drawing resources shared by every window the component opens, for the application's lifetime.
//
// Qt's pixmap cache keys a style's drawings by the identity of the palette or pixmap they were drawn
// with, and Qt 6.4 never forgets a key it was given. A palette a widget sets is a new identity for
// each new widget, and so is an icon loaded anew: a form opened a thousand times would leave a
// thousand sets of keys behind. Drawing with one shared instance per distinct palette or icon makes
// the keys repeat, so the cache stays the size of one form.

#include <QIcon>
#include <QPalette>
#include <QString>

namespace tolvinpt {

// A palette equal to `palette` whose cache key is the same for every caller with these colours.
// Beyond a few dozen distinct palettes, `palette` itself is returned.
QPalette sharedPalette(const QPalette& palette);

// The icon read from `fileName`, one instance for the application's lifetime.
QIcon sharedIcon(const QString& fileName);

// A widget that draws with the shared palette of its colours: for the widgets a style draws through
// its pixmap cache (combo boxes, push buttons) when they are given palettes of their own.
template <class Widget, class StyleOption>
class SharedPaletteWidget : public Widget
{
public:
    using Widget::Widget;

protected:
    void initStyleOption(StyleOption* option) const override
    {
        Widget::initStyleOption(option);
        option->palette = sharedPalette(option->palette);
    }
};

} // namespace tolvinpt
