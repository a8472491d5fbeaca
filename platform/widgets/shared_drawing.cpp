#include "platform/widgets/shared_drawing.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QPointer>

namespace tolvinpt {
namespace {

// Enough for every colour state a field can show; a host that keeps changing its palette stops
// sharing rather than growing.
constexpr qsizetype MaxPalettes = 32;

// Owned by the application object, so that its pixmaps go before the application does.
class SharedDrawing final : public QObject
{
public:
    using QObject::QObject;
    QList<QPalette> palettes;
    QHash<QString, QIcon> icons;
};

SharedDrawing* shared()
{
    static QPointer<SharedDrawing> instance;
    if (!instance)
        instance = new SharedDrawing(QCoreApplication::instance());
    return instance;
}

} // namespace

QPalette sharedPalette(const QPalette& palette)
{
    QList<QPalette>& palettes = shared()->palettes;
    for (QPalette known : palettes) {
        if (known == palette) {
            known.setCurrentColorGroup(palette.currentColorGroup()); // no detach: the key stays
            return known;
        }
    }
    if (palettes.size() >= MaxPalettes)
        return palette;
    palettes.append(palette);
    return palette;
}

QIcon sharedIcon(const QString& fileName)
{
    QHash<QString, QIcon>& icons = shared()->icons;
    auto found = icons.constFind(fileName);
    if (found == icons.constEnd())
        found = icons.insert(fileName, QIcon(fileName));
    return *found;
}

} // namespace tolvinpt
