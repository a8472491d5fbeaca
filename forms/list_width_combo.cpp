#include "forms/list_width_combo.h"

#include <QAbstractItemView>

namespace tolvinpt {

ListWidthComboBox::ListWidthComboBox(QWidget* parent) : SharedPaletteWidget(parent)
{
    view()->setTextElideMode(Qt::ElideNone);
}

void ListWidthComboBox::showPopup()
{
    QComboBox::showPopup();
    QWidget* popup = view()->window();
    if (popup->width() > width())
        popup->setGeometry(mapToGlobal(QPoint(0, 0)).x(), popup->y(), width(), popup->height());
}

} // namespace tolvinpt
